#pragma once

/// Whether colours can be read, in light and dark palettes.

#include <QApplication>
#include <QColor>
#include <QPalette>

#include <algorithm>
#include <cmath>

namespace mrl::test {

/// The contrast of two opaque colours as WCAG 2.1 defines it, computed apart from the product.
inline double contrastOf(const QColor& one, const QColor& other)
{
    const auto luminance = [](const QColor& colour) {
        const auto linear = [](double part) {
            return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// Does something with the palette of the application, and again with a dark one.
template <class Each>
void inLightAndDark(Each each)
{
    const QPalette light = QApplication::palette();
    each();
    QApplication::setPalette(QPalette(QColor(0x3b, 0x40, 0x45), QColor(0x23, 0x26, 0x29)));
    each();
    QApplication::setPalette(light);
}

} // namespace mrl::test
