#include <QAbstractItemView>
#include <QEvent>

#include "host/mrl_widgets.h"

namespace {

/// The view whose open cell editor has the focus, or null.
QAbstractItemView* editedView()
{
    QWidget* focus = QApplication::focusWidget();
    for (QWidget* widget = focus ? focus->parentWidget() : nullptr; widget; widget = widget->parentWidget()) {
        auto* view = qobject_cast<QAbstractItemView*>(widget);
        if (view && focus != view && focus != view->viewport() && view->viewport()->isAncestorOf(focus)) {
            return view;
        }
    }
    return nullptr;
}

// An editor gives its value to its cell when it loses the focus, so the focus goes back to the view.
void commitOpenEditor()
{
    if (auto* view = editedView()) {
        view->setFocus(Qt::OtherFocusReason);
    }
}

} // namespace

MRL_QT_PushButton::MRL_QT_PushButton(const QString& text, QWidget* parent, const char* name)
    : QPushButton(text, parent)
{
    setObjectName(QString::fromLatin1(name));
}

bool MRL_QT_PushButton::event(QEvent* event)
{
    if (event->type() == QEvent::Shortcut) {
        commitOpenEditor();
    }
    return QPushButton::event(event);
}

void MRL_QT_PushButton::mousePressEvent(QMouseEvent* event)
{
    if (isEnabled()) {
        commitOpenEditor();
    }
    QPushButton::mousePressEvent(event);
}

void MRL_QT_PushButton::keyPressEvent(QKeyEvent* event)
{
    commitOpenEditor();
    QPushButton::keyPressEvent(event);
}
