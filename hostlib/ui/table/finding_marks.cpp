#include "hostlib/ui/table/finding_marks.h"

#include <algorithm>
#include <cmath>

#include "hostlib/ui/table/cell_access.h"

namespace mrl::table {

namespace {

/// WCAG 2.1, success criterion 1.4.3: of text.
constexpr double LEAST_CONTRAST = 4.5;

/// WCAG 2.1, definition of relative luminance.
double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// The first colour on the way to an end of lightness that has enough contrast; the end where none has.
QColor towards(double end, const QColor& background, const QColor& colour)
{
    constexpr int STEPS = 50;
    QColor shade = colour.toHsl();
    QColor painted; // in the eight bits of a channel that reach the screen
    for (int step = 0; step <= STEPS; ++step) {
        const double part = static_cast<double>(step) / STEPS;
        const double lightness = colour.lightnessF() + (end - colour.lightnessF()) * part;
        shade.setHslF(std::max(0.0, colour.hslHueF()), colour.hslSaturationF(),
                      std::clamp(lightness, 0.0, 1.0));
        painted = QColor(shade.rgb());
        if (contrast(painted, background) >= LEAST_CONTRAST) {
            break;
        }
    }
    return painted;
}

} // namespace

void FindingMarks::set(int columnPosition, int role)
{
    m_column = columnPosition;
    m_role = role;
}

bool FindingMarks::isInvalid(int row) const
{
    const QTableWidgetItem* item = areOn() ? m_table.item(row, m_column) : nullptr;
    const QVariant verdict = item != nullptr ? item->data(m_role) : QVariant();
    return verdict.isValid() && !verdict.toBool();
}

bool FindingMarks::isFinding(const QModelIndex& index) const
{
    const MRL_H_TwItem* cell =
        areOn() ? MRL_H_TwItem::fromItem(m_table.item(index.row(), index.column())) : nullptr;
    return cell != nullptr && (MRL_H_TwCellAccess::state(*cell) & MRL_H_TwCellAccess::TextRed) != 0 &&
           isInvalid(index.row());
}

double contrast(const QColor& a, const QColor& b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor readableOn(const QColor& background, const QColor& colour)
{
    const QColor darker = towards(0.0, background, colour);
    const QColor lighter = towards(1.0, background, colour);
    // The one that is nearer to the colour, if it can be read.
    const bool darkerIsNearer =
        colour.lightnessF() - darker.lightnessF() <= lighter.lightnessF() - colour.lightnessF();
    const QColor& first = darkerIsNearer ? darker : lighter;
    const QColor& second = darkerIsNearer ? lighter : darker;
    return contrast(first, background) >= LEAST_CONTRAST ? first : second;
}

void paintMark(QPainter& painter, const QRect& cell, const QColor& colour)
{
    const int size = std::max(6, cell.height() / 3);
    const QPoint corner = cell.topLeft();
    const QPoint mark[] = {corner, corner + QPoint(size, 0), corner + QPoint(0, size)};
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(mark, 3);
    painter.restore();
}

} // namespace mrl::table
