#pragma once

/// What a screen reader finds of a window.

#include <QAccessible>
#include <QSet>
#include <QWidget>

namespace mrl::test {

/// The kinds of controls that need a name to be read out.
inline const QSet<QAccessible::Role> NAMED_ROLES{
    QAccessible::Table,      QAccessible::List,     QAccessible::EditableText, QAccessible::ComboBox,
    QAccessible::PushButton, QAccessible::CheckBox, QAccessible::ButtonMenu,   QAccessible::RadioButton,
    QAccessible::SpinBox,    QAccessible::Slider,   QAccessible::Tree,         QAccessible::ButtonDropDown};

/// Those that are shown and have none: class and object name of each, and of what they stand in.
inline QStringList nameless(QAccessibleInterface* control)
{
    QStringList found;
    const QWidget* widget = qobject_cast<QWidget*>(control->object());
    if (widget && widget->isVisible() && NAMED_ROLES.contains(control->role()) &&
        control->text(QAccessible::Name).isEmpty()) {
        found << QStringLiteral("%1 '%2' in %3 '%4'")
                     .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(),
                          QLatin1String(widget->parentWidget()->metaObject()->className()),
                          widget->parentWidget()->objectName());
    }
    // The cells of tables are not walked, and the parts of a field are its own.
    const bool isWhole = control->role() == QAccessible::Table || control->role() == QAccessible::ComboBox ||
                         control->role() == QAccessible::SpinBox;
    for (int i = 0; !isWhole && i < control->childCount(); ++i) {
        if (QAccessibleInterface* child = control->child(i)) {
            found += nameless(child);
        }
    }
    return found;
}

inline std::string namelessIn(QWidget* window)
{
    return nameless(QAccessible::queryAccessibleInterface(window)).join(QStringLiteral(", ")).toStdString();
}

} // namespace mrl::test
