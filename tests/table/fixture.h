#pragma once

/// A table of each kind of column: 100 a name that is disabled, 101 a title, 102 a choice, 103 a factor, 104
/// a factor from 0 to 9, 105 a whole number.

#include <gmock/gmock.h>

#include <QHeaderView>
#include <QSignalSpy>
#include <QtTest>

#include "host/mrl_table.h"

namespace tabletest {

enum Column : int { Name, Title, Choice, Factor, Bounded, Whole, ColumnCount };
enum Id : int { NameId = 100, TitleId, ChoiceId, FactorId, BoundedId, WholeId };

inline StructLineEdit description(int format, int precision)
{
    StructLineEdit description = MRL_H_TwHeaderLineEditItem::getDefaultStrcLe(format);
    description.precision = precision;
    return description;
}

inline StructLineEdit bounded(double lowest, double highest)
{
    StructLineEdit limits = description(-3, 2);
    limits.firstBound = lowest;
    limits.secondBound = highest;
    return limits;
}

inline std::list<ComboList> choices()
{
    return {{"None", 0, -99999}, {"Permanent", 71, -99999}, {"Variable", 81, -99999}};
}

inline void addColumns(MRL_H_TableWidget& table)
{
    const auto line = [&table](int position, int id, const StructLineEdit& d, const char* caption) {
        auto* header = new MRL_H_TwHeaderLineEditItem(id, d, caption, caption, true, true, Qt::AlignLeft);
        table.setHorizontalHeaderItem(position, header);
        return header;
    };
    line(Name, NameId, description(-15, -1), "Name")->setColumnEnabled(false);
    line(Title, TitleId, description(-15, -1), "Title");
    table.setHorizontalHeaderItem(
        Choice, new MRL_H_TwHeaderComboBoxItem(ChoiceId, choices(), "Choice", "Choice", true, Qt::AlignLeft));
    line(Factor, FactorId, description(-3, 2), "Factor");
    line(Bounded, BoundedId, bounded(0.0, 9.0), "Bounded");
    line(Whole, WholeId, description(0, -1), "Whole");
}

/// Counts what a table reports, as the pages of the managers see it.
struct Reports
{
    explicit Reports(QTableWidget& table) : m_table(table)
    {
        connection = QObject::connect(&table, &QTableWidget::cellChanged, [this](int row, int column) {
            cells.emplace_back(row, column);
            QSet<int> selected;
            for (const QTableWidgetSelectionRange& range : m_table.selectedRanges()) {
                for (int r = range.topRow(); r <= range.bottomRow(); ++r) {
                    selected.insert(r);
                }
            }
            judgedRows += selected.size();
            judged.push_back(selected);
        });
    }
    ~Reports() { QObject::disconnect(connection); }

    std::vector<std::pair<int, int>> cells;
    std::vector<QSet<int>> judged; ///< the selected rows at each report
    int judgedRows = 0;
    QMetaObject::Connection connection;

  private:
    QTableWidget& m_table;
};

class Table : public testing::Test
{
  protected:
    Table() : table(0, ColumnCount, nullptr, "table under test")
    {
        addColumns(table);
        table.resize(640, 400);
    }

    void addRows(int count) { table.appendNewRows(count, MRL_H_TableWidget::CreateCells); }
    void show()
    {
        table.show();
        table.activateWindow();
        table.setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&table));
    }

    MRL_H_TwSimpleLineEditItem& line(int row, int column)
    {
        return *MRL_H_TwSimpleLineEditItem::fromItem(table.item(row, column));
    }
    MRL_H_TwSimpleComboBoxItem& combo(int row)
    {
        return *MRL_H_TwSimpleComboBoxItem::fromItem(table.item(row, Choice));
    }
    MRL_H_TwItem& cell(int row, int column) { return *MRL_H_TwItem::fromItem(table.item(row, column)); }
    QString text(int row, int column) { return table.item(row, column)->text(); }
    QStringList texts(int column)
    {
        QStringList all;
        for (int row = 0; row < table.rowCount(); ++row) {
            all.append(text(row, column));
        }
        return all;
    }
    void fill(int column, const QStringList& values)
    {
        const MRL_QT_SignalBlocker quiet(&table);
        const MRL_QT_SortingBlocker unsorted(&table);
        for (int row = 0; row < values.size(); ++row) {
            table.item(row, column)->setText(values.at(row));
        }
    }

    MRL_H_TableWidget table;
};

} // namespace tabletest
