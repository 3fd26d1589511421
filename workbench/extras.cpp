#include "workbench/extras.h"

#include "host/mrl_widgets.h"
#include "rules/dialog_settings.h"

namespace mrl::workbench {

namespace {

MRL_QT_Application* application() { return qobject_cast<MRL_QT_Application*>(QCoreApplication::instance()); }

} // namespace

bool wantsExtras()
{
    int wanted = 0;
    if (MRL_QT_Application* settings = application()) {
        settings->getAppSettings(LCM_SETTINGS_GROUP, LCM_SETTING_EXTRAS, wanted, 0);
    }
    return wanted == 1;
}

void storeExtras(bool wanted)
{
    if (MRL_QT_Application* settings = application()) {
        settings->setAppSettings(LCM_SETTINGS_GROUP, LCM_SETTING_EXTRAS, wanted ? 1 : 0);
    }
}

} // namespace mrl::workbench
