#include "manager/findings_list.h"

#include "actions/actions_widget.h"
#include "host/mrl_table.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/roles.h"
#include "loadcases/loadcase_widget.h"
#include "manager/extras.h"
#include "rules/load_case_columns.h"

namespace {

/// The heading of a column, or the factor's name where the table has none for it.
QString headingOf(const MRL_H_TableWidget& table, int column)
{
    if (const QTableWidgetItem* header = table.horizontalHeaderItemOnColId(column)) {
        return header->text();
    }
    const LCM_Factor* factor = lcm_factor_of_load_case_column(column);
    return factor ? QString::fromLatin1(factor->key) : QString::number(column);
}

void addRow(LCM_TabInterface& tab, const QTableWidgetItem& row, const QString& rowName, LCM_ErrorList errors,
            std::vector<LCM_ShownFinding>& findings)
{
    const MRL_H_TableWidget& table = *tab.tableWidget();
    if (errors.empty()) {
        errors.emplace(LC_COL_NUMBER,
                       LCM_Extras::tr("The reason is gone. \"Check again\" (F5) judges the row anew."));
    }
    for (const auto& [column, reason] : errors) {
        const int position = table.getColumnNumber(column);
        const bool isSeen = position >= 0 && !table.isColumnHidden(position);
        const QString heading = headingOf(table, column);
        const QString where = isSeen ? heading : LCM_Extras::tr("%1 (not shown)").arg(heading);
        findings.push_back({&tab, &row, column, LCM_Extras::tr("%1, %2: %3").arg(rowName, where, reason)});
    }
}

template <class Tab, class NameOf>
void addTab(Tab* tab, NameOf nameOf, std::vector<LCM_ShownFinding>& findings)
{
    if (!tab) {
        return;
    }
    const MRL_H_TableWidget& table = *tab->tableWidget();
    for (int row = 0; row < table.rowCount(); ++row) {
        const QTableWidgetItem* cell = table.itemOnColId(row, LC_COL_NUMBER);
        if (cell && !cell->data(ROLE_ROW_VALID).toBool()) {
            addRow(*tab, *cell, nameOf(cell->text().trimmed()), tab->errorsOf(row), findings);
        }
    }
}

} // namespace

std::vector<LCM_ShownFinding> lcm_shown_findings(LCM_ActionsWidget* actions, LCM_LoadcaseWidget* loadCases)
{
    std::vector<LCM_ShownFinding> findings;
    addTab(
        actions, [](const QString& name) { return LCM_Extras::tr("Action %1").arg(name); }, findings);
    addTab(
        loadCases, [](const QString& number) { return LCM_Extras::tr("Load case %1").arg(number); },
        findings);
    return findings;
}
