#pragma once

class QWidget;

/// Asks whether steps may be lost that were not saved. Doesn't ask when there are none.
/// @return whether the dialog may be left
bool lcm_may_lose(QWidget* dialog, int steps);
