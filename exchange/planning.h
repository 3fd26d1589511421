#pragma once

/// What the plans of both sheets share.

#include <map>

#include "exchange/import_plan.h"

namespace mrl::exchange {

class RowNumbering;

/// Plans the actions of a table and enters them into the state, so that load cases find them.
/// @param lines of the names that were met, over all tables of a file
void planActions(const Table& table, ProjectState& state, std::map<int, int>& lines, Plan& plan);
void planLoadCases(const Table& table, ProjectState& state, const PlanOptions& options,
                   RowNumbering& numbering, Plan& plan);

class RowCells;

void planAction(const RowCells& cells, const ProjectState& state, PlannedRow& row);
/// @param row knows its number
void planLoadCase(const RowCells& cells, const ProjectState& state, PlannedRow& row);
/// What a row writes is in the state from now on.
void enter(const PlannedRow& row, ProjectState& state);

/// Enters the number that a row states, or refuses it: none of a load case, or one of another module's.
void takeStatedNumber(const std::string& text, const ProjectState& state, PlannedRow& row);

void refuse(PlannedRow& row, const char* rule, const Message& message);
void refuse(PlannedRow& row, const LCM_Findings& findings);

/// The cells of a row by column.
class RowCells
{
  public:
    explicit RowCells(const TableHead& head);

    /// The row that the cells are of from now on.
    void moveTo(const Row& row) { m_row = &row; }
    const Row& row() const { return *m_row; }
    /// @param column its place among columnsOf(). @return null for a column that the table lacks
    const std::string* cell(std::size_t column) const
    {
        return m_places[column] < 0 ? nullptr : &m_row->cells[static_cast<std::size_t>(m_places[column])];
    }
    /// The cell without blanks around it; empty for a column that the table lacks.
    std::string text(std::size_t column) const;

  private:
    std::vector<int> m_places; ///< among the cells of the row, by column; -1 for none
    const Row* m_row = nullptr;
};

/// What the plans of a row of either sheet share.
class RowPlan
{
  public:
    /// All outlive this. @param row receives what comes of it
    RowPlan(const RowCells& cells, const ProjectState& state, PlannedRow& row)
        : m_cells(cells), m_state(state), m_row(row)
    {
    }

  protected:
    /// Enters the title of a cell, unless the field holds it already.
    void changeTitle(std::size_t column, std::uint32_t (&field)[LC_TITLE_WORDS]);
    bool isWritten() const { return m_row.outcome == Outcome::Added || m_row.outcome == Outcome::Changed; }

    const RowCells& m_cells;
    const ProjectState& m_state;
    PlannedRow& m_row;
};

/// Packs a title as far as a record can hold it; what is cut becomes a note.
void packTitle(const std::string& title, std::uint32_t (&field)[LC_TITLE_WORDS], PlannedRow& row);

/// The number of a cell. @return nothing for an empty cell, and for one that is refused
std::optional<float> numberIn(const std::string& cell, const Column& column, PlannedRow& row);

/// Added, changed or unchanged, unless the row is refused. @param isEqual whether the record stays as it is
void conclude(PlannedRow& row, bool isEqual);

} // namespace mrl::exchange
