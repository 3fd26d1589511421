#include <QElapsedTimer>
#include <QEventLoop>
#include <QPointer>
#include <QWindow>

#include "host/mrl_widgets.h"

namespace {

/// While it lives, a window is not painted: the work is about to change what it shows.
class PaintedLater : public QObject
{
  public:
    explicit PaintedLater(QWidget* window) : m_window(window)
    {
        if (m_window) {
            m_window->installEventFilter(this);
        }
    }
    ~PaintedLater() override
    {
        if (m_window && m_asked) {
            // Qt has no other way to ask, and without memory for an event nothing is left to paint with.
            // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new)
            QCoreApplication::postEvent(m_window, new QEvent(QEvent::UpdateRequest), Qt::LowEventPriority);
        }
    }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (object != m_window || event->type() != QEvent::UpdateRequest) {
            return false;
        }
        m_asked = true;
        return true;
    }

  private:
    QPointer<QWidget> m_window;
    bool m_asked = false;
};

} // namespace

MRL_QT_BusyDialog::MRL_QT_BusyDialog(const QString& text, QWidget* parent, const char* name)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      m_label(new QLabel(text, this))
{
    setObjectName(QString::fromLatin1(name));
    setWindowTitle(tr("Please wait"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 20, 24, 20);
    layout->addWidget(m_label);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setAlignment(Qt::AlignCenter);
}

void MRL_QT_BusyDialog::setText(const QString& text)
{
    m_label->setText(text);
    if (isVisible()) {
        repaint();
    }
}

void MRL_QT_BusyDialog::setVisible(bool visible)
{
    QDialog::setVisible(visible);
    if (!visible) {
        return;
    }
    // The work that follows runs no event loop, so the window must be there before it begins. The window
    // system needs a moment to map it; what the user types or clicks meanwhile stays in the queue.
    constexpr qint64 PATIENCE_MS = 300;
    const PaintedLater beneath(parentWidget() ? parentWidget()->window() : nullptr);
    QElapsedTimer waited;
    waited.start();
    do {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents, 10);
    } while (windowHandle() && !windowHandle()->isExposed() && waited.elapsed() < PATIENCE_MS);
    repaint();
}

// Only hide(), called when the work is done, closes it.
void MRL_QT_BusyDialog::reject() {}
