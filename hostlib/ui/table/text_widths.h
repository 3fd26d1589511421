#pragma once

#include <QFontMetricsF>
#include <QString>

#include <array>

/// How wide texts are in one font, without laying them out: fitting columns asks for thousands.
///
/// A text of Latin letters, digits and signs is the sum of its characters. Kerning mostly draws pairs
/// together, so the sum is at most some pixels too wide; other texts are laid out.
class TextWidths
{
  public:
    /// @param device what the texts are painted on
    TextWidths(const QFont& font, const QPaintDevice* device);

    const QFont& font() const { return m_font; }
    /// In pixels, rounded up.
    int of(const QString& text);

  private:
    static constexpr ushort SIMPLE_CHARACTERS = 256; // Latin-1: one glyph each

    QFont m_font;
    QFontMetricsF m_metrics;
    std::array<qreal, SIMPLE_CHARACTERS> m_advances; ///< below 0: not measured yet
};
