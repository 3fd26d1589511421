#include "loadcases/tab_settings.h"

#include "actions/host_settings.h"
#include "host/mrl_widgets.h"
#include "rules/dialog_settings.h"

namespace {

const auto INCREMENT = QStringLiteral("checkIncrement");

} // namespace

void lcm_read_settings(LCM_TabSettings& settings)
{
    MRL_QT_Application* stored = lcm_settings();
    if (!stored) {
        return;
    }
    int directions = 0;
    int increment = 1;
    stored->getAppSettings(LCM_SETTINGS_GROUP, LCM_SETTING_GLOBAL_DIRECTIONS, directions, 0);
    stored->getAppSettings(LCM_SETTINGS_GROUP, INCREMENT, increment, 1);
    settings = {directions != 0, increment != 0};
}

void lcm_store_settings(const LCM_TabSettings& settings)
{
    MRL_QT_Application* stored = lcm_settings();
    if (!stored) {
        return;
    }
    stored->setAppSettings(LCM_SETTINGS_GROUP, LCM_SETTING_GLOBAL_DIRECTIONS,
                           settings.globalDirections ? 1 : 0);
    stored->setAppSettings(LCM_SETTINGS_GROUP, INCREMENT, settings.increment ? 1 : 0);
}
