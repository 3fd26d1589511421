#pragma once

/// Draws a table of a report row by row.

#include "report/report.h"
#include "report/typography.h"

class QPainter;

namespace mrl::report {

class TablePainter
{
  public:
    TablePainter(const Table& table, const Faces& faces);

    /// 0 for a table without a head.
    double headHeight() const { return m_headHeight; }
    /// A row has lines enough for each of its texts; at most so many that a page holds it.
    double rowHeight(const Row& row) const;
    void paintHead(QPainter& painter, double x, double y) const;
    /// @return the height of the row
    double paintRow(QPainter& painter, double x, double y, const Row& row) const;
    /// Below the last row of a page.
    void paintEnd(QPainter& painter, double x, double y) const;

  private:
    QStringList linesOf(const Row& row, std::size_t column) const;
    QStringList linesOf(const Face& face, const QString& text, std::size_t column) const;
    double room(std::size_t column) const;
    const Face& faceOf(std::size_t column) const;
    double paintCells(QPainter& painter, double x, double y, const std::vector<QStringList>& cells,
                      bool isHead) const;

    const Table& m_table;
    const Faces& m_faces;
    std::vector<double> m_lefts; ///< of the columns, and behind them the right end
    std::vector<QStringList> m_heads;
    double m_headHeight = 0;
};

} // namespace mrl::report
