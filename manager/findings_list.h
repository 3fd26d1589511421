#pragma once

#include <QString>

#include <vector>

class LCM_ActionsWidget;
class LCM_LoadcaseWidget;
class LCM_TabInterface;
class QTableWidgetItem;

/// One finding of the open dialog.
struct LCM_ShownFinding
{
    LCM_TabInterface* tab;
    const QTableWidgetItem* row; ///< a cell of the row, which finds it wherever it is sorted to
    int column;                  ///< id of the column; its cell may be hidden or missing
    QString text;                ///< row, column by its heading, reason
};

/// The findings of all rows that count as invalid, in the order of the tables. Judges nothing anew: a row whose
/// cause is gone says so. @param actions, loadCases null for a tab that the dialog doesn't have
std::vector<LCM_ShownFinding> lcm_shown_findings(LCM_ActionsWidget* actions, LCM_LoadcaseWidget* loadCases);
