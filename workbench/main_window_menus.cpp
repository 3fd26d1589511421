// The commands of the main window: menus, tool bar and the project's page.
#include "workbench/main_window.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMenuBar>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QTabWidget>
#include <QToolBar>

#include "host/mrl_textlist.h"
#include "workbench/combinations/combinations_page.h"
#include "workbench/input_page.h"
#include "workbench/recent_files.h"
#include "workbench/summary_page.h"
#include "workbench/task_panel.h"
#include "workbench/wanted_extras.h"

namespace mrl::workbench {

namespace {

QAction* command(MainWindow* window, QStyle::StandardPixmap icon, const QString& text,
                 const QKeySequence& shortcut, const char* name)
{
    auto* action = new QAction(QApplication::style()->standardIcon(icon), text, window);
    action->setShortcut(shortcut);
    action->setObjectName(QLatin1String(name));
    return action;
}

} // namespace

void MainWindow::createActions()
{
    m_newAction = command(this, QStyle::SP_FileIcon, tr("&New..."), QKeySequence::New, "action_new");
    m_openAction =
        command(this, QStyle::SP_DialogOpenButton, tr("&Open..."), QKeySequence::Open, "action_open");
    m_saveAction = command(this, QStyle::SP_DialogSaveButton, tr("&Save"), QKeySequence::Save, "action_save");
    m_saveAsAction = new QAction(tr("Save &as..."), this);
    m_saveAsAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    m_closeAction = new QAction(tr("&Close"), this);
    m_closeAction->setShortcut(QKeySequence::Close);
    connect(m_newAction, &QAction::triggered, this, &MainWindow::slot_new);
    connect(m_openAction, &QAction::triggered, this, &MainWindow::slot_open);
    connect(m_saveAction, &QAction::triggered, this, &MainWindow::slot_save);
    connect(m_saveAsAction, &QAction::triggered, this, &MainWindow::slot_saveAs);
    connect(m_closeAction, &QAction::triggered, this, &MainWindow::slot_close);

    m_importAction = new QAction(tr("&Import..."), this);
    m_exportAction = new QAction(tr("&Export..."), this);
    m_importAction->setObjectName(QStringLiteral("action_import"));
    m_exportAction->setObjectName(QStringLiteral("action_export"));
    connect(m_importAction, &QAction::triggered, this, &MainWindow::slot_import);
    connect(m_exportAction, &QAction::triggered, this, &MainWindow::slot_export);
    m_reportAction = new QAction(tr("Re&port..."), this);
    m_reportAction->setObjectName(QStringLiteral("action_report"));
    connect(m_reportAction, &QAction::triggered, this, &MainWindow::slot_report);

    m_actionsAction = new QAction(tr("&Action Manager..."), this);
    m_actionsAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+1")));
    m_loadCasesAction = new QAction(tr("&Load-case Manager..."), this);
    m_loadCasesAction->setShortcut(QKeySequence(QStringLiteral("Ctrl+2")));
    m_recodeAction = new QAction(tr("Another &design code..."), this);
    m_recodeAction->setObjectName(QStringLiteral("action_recode"));
    m_keepCodeAction = new QAction(tr("&Keep the design code in the project"), this);
    m_keepCodeAction->setObjectName(QStringLiteral("action_keep_code"));
    connect(m_recodeAction, &QAction::triggered, this, &MainWindow::slot_recode);
    connect(m_keepCodeAction, &QAction::triggered, this, &MainWindow::slot_keepCode);
    connect(m_actionsAction, &QAction::triggered, this, [this] { openManager(Manager::Actions); });
    connect(m_loadCasesAction, &QAction::triggered, this, [this] { openManager(Manager::LoadCases); });
}

void MainWindow::createFileMenu()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(m_newAction);
    file->addAction(m_openAction);
    m_recentMenu = file->addMenu(tr("Open &recent"));
    connect(file, &QMenu::aboutToShow, this, &MainWindow::slot_fillRecentMenu);
    file->addSeparator();
    file->addAction(m_saveAction);
    file->addAction(m_saveAsAction);
    file->addSeparator();
    file->addAction(m_importAction);
    file->addAction(m_exportAction);
    file->addAction(m_reportAction);
    file->addSeparator();
    file->addAction(m_closeAction);
    QAction* quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    quit->setMenuRole(QAction::QuitRole);
}

void MainWindow::createOtherMenus()
{
    QMenu* tasks = menuBar()->addMenu(tr("&Tasks"));
    tasks->addAction(m_actionsAction);
    tasks->addAction(m_loadCasesAction);
    tasks->addSeparator();
    tasks->addAction(m_recodeAction);
    tasks->addAction(m_keepCodeAction);

    QMenu* extras = menuBar()->addMenu(tr("&Extras"));
    extras->addAction(tr("&Settings..."), this, &MainWindow::slot_settings);

    QMenu* help = menuBar()->addMenu(tr("&Help"));
    QAction* contents = help->addAction(tr("&Actions and load cases"), this, &MainWindow::slot_help);
    contents->setShortcut(QKeySequence::HelpContents);
    QAction* manual =
        help->addAction(tr("&Manual"), this, [this] { MRL_T_Help::show(this, "manual", "README"); });
    manual->setObjectName(QStringLiteral("action_manual"));
    help->addSeparator();
    help->addAction(tr("A&bout"), this, &MainWindow::slot_about);
    help->addAction(tr("About &Qt"), qApp, &QApplication::aboutQt);
}

void MainWindow::createToolBar()
{
    QToolBar* bar = addToolBar(tr("Commands"));
    bar->setObjectName(QStringLiteral("toolbar"));
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    bar->setMovable(false);
    bar->addAction(m_newAction);
    bar->addAction(m_openAction);
    bar->addAction(m_saveAction);
}

QWidget* MainWindow::createProjectPage()
{
    auto* splitter = new QSplitter(Qt::Horizontal, m_pages);
    m_tasks = new TaskPanel(splitter);
    auto* tabs = new QTabWidget(splitter);
    tabs->setObjectName(QStringLiteral("project_tabs"));
    m_summary = new SummaryPage(tabs);
    connect(m_summary, &SummaryPage::checkAgain, this, &MainWindow::slot_changed);
    connect(m_summary, &SummaryPage::loadCaseWanted, this, [this](int number) {
        if (wantsExtras()) {
            openManager(Manager::LoadCases, {number});
        }
    });
    connect(m_summary, &SummaryPage::actionWanted, this, [this] {
        if (wantsExtras()) {
            openManager(Manager::Actions);
        }
    });
    m_input = new InputPage(tabs);
    tabs->addTab(m_summary, tr("Summary"));
    tabs->addTab(m_input, tr("Generated input"));
    m_combinations = new CombinationsPage(tabs);
    tabs->addTab(m_combinations, tr("Combinations"));
    splitter->addWidget(m_tasks);
    splitter->addWidget(tabs);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    splitter->setCollapsible(1, false);
    splitter->setContentsMargins(6, 6, 6, 0);
    return splitter;
}

void MainWindow::slot_fillRecentMenu()
{
    m_recentMenu->clear();
    for (const QString& file : RecentFiles::list()) {
        QAction* action = m_recentMenu->addAction(QFileInfo(file).fileName());
        action->setToolTip(QDir::toNativeSeparators(file));
        connect(action, &QAction::triggered, this, [this, file] { openProject(file); });
    }
    m_recentMenu->setToolTipsVisible(true);
    m_recentMenu->setEnabled(!m_recentMenu->isEmpty());
}

} // namespace mrl::workbench
