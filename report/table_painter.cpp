#include "report/table_painter.h"

#include <QPainter>

#include <algorithm>

namespace mrl::report {

namespace {

constexpr double PADDING = 55;
constexpr double GUTTER = 170; // between two columns
constexpr int MOST_LINES = 40;
constexpr double NARROWEST = 0.55; // of the letters of a number that is squeezed into its column
constexpr double SHORTEST_SHARE = 1500;

/// The left edges of the columns.
std::vector<double> leftsOf(const std::vector<Column>& columns)
{
    double told = 0;
    int sharing = 0;
    for (const Column& column : columns) {
        told += column.width * UNITS_PER_MM;
        sharing += column.width == 0 ? 1 : 0;
    }
    const double rest = BODY_WIDTH - told;
    const double share = sharing == 0 ? 0 : std::max(SHORTEST_SHARE, rest / sharing);
    std::vector<double> lefts{0};
    for (const Column& column : columns) {
        lefts.push_back(lefts.back() + (column.width == 0 ? share : column.width * UNITS_PER_MM));
    }
    return lefts;
}

int mostOf(const std::vector<QStringList>& cells)
{
    int most = 1;
    for (const QStringList& lines : cells) {
        most = std::max(most, static_cast<int>(lines.size()));
    }
    return most;
}

} // namespace

TablePainter::TablePainter(const Table& table, const Faces& faces)
    : m_table(table), m_faces(faces), m_lefts(leftsOf(table.columns))
{
    if (!table.hasHead) {
        return;
    }
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        m_heads.push_back(linesOf(faces.head, table.columns[i].head, i));
    }
    m_headHeight = mostOf(m_heads) * m_faces.head.lineHeight() + 3 * PADDING;
}

/// In a table without a head the first column names what the others tell.
const Face& TablePainter::faceOf(std::size_t column) const
{
    return !m_table.hasHead && column == 0 ? m_faces.head : m_faces.cell;
}

double TablePainter::room(std::size_t column) const { return m_lefts[column + 1] - m_lefts[column] - GUTTER; }

/// A number is rather squeezed than broken, which somebody might read as two.
QStringList TablePainter::linesOf(const Face& face, const QString& text, std::size_t column) const
{
    if (face.fits(text, room(column))) {
        return {text};
    }
    const bool isNumber = m_table.columns[column].align == Align::Right && !text.contains(QLatin1Char(' '));
    return isNumber && face.width(text) * NARROWEST <= room(column)
               ? QStringList(text)
               : face.lines(text, room(column), MOST_LINES);
}

QStringList TablePainter::linesOf(const Row& row, std::size_t column) const
{
    return linesOf(faceOf(column), row.cells[column], column);
}

double TablePainter::rowHeight(const Row& row) const
{
    int most = 1;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        most = std::max(most, static_cast<int>(linesOf(row, i).size()));
    }
    return most * m_faces.cell.lineHeight() + 2 * PADDING;
}

double TablePainter::paintCells(QPainter& painter, double x, double y, const std::vector<QStringList>& cells,
                                bool isHead) const
{
    const double height =
        mostOf(cells) * (isHead ? m_faces.head : m_faces.cell).lineHeight() + (isHead ? 3 : 2) * PADDING;
    painter.setPen(INK);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const Face& face = isHead ? m_faces.head : faceOf(i);
        if (m_table.columns[i].align == Align::Right) {
            drawLinesToTheLeftOf(painter, face, cells[i], x + m_lefts[i + 1] - GUTTER / 2, y + PADDING,
                                 room(i));
        } else {
            drawLines(painter, face, cells[i], x + m_lefts[i] + GUTTER / 2, y + PADDING);
        }
    }
    return height;
}

void TablePainter::paintHead(QPainter& painter, double x, double y) const
{
    if (!m_table.hasHead) {
        return;
    }
    paintCells(painter, x, y, m_heads, true);
    painter.setPen(QPen(RULE, 22));
    const double bottom = y + m_headHeight - PADDING / 2;
    painter.drawLine(QPointF(x, bottom), QPointF(x + m_lefts.back(), bottom));
}

double TablePainter::paintRow(QPainter& painter, double x, double y, const Row& row) const
{
    std::vector<QStringList> cells;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
        cells.push_back(linesOf(row, i));
    }
    const double height = mostOf(cells) * m_faces.cell.lineHeight() + 2 * PADDING;
    if (row.isMarked) {
        painter.fillRect(QRectF(x, y, m_lefts.back(), height), MARK);
    }
    paintCells(painter, x, y, cells, false);
    painter.setPen(QPen(PALE_RULE, 10));
    painter.drawLine(QPointF(x, y + height), QPointF(x + m_lefts.back(), y + height));
    return height;
}

void TablePainter::paintEnd(QPainter& painter, double x, double y) const
{
    painter.setPen(QPen(RULE, 14));
    painter.drawLine(QPointF(x, y), QPointF(x + m_lefts.back(), y));
}

} // namespace mrl::report
