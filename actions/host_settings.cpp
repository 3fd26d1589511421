#include "actions/host_settings.h"

#include "host/mrl_widgets.h"
#include "rules/dialog_settings.h"

MRL_QT_Application* lcm_settings() { return qobject_cast<MRL_QT_Application*>(QCoreApplication::instance()); }

bool lcm_wants_extras()
{
    int wanted = 0;
    if (MRL_QT_Application* settings = lcm_settings()) {
        settings->getAppSettings(LCM_SETTINGS_GROUP, LCM_SETTING_EXTRAS, wanted, 0);
    }
    return wanted == 1;
}
