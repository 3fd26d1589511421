#include "exchange/sheet_walk.h"

#include "exchange/record_cells.h"

namespace mrl::exchange {

namespace {

template <class Record>
std::string_view bytesOf(const Record& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

} // namespace

SheetWalk::SheetWalk(int db, Sheet sheet)
    : m_sheet(sheet),
      m_actions(sheet == Sheet::Actions ? lcm_stored_actions(db) : std::vector<LCM_StoredAction>()),
      m_loadCases(db)
{
}

bool SheetWalk::next() { return m_sheet == Sheet::Actions ? nextAction() : nextLoadCase(); }

bool SheetWalk::nextAction()
{
    if (m_at == m_actions.size()) {
        return false;
    }
    const LCM_StoredAction& action = m_actions[m_at++];
    m_id = action.code;
    m_record = bytesOf(action.record);
    cellsOf(action.code, action.record, m_cells);
    return true;
}

bool SheetWalk::nextLoadCase()
{
    while (m_loadCases.next()) {
        const LCM_StoredLoadCase& loadCase = m_loadCases.current();
        if (loadCase.isOwn()) {
            m_id = loadCase.number;
            m_record = bytesOf(loadCase.record);
            cellsOf(loadCase.number, loadCase.record, m_cells);
            return true;
        }
    }
    return false;
}

Cells headingsOf(Sheet sheet)
{
    Cells headings;
    for (const Column& column : columnsOf(sheet)) {
        headings.emplace_back(column.name);
    }
    return headings;
}

} // namespace mrl::exchange
