#include "hostlib/ui/framework/help_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include "hostlib/ui/framework/help_pages.h"
#include "hostlib/ui/widget/hint.h"
#include "hostlib/ui/widget/window_size.h"

namespace mrl::ui {

namespace {

constexpr int MARGIN = 12;

/// Shows pictures as wide as the page at most, whatever the screen leaves it.
class Pages : public QTextBrowser
{
  public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override
    {
        const QVariant resource = QTextBrowser::loadResource(type, name);
        const QImage picture =
            type == QTextDocument::ImageResource ? QImage::fromData(resource.toByteArray()) : QImage();
        const int room = width() - 2 * (frameWidth() + MARGIN) - verticalScrollBar()->sizeHint().width();
        return picture.width() > room ? picture.scaledToWidth(room, Qt::SmoothTransformation) : resource;
    }
};

} // namespace

HelpWindow::HelpWindow(QWidget* owner)
    : QWidget(owner, Qt::Window), m_browser(new Pages(this)), m_search(new QLineEdit(this))
{
    setObjectName(QStringLiteral("help window"));
    setAttribute(Qt::WA_DeleteOnClose);
    resize(fittingSize(QSize(1000, 720), *this)); // as wide as the pictures

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(makeBar());
    layout->addWidget(m_browser, 1);
    m_browser->setObjectName(QStringLiteral("help browser"));
    m_browser->setOpenExternalLinks(false);
    m_browser->document()->setDocumentMargin(MARGIN);
    connect(m_browser, &QTextBrowser::sourceChanged, this, &HelpWindow::followTitle);

    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this, &HelpWindow::find);
}

void HelpWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Cancel)) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

HelpWindow* HelpWindow::of(QWidget* owner)
{
    QWidget* window = owner ? owner->window() : nullptr;
    const auto windows = window ? window->findChildren<HelpWindow*>(QString(), Qt::FindDirectChildrenOnly)
                                : QList<HelpWindow*>();
    for (HelpWindow* known : windows) {
        if (known->isVisible()) {
            return known;
        }
    }
    return new HelpWindow(window); // deletes itself on closing
}

void HelpWindow::showPage(const QString& book, const QString& topic)
{
    show(); // pictures ask how wide the page is
    const QString page = helpPage(book, topic);
    if (page.isEmpty()) {
        m_browser->setPlainText(tr(R"(There is no help on "%1" in the book "%2".)").arg(topic, book));
    } else {
        m_browser->setSource(QUrl::fromLocalFile(page));
    }
    followTitle();
    raise();
    activateWindow();
    m_browser->setFocus(Qt::OtherFocusReason);
}

QLayout* HelpWindow::makeBar()
{
    auto* bar = new QHBoxLayout; // the caller's layout takes it over
    auto* back = new QPushButton(tr("Back"), this);
    back->setEnabled(false);
    connect(back, &QPushButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    bar->addWidget(back);
    bar->addStretch(1);

    auto* label = new QLabel(tr("Find:"), this);
    label->setBuddy(m_search);
    bar->addWidget(label);
    m_search->setObjectName(QStringLiteral("help search"));
    ui::showHint(*m_search, tr("Word in this page"));
    // Room for the hint; a line edit by itself is as wide as some letters.
    const int marginOfText = 24;
    m_search->setMinimumWidth(m_search->fontMetrics().horizontalAdvance(m_search->placeholderText()) +
                              marginOfText);
    connect(m_search, &QLineEdit::returnPressed, this, &HelpWindow::find);
    bar->addWidget(m_search);

    auto* close = new QPushButton(tr("Close"), this);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
    bar->addWidget(close);
    return bar;
}

// From the cursor on, and once more from the top.
void HelpWindow::find()
{
    if (m_search->text().isEmpty() || m_browser->find(m_search->text())) {
        return;
    }
    m_browser->moveCursor(QTextCursor::Start);
    m_browser->find(m_search->text());
}

void HelpWindow::followTitle()
{
    QString title = m_browser->documentTitle();
    const QTextBlock first = m_browser->document()->firstBlock();
    if (title.isEmpty() && first.blockFormat().headingLevel() == 1) { // Markdown has no other title
        title = first.text();
    }
    setWindowTitle(title.isEmpty() ? tr("Help") : tr("Help: %1").arg(title));
}

} // namespace mrl::ui
