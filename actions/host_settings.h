#pragma once

class MRL_QT_Application;

/// Where the host keeps its settings; null if the program keeps none.
MRL_QT_Application* lcm_settings();

/// Whether the host wants the dialog's extras: "Check again", and a new action's row selected.
bool lcm_wants_extras();
