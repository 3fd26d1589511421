#include <QHeaderView>

#include "bench/bare_table.h"
#include "bench/figure.h"
#include "host/mrl_table.h"

namespace {

constexpr int COLUMNS = bench::bareColumns;
constexpr int FIRST_FACTOR = 3;

void addColumns(MRL_H_TableWidget& table)
{
    const auto line = [&table](int position, int format, int precision) {
        StructLineEdit description = MRL_H_TwHeaderLineEditItem::getDefaultStrcLe(format);
        description.precision = precision;
        auto* header = new MRL_H_TwHeaderLineEditItem(100 + position, description, "caption", "tip", true,
                                                      true, Qt::AlignLeft);
        table.setHorizontalHeaderItem(position, header); // the table's from here on
        return header;
    };
    line(0, 0, -1)->setColumnEnabled(false);
    line(1, -15, -1);
    table.setHorizontalHeaderItem(
        2, new MRL_H_TwHeaderComboBoxItem(102, {{"None", 0}, {"G dead load", 71}, {"Q live load", 81}},
                                          "Action", "tip", true, Qt::AlignLeft));
    for (int column = FIRST_FACTOR; column < COLUMNS; ++column) {
        line(column, -3, 2);
    }
}

void writeRow(MRL_H_TableWidget& table, int row, int number, float factor)
{
    const MRL_QT_SignalBlocker quiet(&table);
    auto* name = MRL_H_TwSimpleLineEditItem::fromItem(table.itemOnColId(row, 100));
    name->setVal(static_cast<float>(number));
    name->setData(Qt::DisplayRole, number);
    MRL_H_TwSimpleLineEditItem::fromItem(table.itemOnColId(row, 101))
        ->setText(QStringLiteral("Load case ") + QString::number(number));
    MRL_H_TwSimpleComboBoxItem::fromItem(table.itemOnColId(row, 102))
        ->setCurrentId(number % 2 == 0 ? 71 : 81);
    for (int column = FIRST_FACTOR; column < COLUMNS; ++column) {
        auto* cell = MRL_H_TwSimpleLineEditItem::fromItem(table.itemOnColId(row, 100 + column));
        cell->setData(1234001, false);
        cell->setEnabled(column < FIRST_FACTOR + 4);
        cell->setVal(factor + static_cast<float>(column));
    }
}

void judgeRow(MRL_H_TableWidget& table, int row)
{
    const MRL_QT_UpdateBlocker still(&table);
    const MRL_QT_SignalBlocker quiet(&table);
    static const QBrush black(Qt::black);
    for (int column = 0; column < COLUMNS; ++column) {
        MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(table.item(row, column));
        cell->setToolTip(QString());
        cell->setForeground(black);
    }
    table.itemOnColId(row, 100)->setData(357, true);
}

std::unique_ptr<MRL_H_TableWidget> fillTable(int rows)
{
    auto table = std::make_unique<MRL_H_TableWidget>(0, COLUMNS);
    addColumns(*table);
    table->setSortingEnabled(true);
    const MRL_QT_SortingBlocker unsorted(table.get());
    const MRL_QT_UpdateBlocker still(table.get());
    const MRL_QT_SignalBlocker quiet(table.get());
    table->appendNewRows(rows, MRL_H_TableWidget::CreateCells);
    for (int row = 0; row < rows; ++row) {
        writeRow(*table, row, row + 1, 1.35f);
        judgeRow(*table, row);
    }
    table->sortByColumn(0, Qt::AscendingOrder);
    return table;
}

/// What the figures of a table that stands have in common. The raw side is always the bare fill.
class StandingTable
{
  public:
    explicit StandingTable(int n) : table(fillTable(n)), rows(n) {}
    void prepareRaw() { m_bare.reset(); }
    void raw() { m_bare = bench::fillBareTable(rows); }

  protected:
    std::unique_ptr<MRL_H_TableWidget> table;
    int rows;

  private:
    std::unique_ptr<QTableWidget> m_bare;
};

/// A filled, coloured and sorted table.
class Fill : public StandingTable
{
  public:
    using StandingTable::StandingTable;
    void prepareOurs() { table.reset(); }
    void ours() { table = fillTable(rows); }
};
const bench::Timed<Fill> FILL("table.fill", 1.0);

/// All values read and other ones written, every row judged.
class Refill : public StandingTable
{
  public:
    using StandingTable::StandingTable;
    void ours()
    {
        m_factor = m_factor > 1.4f ? 1.35f : 1.5f;
        const MRL_QT_SortingBlocker unsorted(table.get());
        const MRL_QT_UpdateBlocker still(table.get());
        const MRL_QT_SignalBlocker quiet(table.get());
        double sum = 0.0;
        for (int row = 0; row < rows; ++row) {
            for (int column = FIRST_FACTOR; column < COLUMNS; ++column) {
                sum += MRL_H_TwSimpleLineEditItem::fromItem(table->itemOnColId(row, 100 + column))
                           ->getVal(nullptr);
            }
            writeRow(*table, row, row + 1, m_factor);
            judgeRow(*table, row);
        }
        bench::keep(sum);
    }

