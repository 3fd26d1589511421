#include "host/mrl_widgets.h"

namespace {

QString objectNameOf(const char* name) { return QString::fromLatin1(name); }

} // namespace

MRL_QT_InfoText::MRL_QT_InfoText(const QString& text, QWidget* parent, const char* name)
    : QFrame(parent), m_label(new QLabel(text, this))
{
    setObjectName(objectNameOf(name));
    setFrameShape(QFrame::StyledPanel);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(m_label);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void MRL_QT_InfoText::setText(const QString& text) { m_label->setText(text); }

QString MRL_QT_InfoText::text() const { return m_label->text(); }

MRL_QT_Ok::MRL_QT_Ok(QWidget* parent, int buttons, const char* name) : QWidget(parent)
{
    constexpr int WITH_OK = 1;
    constexpr int WITH_CANCEL = 2;
    setObjectName(objectNameOf(name));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    if (buttons & WITH_OK) {
        m_ok = new MRL_QT_PushButton(tr("OK"), this, "button_ok");
        m_ok->setDefault(true);
        layout->addWidget(m_ok);
    }
    if (buttons & WITH_CANCEL) {
        m_cancel = new MRL_QT_PushButton(tr("Cancel"), this, "button_cancel");
        layout->addWidget(m_cancel);
    }
}

QPushButton* MRL_QT_Ok::cmdOk() const { return m_ok; }

QPushButton* MRL_QT_Ok::cmdCancel() const { return m_cancel; }

MRL_QT_VBoxLayout::MRL_QT_VBoxLayout() = default;

MRL_QT_VBoxLayout::MRL_QT_VBoxLayout(QWidget* parent, const char* name) : QVBoxLayout(parent)
{
    setObjectName(objectNameOf(name));
}

MRL_QT_HBoxLayout::MRL_QT_HBoxLayout() = default;

MRL_QT_HBoxLayout::MRL_QT_HBoxLayout(QWidget* parent, const char* name) : QHBoxLayout(parent)
{
    setObjectName(objectNameOf(name));
}

MRL_QT_GridLayout::MRL_QT_GridLayout() = default;

MRL_QT_GridLayout::MRL_QT_GridLayout(QWidget* parent, const char* name) : QGridLayout(parent)
{
    setObjectName(objectNameOf(name));
}

MRL_QT_Action::MRL_QT_Action(const QString& text, const QKeySequence& shortcut, QObject* parent,
                             const char* name)
    : QAction(text, parent)
{
    setObjectName(objectNameOf(name));
    setShortcut(shortcut);
}

MRL_QT_Action::MRL_QT_Action(const QString& text, QObject* parent, const char* name) : QAction(text, parent)
{
    setObjectName(objectNameOf(name));
}

MRL_QT_CheckBox::MRL_QT_CheckBox(const QString& text, QWidget* parent, const char* name)
    : QCheckBox(text, parent)
{
    setObjectName(objectNameOf(name));
}

MRL_QT_Label::MRL_QT_Label(const QString& text, QWidget* parent, const char* name) : QLabel(text, parent)
{
    setObjectName(objectNameOf(name));
}

MRL_QT_Menu::MRL_QT_Menu(QWidget* parent, const char* name) : QMenu(parent)
{
    setObjectName(objectNameOf(name));
}

QAction* MRL_QT_Menu::exec(const QPoint& position, QAction* at) { return QMenu::exec(position, at); }
