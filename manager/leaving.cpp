#include "manager/leaving.h"

#include "host/mrl_widgets.h"
#include "manager/extras.h"

bool lcm_may_lose(QWidget* dialog, int steps)
{
    if (steps == 0) {
        return true;
    }
    const QString lost = steps == 1
                             ? LCM_Extras::tr("One step has not been saved and would be lost.")
                             : LCM_Extras::tr("%1 steps have not been saved and would be lost.").arg(steps);
    constexpr int KEEP = 0;
    constexpr int DISCARD = 1;
    return MRL_QT_MessageBox::warning(dialog, LCM_Extras::tr("Leave without saving?"), lost,
                                      LCM_Extras::tr("Keep editing"), LCM_Extras::tr("Discard"), QString(),
                                      KEEP, KEEP) == DISCARD;
}
