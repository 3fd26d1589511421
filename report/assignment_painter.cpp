#include "report/assignment_painter.h"

#include <algorithm>

namespace mrl::report {

namespace {

constexpr double NAME_WIDTH = 1300;
constexpr double TITLE_LEFT = 1500;
constexpr double TITLE_WIDTH = 4100;
constexpr double BAR_LEFT = 5800;
constexpr double BAR_RIGHT = 15700;
constexpr double BAR_WIDTH = BAR_RIGHT - BAR_LEFT;
constexpr double BAR_HEIGHT = 400;
constexpr double GAP = 90;
constexpr double PADDING = 110;
constexpr double TICK = 90;
constexpr double CORNER = 60;
constexpr double SWATCH = 260;
constexpr std::size_t PLACES = 600; // of load cases on a bar that can be told apart
constexpr std::size_t TICKS = 6;
const QColor EMPTY_BAR(0xf0, 0xf0, 0xf0);

} // namespace

double AssignmentPainter::headHeight() const
{
    return m_faces.head.lineHeight() + m_faces.tiny.lineHeight() + TICK + 2 * GAP;
}

/// Broken between two ranges, and never within one.
QStringList AssignmentPainter::ranges(const AssignmentRow& row) const
{
    static const QString COMMA = QStringLiteral(", ");
    QStringList lines;
    for (const QString& range : row.ranges.split(COMMA, Qt::SkipEmptyParts)) {
        if (!lines.isEmpty() && m_faces.tiny.width(lines.last() + COMMA + range) <= BAR_WIDTH) {
            lines.last() += COMMA + range;
        } else {
            if (!lines.isEmpty()) {
                lines.last() += QLatin1Char(',');
            }
            lines << range;
        }
    }
    return lines;
}

double AssignmentPainter::rowHeight(std::size_t row) const
{
    const auto lines = ranges(m_picture.rows[row]).size();
    return 2 * PADDING + BAR_HEIGHT + (lines > 0 ? GAP / 2 + lines * m_faces.tiny.lineHeight() : 0);
}

double AssignmentPainter::legendHeight() const { return PADDING * 2 + m_faces.tiny.lineHeight() + GAP; }

/// The left edge of a load case on a bar.
double AssignmentPainter::placeOf(std::size_t position) const
{
    return static_cast<double>(position) / static_cast<double>(m_picture.numbers.size()) * BAR_WIDTH;
}

void AssignmentPainter::paintHead(Canvas& canvas, double x, double y) const
{
    canvas.text(m_faces.head, m_picture.nameHead, {x, y}, INK);
    canvas.text(m_faces.head, m_picture.loadCasesHead, {x + BAR_LEFT, y}, INK);
    canvas.text(m_faces.head, m_picture.countHead,
                {x + BODY_WIDTH - m_faces.head.width(m_picture.countHead), y}, INK);
    y += m_faces.head.lineHeight() + GAP;
    const std::size_t count = m_picture.numbers.size();
    const std::size_t ticks = std::min(TICKS, count);
    for (std::size_t i = 0; i < ticks; ++i) {
        const std::size_t position = ticks == 1 ? 0 : i * (count - 1) / (ticks - 1);
        const QString number = QString::number(m_picture.numbers[position]);
        const double middle = BAR_LEFT + (placeOf(position) + placeOf(position + 1)) / 2;
        const double width = m_faces.tiny.width(number);
        const double left = std::clamp(middle - width / 2, BAR_LEFT, std::max(BAR_LEFT, BAR_RIGHT - width));
        canvas.text(m_faces.tiny, number, {x + left, y}, PALE_INK);
        const double tick = y + m_faces.tiny.lineHeight() + GAP / 2;
        canvas.line({x + middle, tick}, {x + middle, tick + TICK}, PALE_INK, 12);
    }
}

/// The numbers within the bar, where all of them have room.
void AssignmentPainter::paintNumbers(Canvas& canvas, double x, double y, const AssignmentRow& row,
                                     double width) const
{
    const QString longest = QString::number(m_picture.numbers.back());
    if (m_faces.tiny.width(longest) + GAP > width) {
        return;
    }
    for (const Run& run : row.runs) {
        for (std::size_t i = run.first; i <= run.last; ++i) {
            const QString number = QString::number(m_picture.numbers[i]);
            canvas.text(m_faces.tiny, number,
                        {x + placeOf(i) + (width - m_faces.tiny.width(number)) / 2,
                         y + (BAR_HEIGHT - m_faces.tiny.lineHeight()) / 2},
                        Qt::white);
        }
    }
}

void AssignmentPainter::paintBar(Canvas& canvas, double x, double y, const AssignmentRow& row) const
{
    canvas.rectangle({x, y, BAR_WIDTH, BAR_HEIGHT}, EMPTY_BAR);
    const std::size_t count = m_picture.numbers.size();
    const double scale = BAR_WIDTH / static_cast<double>(std::min(PLACES, count));
    for (const Run& run : thinned(row.runs, count, PLACES)) {
        const double width = static_cast<double>(run.last - run.first + 1) * scale;
        canvas.rectangle({x + static_cast<double>(run.first) * scale, y, width, BAR_HEIGHT},
                         QColor(row.colour));
    }
    const double width = placeOf(1);
    if (width > 3 * GAP) { // white lines between load cases that are wide enough to be seen one by one
        for (std::size_t i = 1; i < count; ++i) {
            canvas.line({x + placeOf(i), y}, {x + placeOf(i), y + BAR_HEIGHT}, Qt::white, 20);
        }
        paintNumbers(canvas, x, y, row, width);
    }
}

void AssignmentPainter::paintRow(Canvas& canvas, double x, double y, std::size_t number) const
{
    const AssignmentRow& row = m_picture.rows[number];
    canvas.line({x, y}, {x + BODY_WIDTH, y}, PALE_RULE, 10);
    y += PADDING;
    canvas.rectangle({x, y, NAME_WIDTH, BAR_HEIGHT}, QColor(row.colour), CORNER);
    const QString name = m_faces.head.elided(row.name, NAME_WIDTH - GAP);
    const double top = y + (BAR_HEIGHT - m_faces.head.lineHeight()) / 2;
    canvas.text(m_faces.head, name, {x + (NAME_WIDTH - m_faces.head.width(name)) / 2, top}, Qt::white);
    canvas.text(m_faces.small, m_faces.small.elided(row.title, TITLE_WIDTH), {x + TITLE_LEFT, top}, INK);
    canvas.text(m_faces.cell, row.count, {x + BODY_WIDTH - m_faces.cell.width(row.count), top}, INK);
    paintBar(canvas, x + BAR_LEFT, y, row);
    y += BAR_HEIGHT + GAP / 2;
    for (const QString& line : ranges(row)) {
        canvas.text(m_faces.tiny, line, {x + BAR_LEFT, y}, PALE_INK);
        y += m_faces.tiny.lineHeight();
    }
}

void AssignmentPainter::paintLegend(Canvas& canvas, double x, double y) const
{
    canvas.line({x, y}, {x + BODY_WIDTH, y}, PALE_RULE, 10);
    y += PADDING + GAP;
    for (const auto& [colour, meaning] : m_picture.legend) {
        canvas.rectangle({x, y, SWATCH, m_faces.tiny.lineHeight() * 0.8}, QColor(colour));
        canvas.text(m_faces.tiny, meaning, {x + SWATCH + GAP, y - GAP / 4}, PALE_INK);
        x += SWATCH + GAP + m_faces.tiny.width(meaning) + 5 * GAP;
    }
}

QByteArray assignmentSvg(const Assignment& picture, const Faces& faces)
{
    const AssignmentPainter rows(picture, faces);
    SvgCanvas canvas;
    rows.paintHead(canvas, 0, 0);
    double y = rows.headHeight();
    for (std::size_t i = 0; i < picture.rows.size(); ++i) {
        rows.paintRow(canvas, 0, y, i);
        y += rows.rowHeight(i);
    }
    rows.paintLegend(canvas, 0, y);
    return canvas.picture(BODY_WIDTH, y + rows.legendHeight(), picture.loadCasesHead);
}

} // namespace mrl::report
