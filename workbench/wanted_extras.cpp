#include "workbench/wanted_extras.h"

#include "host/mrl_widgets.h"
#include "rules/dialog_settings.h"

namespace mrl::workbench {

namespace {

constexpr int UNDECIDED = -1;

const auto WORKBENCH_GROUP = QStringLiteral("Workbench");
const auto ONE_TAB = QStringLiteral("oneTab");

int stored(const QString& group, const QString& key)
{
    int value = UNDECIDED;
    if (auto* application = qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())) {
        application->getAppSettings(group, key, value, UNDECIDED);
    }
    return value;
}

void store(const QString& group, const QString& key, bool wanted)
{
    if (auto* application = qobject_cast<MRL_QT_Application*>(QCoreApplication::instance())) {
        application->setAppSettings(group, key, wanted ? 1 : 0);
    }
}

} // namespace

bool wantsExtras() { return stored(LCM_SETTINGS_GROUP, LCM_SETTING_EXTRAS) == 1; }

void storeExtras(bool wanted) { store(LCM_SETTINGS_GROUP, LCM_SETTING_EXTRAS, wanted); }

void turnExtrasOnAtFirst()
{
    if (stored(LCM_SETTINGS_GROUP, LCM_SETTING_EXTRAS) == UNDECIDED) {
        storeExtras(true);
    }
}

bool wantsOneTab() { return stored(WORKBENCH_GROUP, ONE_TAB) == 1; }

void storeOneTab(bool wanted) { store(WORKBENCH_GROUP, ONE_TAB, wanted); }

} // namespace mrl::workbench
