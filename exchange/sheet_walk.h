#pragma once

/// A sheet of a project row by row.

#include <string_view>

#include "exchange/sheet.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"

namespace mrl::exchange {

/// Use: `SheetWalk walk(db, Sheet::LoadCases); while (walk.next()) write(walk.cells());` Load cases of other modules
/// are left out.
class SheetWalk
{
  public:
    SheetWalk(int db, Sheet sheet);

    bool next();
    /// The texts of all columns of the row that the walk stands on.
    const Cells& cells() const { return m_cells; }
    /// The number of the load case or the code of the action.
    int id() const { return m_id; }
    /// The record of the row: a tagCDB_LC_ACT or a tagCDB_LC_CTRL.
    std::string_view record() const { return m_record; }

  private:
    bool nextAction();
    bool nextLoadCase();

    Sheet m_sheet;
    std::vector<LCM_StoredAction> m_actions;
    std::size_t m_at = 0; ///< the action behind the one that the walk stands on
    LCM_LoadCaseWalk m_loadCases;
    Cells m_cells;
    int m_id = 0;
    std::string_view m_record;
};

/// The names of all columns.
Cells headingsOf(Sheet sheet);

} // namespace mrl::exchange
