#include "hostlib/ui/table/text_widths.h"

#include <cmath>

TextWidths::TextWidths(const QFont& font, const QPaintDevice* device) : m_font(font), m_metrics(font, device)
{
    m_advances.fill(-1.0);
}

int TextWidths::of(const QString& text)
{
    qreal width = 0.0;
    for (const QChar character : text) {
        if (character.unicode() >= SIMPLE_CHARACTERS) {
            return static_cast<int>(std::ceil(m_metrics.horizontalAdvance(text)));
        }
        qreal& advance = m_advances[character.unicode()];
        if (advance < 0.0) {
            advance = m_metrics.horizontalAdvance(character);
        }
        width += advance;
    }
    return static_cast<int>(std::ceil(width));
}
