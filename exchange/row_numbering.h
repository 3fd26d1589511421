#pragma once

/// Which load case a row of a table speaks of.

#include <unordered_map>

#include "exchange/planning.h"
#include "rules/load_case_numbers.h"

namespace mrl::exchange {

/// Finds the number of each row of the tables of a file: the one that it states, that of the load case with its title, or the
/// next free one.
class RowNumbering
{
  public:
    /// @param state has to outlive this
    RowNumbering(const std::vector<Table>& tables, const ProjectState& state, Match match);

    /// Enters number and name of a row, or refuses it.
    void identify(const RowCells& cells, PlannedRow& row);

  private:
    void identifyByNumber(const RowCells& cells, PlannedRow& row);
    void identifyByTitle(const RowCells& cells, PlannedRow& row);
    void takeFreeNumber(PlannedRow& row);
    void refuseDoubled(PlannedRow& row);

    const ProjectState& m_state;
    Match m_match;
    bool m_picksNumbers;
    std::set<int> m_used; ///< numbers of the project and those that the table states
    LCM_FreeNumbers m_free;
    std::unordered_map<std::string, int> m_titles;     ///< of the project; 0 for one that stands twice
    std::unordered_map<std::string, int> m_titleLines; ///< of the table
    std::unordered_map<int, int> m_lines;              ///< of the table, by number
};

} // namespace mrl::exchange
