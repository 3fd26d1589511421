#include "manager/row_reader.h"

#include "actions/actions_widget.h"
#include "history/history.h"
#include "host/mrl_table.h"
#include "lcdata/values/gama.h"
#include "loadcases/loadcase_widget.h"
#include "model/working_model.h"

namespace {

LCM_RowReader* openReader = nullptr; ///< of the dialog in front
std::set<int> editedLoadCases;
std::set<int> editedActions;

std::size_t rowCountOf(const LCM_TabInterface* tab)
{
    return tab ? static_cast<std::size_t>(tab->tableWidget()->rowCount()) : 0;
}

} // namespace

std::int64_t LCM_RowReader::lastState = 0;

LCM_RowReader::LCM_RowReader(const LCM_HistoryTabs& tabs) : m_tabs(tabs), m_outer(openReader)
{
    openReader = this;
}

LCM_RowReader::~LCM_RowReader() { openReader = m_outer; }

int LCM_RowReader::read(MRL_LC_OpenRows& rows, int count) const
{
    if (m_state == 0) {
        return MRL_LC_ROWS_NONE;
    }
    if (rows.state != m_state) {
        rows = {};
        rows.state = m_state;
        rows.hasActions = m_tabs.actions != nullptr;
        rows.hasLoadCases = m_tabs.loadCases != nullptr;
    }
    const std::size_t all = rowCountOf(m_tabs.actions) + rowCountOf(m_tabs.loadCases);
    for (int read = 0; read < count && rows.next < all; ++read) {
        readOne(rows, rows.next);
        ++rows.next;
    }
    return rows.next < all ? MRL_LC_ROWS_MORE : MRL_LC_ROWS_ALL;
}

/// @param row counted through both tables, the actions first
void LCM_RowReader::readOne(MRL_LC_OpenRows& rows, std::size_t row) const
{
    const std::size_t actionRows = rowCountOf(m_tabs.actions);
    if (row < actionRows) {
        tagCDB_LC_ACT record{};
        const int code = m_tabs.actions->readRow(static_cast<int>(row), record);
        record.gama = lcm_gama_to_store(record.gama);
        rows.actions.emplace_back(code, record);
        return;
    }
    LCM_LoadcaseEntry entry;
    m_tabs.loadCases->readRow(static_cast<int>(row - actionRows), entry);
    rows.loadCases.emplace_back(entry.number, entry.record);
}

void LCM_RowReader::noteAcceptance(const LCM_History& history) const
{
    editedActions.clear();
    editedLoadCases.clear();
    for (const int row : history.changedActionRows()) {
        tagCDB_LC_ACT record{};
        editedActions.insert(m_tabs.actions->readRow(row, record));
    }
    for (const int row : history.changedLoadCaseRows()) {
        LCM_LoadcaseEntry entry;
        m_tabs.loadCases->readRow(row, entry);
        editedLoadCases.insert(entry.number);
    }
}

int mrl_loadcase_manager_rows(MRL_LC_OpenRows& rows, int count)
{
    return openReader ? openReader->read(rows, count) : MRL_LC_ROWS_NONE;
}

void mrl_loadcase_manager_edited(std::set<int>& loadCases, std::set<int>& actions)
{
    loadCases = editedLoadCases;
    actions = editedActions;
}
