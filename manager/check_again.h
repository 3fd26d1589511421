#pragma once

class LCM_ActionsWidget;
class LCM_LoadcaseWidget;
class QWidget;

/// Gives a dialog the command "Check again" on F5: it judges all rows of its tabs anew, by the rules that judge an
/// edited row. A load case whose action was corrected on the other tab is valid again then.
/// @param actions, loadCases null for a tab that the dialog doesn't have
void lcm_add_check_again(QWidget* dialog, LCM_ActionsWidget* actions, LCM_LoadcaseWidget* loadCases);
