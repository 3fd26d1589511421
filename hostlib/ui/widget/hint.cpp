#include "hostlib/ui/widget/hint.h"

#include <QLineEdit>
#include <QPalette>

namespace mrl::ui {

void showHint(QLineEdit& field, const QString& hint)
{
    QPalette palette = field.palette();
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    const auto mixed = [](int a, int b) { return (2 * a + b) / 3; };
    palette.setColor(QPalette::PlaceholderText,
                     QColor(mixed(text.red(), base.red()), mixed(text.green(), base.green()),
                            mixed(text.blue(), base.blue())));
    field.setPalette(palette);
    field.setPlaceholderText(hint);
}

} // namespace mrl::ui
