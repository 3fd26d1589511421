#include "report/typography.h"

#include <QFontDatabase>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace mrl::report {

namespace {

constexpr double POINTS_PER_INCH = 72;
constexpr double LEADING = 1.18;     // of the size, which is less than the font's own
constexpr ushort FIRST_WIDE = 0x180; // letters behind it are wider than an M
// Texts that are so short come again and again: dashes, factors.
constexpr int LONGEST_KNOWN = 8;
constexpr int MOST_KNOWN = 10000;
// Too small to be seen. A letter that two were joined into would not be found by who looks for a word in the PDF.
constexpr double NO_LIGATURES = 0.02;

QFont fontOf(double points, Face::Weight weight, Face::Family family)
{
    const bool isMono = family == Face::Family::Mono;
    QFont font(isMono ? QStringLiteral("DejaVu Sans Mono") : QStringLiteral("DejaVu Sans"));
    font.setStyleHint(isMono ? QFont::Monospace : QFont::SansSerif);
    font.setPixelSize(qRound(points / POINTS_PER_INCH * UNITS_PER_INCH));
    font.setBold(weight == Face::Weight::Bold);
    font.setHintingPreference(QFont::PreferNoHinting); // the same breaks of lines on paper and screen
    font.setLetterSpacing(QFont::AbsoluteSpacing, NO_LIGATURES);
    return font;
}

double widestOf(const QFontMetricsF& metrics)
{
    double widest = 0;
    for (ushort c = 0x20; c < FIRST_WIDE; ++c) {
        widest = std::max(widest, metrics.horizontalAdvance(QChar(c)));
    }
    return widest;
}

} // namespace

Face::Face(double points, Weight weight, Family family)
    : m_font(fontOf(points, weight, family)), m_metrics(m_font),
      m_lineHeight(points / POINTS_PER_INCH * UNITS_PER_INCH * LEADING)
{
}

/// Most cells are short, and need not be measured.
bool Face::surelyFits(const QString& text, double width) const
{
    if (m_widest == 0) {
        m_widest = widestOf(m_metrics);
    }
    return text.size() * m_widest <= width &&
           std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < FIRST_WIDE; });
}

bool Face::fits(const QString& text, double width) const
{
    return !text.contains(QLatin1Char('\n')) && (surelyFits(text, width) || this->width(text) <= width);
}

double Face::width(const QString& text) const
{
    if (text.size() > LONGEST_KNOWN) {
        return m_metrics.horizontalAdvance(text);
    }
    if (m_widths.size() > MOST_KNOWN) {
        m_widths.clear();
    }
    auto known = m_widths.find(text);
    if (known == m_widths.end()) {
        known = m_widths.insert(text, m_metrics.horizontalAdvance(text));
    }
    return *known;
}

QStringList Face::lines(const QString& text, double width, int most) const
{
    if (fits(text, width)) {
        return {text};
    }
    QTextLayout layout(QString(text).replace(QLatin1Char('\n'), QChar::LineSeparator), m_font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        if (lines.size() + 1 == most) {
            lines << elided(text.mid(line.textStart()).replace(QLatin1Char('\n'), QLatin1Char(' ')), width);
            break;
        }
        lines << text.mid(line.textStart(), line.textLength()).trimmed();
    }
    layout.endLayout();
    return lines;
}

bool hasFonts() { return !QFontDatabase().families().isEmpty(); }

void drawLines(QPainter& painter, const Face& face, const QStringList& lines, double x, double y)
{
    painter.setFont(face.font());
    for (const QString& line : lines) {
        if (!line.isEmpty()) {
            painter.drawText(QPointF(x, y + face.ascent()), line);
        }
        y += face.lineHeight();
    }
}

void drawLinesToTheLeftOf(QPainter& painter, const Face& face, const QStringList& lines, double x, double y,
                          double room)
{
    for (const QString& line : lines) {
        const double width = face.width(line);
        if (room > 0 && width > room) {
            painter.save();
            painter.translate(x, y);
            painter.scale(room / width, 1);
            drawLines(painter, face, {line}, -width, 0);
            painter.restore();
        } else {
            drawLines(painter, face, {line}, x - width, y);
        }
        y += face.lineHeight();
    }
}

} // namespace mrl::report
