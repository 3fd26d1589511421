#include <QElapsedTimer>
#include <QEventLoop>
#include <QWindow>

#include "host/mrl_widgets.h"

MRL_QT_BusyDialog::MRL_QT_BusyDialog(const QString& text, QWidget* parent, const char* name)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_label(new QLabel(text, this))
{
    setObjectName(QString::fromLatin1(name));
    setWindowTitle(tr("Please wait"));
    auto* layout = new QVBoxLayout(this); // owned by this
    layout->setContentsMargins(24, 20, 24, 20);
    layout->addWidget(m_label);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setAlignment(Qt::AlignCenter);
}

void MRL_QT_BusyDialog::setText(const QString& text)
{
    m_label->setText(text);
    if (isVisible())
        repaint();
}

void MRL_QT_BusyDialog::setVisible(bool visible)
{
    QDialog::setVisible(visible);
    if (!visible)
        return;
    // The work that follows runs no event loop, so the window must be there before it begins. The window
    // system needs a moment to map it; what the user types or clicks meanwhile stays in the queue.
    constexpr qint64 patienceMs = 300;
    QElapsedTimer waited;
    waited.start();
    do {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
    } while (windowHandle() && !windowHandle()->isExposed() && waited.elapsed() < patienceMs);
    repaint();
}

// Only the work ends it, by hide().
void MRL_QT_BusyDialog::reject() {}
