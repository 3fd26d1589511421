#pragma once

#include <vector>

#include "host/mrl_table.h"

namespace mrl::table {

class Journal;

/// By which column a table is sorted, and which of its rows may stand wrong.
///
/// A few changed rows are moved one by one, each for one shift of the model's cells; more are sorted at once.
class RowOrder
{
  public:
    explicit RowOrder(QTableWidget& table) : m_table(table) {}

    /// The column that the table is, or was last, sorted by; -1 for none.
    int column() const { return m_column; }
    /// True while the table keeps itself sorted.
    bool isOn() const { return m_on; }
    void setOn(bool on) { m_on = on; }

    /// From now on rows stand in this order; those that stand wrong are to be moved by sort().
    void setOrder(int column, Qt::SortOrder order);
    /// Moves the rows that may stand wrong, whether the table keeps itself sorted or not.
    void sort();

    /// The value of a cell of the sorted column is another one.
    void noteUnsorted(MRL_H_TwItem& cell);
    void noteAllUnsorted();
    /// Who is told of rows that move; null for nobody.
    void setJournal(Journal* journal) { m_journal = journal; }
    /// A cell that was noted ends.
    void forget(const MRL_H_TwItem& cell);

  private:
    /// A row that may stand wrong.
    struct Stray
    {
        int row;
        QTableWidgetItem* cell;
        int place; ///< how many of the rows that stand right come before it
    };

    void clearUnsorted();
    void sortAll();
    void sortFew();
    std::vector<Stray> takeStrays();
    bool isBefore(const QTableWidgetItem& a, const QTableWidgetItem& b) const;
    bool findPlace(Stray& stray, const std::vector<Stray>& strays) const;
    void moveStrays(std::vector<Stray>& strays);

    QTableWidget& m_table;
    Journal* m_journal = nullptr;
    bool m_on = false;
    int m_column = -1;
    Qt::SortOrder m_order = Qt::AscendingOrder;
    bool m_allUnsorted = true;
    std::vector<MRL_H_TwItem*> m_unsorted; ///< cells of the sorted column, a few; the others are in order
};

} // namespace mrl::table