  private:
    float m_factor = 1.35f;
};
const bench::Timed<Refill> REFILL("table.refill", 0.5);

/// The order of all rows turned round.
class Sort : public StandingTable
{
  public:
    using StandingTable::StandingTable;
    void ours()
    {
        m_order = m_order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
        table->sortByColumn(0, m_order);
    }

  private:
    Qt::SortOrder m_order = Qt::AscendingOrder;
};
const bench::Timed<Sort> SORT("table.sort", 0.6);

/// One row appended to a sorted table, selected, and moved to its place in the middle.
class AppendSorted : public StandingTable
{
  public:
    explicit AppendSorted(int n) : StandingTable(n)
    {
        // as in the managers' windows: the view counts its rows, and they all are of one height
        table->verticalHeader()->setDefaultSectionSize(22);
        table->resize(800, 600);
        table->show();
    }
    void prepareOurs() { table->removeRows({m_added}); }
    void ours()
    {
        MRL_QT_SortingBlocker unsorted(table.get());
        table->appendNewRows(1, MRL_H_TableWidget::CreateCells);
        const int row = table->rowCount() - 1;
        writeRow(*table, row, rows / 2, 1.35f);
        judgeRow(*table, row);
        table->clearSelection();
        table->setRangeSelected({row, 1, row, 1}, true);
        unsorted.unblock();
        m_added = rows / 2;
        if (table->item(m_added, 0)->text().toInt() != rows / 2) {
            std::abort();
        }
    }

  private:
    int m_added = -1;
};
const bench::Timed<AppendSorted> APPEND_SORTED("table.append_sorted", 0.05);

/// Every second row removed.
class RemoveHalf : public StandingTable
{
  public:
    explicit RemoveHalf(int n) : StandingTable(n)
    {
        for (int row = 0; row < n; row += 2) {
            m_every.insert(m_every.end(), row);
        }
    }
    void prepareOurs() { table = fillTable(rows); }
    void ours() { table->removeRows(m_every); }

  private:
    std::set<int> m_every;
};
const bench::Timed<RemoveHalf> REMOVE_HALF("table.remove_half", 0.8);

/// All columns fitted to their contents, of which a thousand rows at most are asked.
class FitColumns : public StandingTable
{
  public:
    using StandingTable::StandingTable;
    void ours() { table->resizeColumnsToContents(); }
};
const bench::Timed<FitColumns> FIT_COLUMNS("table.fit_columns", 0.2, {100'000});

/// Every second row filtered out by the texts of its cells. The raw side is a walk over all texts.
class Filter
{
  public:
    explicit Filter(int n) : m_table(fillTable(n)), m_rows(n)
    {
        m_table->resize(800, 600);
        m_table->show();
    }
    void prepareOurs() { m_table->setRowFilter(nullptr); }
    void ours()
    {
        m_table->setRowFilter([this](int row) { return m_rows < lengthOfTexts(row) || row % 2 == 0; });
        if (m_table->hiddenRowCount() != m_rows / 2) {
            std::abort();
        }
    }
    void raw()
    {
        int sum = 0;
        for (int row = 0; row < m_rows; ++row) {
            sum += lengthOfTexts(row);
        }
        bench::keep(static_cast<double>(sum));
    }

  private:
    int lengthOfTexts(int row) const
    {
        int length = 0;
        for (int column = 0; column < COLUMNS; ++column) {
            length += m_table->item(row, column)->text().size();
        }
        return length;
    }

    std::unique_ptr<MRL_H_TableWidget> m_table;
    int m_rows;
};
const bench::Timed<Filter> FILTER("table.filter", 1.5, {100'000});

/// What the filled table keeps, beside what the bare one keeps.
class Memory
{
  public:
    explicit Memory(int n) : m_rows(n) {}
    double ours()
    {
        m_ours.reset();
        return bench::bytesKept([this] { m_ours = fillTable(m_rows); });
    }
    double raw()
    {
        m_raw.reset();
        return bench::bytesKept([this] { m_raw = bench::fillBareTable(m_rows); });
    }

  private:
    int m_rows;
    std::unique_ptr<MRL_H_TableWidget> m_ours;
    std::unique_ptr<QTableWidget> m_raw;
};
const bench::Measured<Memory> MEMORY("table.fill_memory", 0.8);

} // namespace
