#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "host/mrl_table_journal.h"
#include "hostlib/ui/table/kept_cell.h"

namespace mrl::table {

/// Cells that stand in no table, row by row, with the columns of their table.
using HeldCells = std::vector<std::unique_ptr<QTableWidgetItem>>;

/// One thing that happened to the rows of a table.
struct RowEvent
{
    enum class Kind { Came, Went, Permuted, Moved };

    Kind kind;
    std::vector<int> rows; ///< that came or went; the order of a permutation; from and to of a move
    /// A cell of each row that came or went, to find the row by where it stands elsewhere now.
    std::vector<QTableWidgetItem*> anchors;
    HeldCells held; ///< while the rows are out of the table
};

/// Records the changes of a table, from its first use on. Cells are noted before their first change, row events
/// as they happen.
class Journal : public MRL_H_TableJournal
{
  public:
    explicit Journal(MRL_H_TableWidget& table) : m_table(table) {}

    void setListener(MRL_H_TableJournalListener* listener) override { m_listener = listener; }
    MRL_H_TableJournalListener* listener() const { return m_listener; }
    std::unique_ptr<MRL_H_TableChange> take() override;

    /// A cell is about to change.
    void note(MRL_H_TwItem& cell);
    /// A cell is new: what it was before can't be asked for.
    void noteNew(MRL_H_TwItem& cell) const { MRL_H_TwCellAccess::noted(cell) = m_take; }
    void noteCame(int first, int count);
    /// @param held the cells of the rows, which the journal takes over
    void noteWent(std::vector<int> rows, HeldCells held);
    void notePermuted(const std::vector<int>& order);
    void noteMoved(int from, int to);
    /// Rows or cells came or went on a way that the journal doesn't know.
    void noteBroken();

    /// Which arrangement of rows the table has; each has a number of its own.
    int arrangement() const { return m_arrangement; }
    void setArrangement(int arrangement) { m_arrangement = arrangement; }
    int newArrangement() { return ++m_lastArrangement; }

    /// While it lives the journal records nothing: the table is being changed by it.
    class Silence;

  private:
    void beginNextTake();

    MRL_H_TableWidget& m_table;
    MRL_H_TableJournalListener* m_listener = nullptr;
    std::vector<std::pair<MRL_H_TwItem*, MRL_H_TwCellAccess::Kept>> m_cells;
    std::vector<RowEvent> m_events;
    quint16 m_take = 1; ///< cells that bear this number are noted
    int m_arrangement = 0;
    int m_lastArrangement = 0;
    int m_silent = 0;
};

class Journal::Silence
{
  public:
    explicit Silence(Journal& journal) : m_journal(journal) { ++m_journal.m_silent; }
    ~Silence() { --m_journal.m_silent; }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

  private:
    Journal& m_journal;
};

} // namespace mrl::table
