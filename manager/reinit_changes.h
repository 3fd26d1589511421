#pragma once

#include <QString>

#include <vector>

class LCM_ActionsWidget;

/// A cell that would get another value.
struct LCM_ReinitChange
{
    int row;
    int column;   ///< position
    QString text; ///< "Q_B ψ0: 0.65 > 0.7"
};

/// What putting the selected rows back to the design code would change; all rows when none is selected.
std::vector<LCM_ReinitChange> lcm_reinit_changes(LCM_ActionsWidget& tab);
