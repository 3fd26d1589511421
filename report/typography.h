#pragma once

/// Sizes and fonts of a printed report. All lengths are hundredths of a millimetre, on whatever is painted.

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QString>
#include <QStringList>

class QPainter;

namespace mrl::report {

constexpr int UNITS_PER_MM = 100;
constexpr int UNITS_PER_INCH = 2540;

/// A4, with room to file the sheets.
constexpr int PAGE_WIDTH = 21000;
constexpr int PAGE_HEIGHT = 29700;
constexpr int LEFT = 2500;
constexpr int RIGHT = 1500;
constexpr int TOP = 2400;    ///< of the body; the head stands above it
constexpr int BOTTOM = 2300; ///< below the body; the foot stands in it
constexpr int BODY_WIDTH = PAGE_WIDTH - LEFT - RIGHT;
constexpr int BODY_HEIGHT = PAGE_HEIGHT - TOP - BOTTOM;

const QColor INK(0x1a, 0x1a, 0x1a);
const QColor PALE_INK(0x5a, 0x5a, 0x5a);
const QColor RULE(0x40, 0x40, 0x40);
const QColor PALE_RULE(0xcf, 0xcf, 0xcf);
const QColor MARK(0xff, 0xf2, 0xd6); ///< behind what deserves a look

/// A font with its metrics. Its size is in units, so that neither the screen nor the printer has a say.
class Face
{
  public:
    enum class Family { Sans, Mono };
    enum class Weight { Normal, Bold };

    /// @param points of the size
    Face(double points, Weight weight, Family family = Family::Sans);

    const QFont& font() const { return m_font; }
    double lineHeight() const { return m_lineHeight; }
    double ascent() const { return m_metrics.ascent(); }
    double width(const QString& text) const;
    /// Whether a text is one line that is no wider.
    bool fits(const QString& text, double width) const;
    /// The text without its end, where it is too wide.
    QString elided(const QString& text, double width) const
    {
        return m_metrics.elidedText(text, Qt::ElideRight, width);
    }
    /// The lines of a text, which may have line feeds. At most so many; a text that is longer ends in three dots.
    QStringList lines(const QString& text, double width, int most) const;

  private:
    bool surelyFits(const QString& text, double width) const;

    QFont m_font;
    QFontMetricsF m_metrics;
    double m_lineHeight;
    mutable double m_widest = 0;             ///< of all simple characters; 0 until somebody asks
    mutable QHash<QString, double> m_widths; ///< of short texts
};

/// The faces that a report uses. Fonts need an application.
struct Faces
{
    Face title{19, Face::Weight::Bold};
    Face heading1{12.5, Face::Weight::Bold};
    Face heading2{9.5, Face::Weight::Bold};
    Face body{8.5, Face::Weight::Normal};
    Face cell{7.5, Face::Weight::Normal};
    Face head{7.5, Face::Weight::Bold};
    Face small{7, Face::Weight::Normal};
    Face tiny{6, Face::Weight::Normal};
    Face command{8, Face::Weight::Normal, Face::Family::Mono};
    Face hash{6, Face::Weight::Normal, Face::Family::Mono};
};

/// Whether there is any font; without one all pages would be empty.
bool hasFonts();

/// Draws lines from a top edge down.
void drawLines(QPainter& painter, const Face& face, const QStringList& lines, double x, double y);
/// The same with their ends at x. @param room lines that are longer are squeezed; 0: none is
void drawLinesToTheLeftOf(QPainter& painter, const Face& face, const QStringList& lines, double x, double y,
                          double room = 0);

} // namespace mrl::report
