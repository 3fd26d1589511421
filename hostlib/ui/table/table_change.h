#pragma once

#include <QPointer>

#include "hostlib/ui/table/journal.h"

namespace mrl::table {

/// See MRL_H_TableChange. Keeps one state of the cells: taking back and doing again exchange it with the cells'.
class TableChange : public MRL_H_TableChange
{
  public:
    using Cells = std::vector<std::pair<MRL_H_TwItem*, MRL_H_TwCellAccess::Kept>>;

    /// @param before, after the arrangements of the rows ahead of the change and behind it
    TableChange(MRL_H_TableWidget& table, Cells cells, std::vector<RowEvent> events, int before, int after);
    ~TableChange() override;

    void undo() override { turn(m_after, m_before, Direction::Back); }
    void redo() override { turn(m_before, m_after, Direction::Forth); }
    std::set<int> rows() const override;
    std::size_t bytes() const override;

  private:
    enum class Direction { Back, Forth };
    void turn(int from, int to, Direction direction);
    void swapCells(bool arranged);
    void turnEvent(RowEvent& event, Direction direction, bool arranged);
    void takeOut(RowEvent& event, bool arranged);
    void putBack(RowEvent& event, bool arranged);
    void tellView();

    QPointer<MRL_H_TableWidget> m_table;
    Cells m_cells;
    std::vector<RowEvent> m_events;
    int m_before;
    int m_after;
};

} // namespace mrl::table
