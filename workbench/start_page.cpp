#include "workbench/start_page.h"

#include <QCommandLinkButton>
#include <QFileInfo>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

#include "workbench/recent_files.h"

namespace mrl::workbench {

namespace {

constexpr int COLUMN_WIDTH = 460;
constexpr int ICON_SIZE = 72;

QLabel* heading(const QString& text, double scale, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(true);
    label->setFont(font);
    return label;
}

} // namespace

QLayout* StartPage::titleLine(QWidget* column)
{
    auto* top = new QHBoxLayout;
    auto* icon = new QLabel(column);
    icon->setPixmap(QIcon(QStringLiteral(":/workbench/icon.svg")).pixmap(ICON_SIZE, ICON_SIZE));
    auto* titles = new QVBoxLayout;
    titles->addWidget(heading(tr("Marlavon Workbench"), 1.7, column));
    titles->addWidget(new QLabel(tr("Actions and load cases of structural models"), column));
    top->addWidget(icon);
    top->addSpacing(12);
    top->addLayout(titles, 1);
    return top;
}

StartPage::StartPage(QWidget* parent)
    : QWidget(parent), m_recent(new QWidget(this)), m_recentLayout(new QVBoxLayout(m_recent))
{
    setObjectName(QStringLiteral("start"));
    auto* column = new QWidget(this);
    column->setMinimumWidth(COLUMN_WIDTH);
    auto* layout = new QVBoxLayout(column);

    layout->addLayout(titleLine(column));
    layout->addSpacing(18);

    auto* create =
        new QCommandLinkButton(tr("New project"), tr("Choose design code, system and gravity"), column);
    create->setObjectName(QStringLiteral("start_new"));
    auto* open = new QCommandLinkButton(tr("Open project"), tr("Open a project file (*.cdb)"), column);
    open->setObjectName(QStringLiteral("start_open"));
    connect(create, &QCommandLinkButton::clicked, this, &StartPage::newWanted);
    connect(open, &QCommandLinkButton::clicked, this, &StartPage::openWanted);
    for (QCommandLinkButton* link : {create, open}) {
        link->setAutoDefault(true); // Enter presses it, as in a dialog
        layout->addWidget(link);
    }
    setFocusProxy(create);
    layout->addSpacing(12);
    m_recentLayout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_recent);

    auto* outer = new QVBoxLayout(this);
    outer->addStretch(2);
    outer->addWidget(column, 0, Qt::AlignHCenter);
    outer->addStretch(3);
}

StartPage::~StartPage() = default;

void StartPage::showRecent(const QStringList& files)
{
    // Later, since this may answer a click on one of them.
    for (QWidget* old : m_recent->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        m_recentLayout->removeWidget(old);
        old->hide();
        old->deleteLater();
    }
    if (!files.isEmpty()) {
        m_recentLayout->addWidget(heading(tr("Recent projects"), 1.0, m_recent));
    }
    for (const QString& file : files) {
        const QFileInfo info(file);
        auto* link = new QLabel(m_recent);
        link->setText(QStringLiteral("<a href=\"%1\">%2</a> &nbsp;<small>%3</small>")
                          .arg(file.toHtmlEscaped(), info.fileName().toHtmlEscaped(),
                               shownPath(info.path()).toHtmlEscaped()));
        link->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
        connect(link, &QLabel::linkActivated, this, [this, file] { emit recentWanted(file); });
        m_recentLayout->addWidget(link);
    }
}

} // namespace mrl::workbench
