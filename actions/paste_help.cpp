#include "actions/paste_help.h"

#include "rules/action_columns.h"

LCM_PasteHelp::LCM_PasteHelp(LCM_TabInterface& tab, Report report)
    : m_tab(tab), m_table(tab.tableWidget()), m_report(std::move(report))
{
    if (mrl_h_set_paste_helper != nullptr) {
        mrl_h_set_paste_helper(*m_table, this);
    }
}

LCM_PasteHelp::~LCM_PasteHelp()
{
    if (m_table != nullptr && mrl_h_set_paste_helper != nullptr) {
        mrl_h_set_paste_helper(*m_table, nullptr);
    }
}

void LCM_PasteHelp::begin()
{
    m_command.emplace(m_tab.commandLog(), LCM_Command::Paste);
    m_noSorting.emplace(m_table.data());
}

QString LCM_PasteHelp::rowName(int row) const
{
    const QTableWidgetItem* cell = m_table->itemOnColId(row, ACT_COL_ACTION);
    return cell ? cell->text() : QString();
}

QString LCM_PasteHelp::cellName(const MRL_H_RefusedValue& value) const
{
    const QTableWidgetItem* heading = m_table->horizontalHeaderItemOnColId(value.column);
    const QString column = heading ? heading->text() : QString();
    const QString row = value.row < 0 ? QString() : rowName(value.row);
    return row.isEmpty() || column.isEmpty() ? row + column : QStringLiteral("%1, %2").arg(row, column);
}

void LCM_PasteHelp::end(int values, const std::vector<MRL_H_RefusedValue>& refused)
{
    std::vector<LCM_UntakenValue> untaken;
    untaken.reserve(refused.size());
    for (const MRL_H_RefusedValue& value : refused) {
        untaken.push_back({cellName(value), value.text, value.reason});
    }
    m_noSorting.reset();
    m_command.reset();
    m_report(values, untaken);
}
