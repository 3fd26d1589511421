#pragma once

/// The raw baseline of the tables: a QTableWidget filled with as many plain text cells.

#include <QTableWidget>

#include <memory>

namespace bench {

inline constexpr int bareColumns = 14;

/// The texts that the cells of a table of load cases show.
inline std::unique_ptr<QTableWidget> fillBareTable(int rows, int columns = bareColumns)
{
    auto table = std::make_unique<QTableWidget>(rows, columns);
    for (int row = 0; row < rows; ++row) {
        table->setItem(row, 0, new QTableWidgetItem(QString::number(row + 1)));
        table->setItem(row, 1, new QTableWidgetItem(QStringLiteral("Load case ") + QString::number(row + 1)));
        for (int column = 2; column < columns; ++column) {
            table->setItem(row, column, new QTableWidgetItem(QString::number(1.35 + column, 'f', 2)));
        }
    }
    return table;
}

} // namespace bench
