#include "workbench/main_window.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>

#include "host/mrl_textlist.h"
#include "hostlib/ui/widget/window_size.h"
#include "workbench/combinations/combinations_page.h"
#include "workbench/input_page.h"
#include "workbench/recent_files.h"
#include "workbench/settings_dialog.h"
#include "workbench/start_page.h"
#include "workbench/summary_page.h"
#include "workbench/task_panel.h"
#include "workbench/wanted_extras.h"

namespace mrl::workbench {

namespace {

const char GEOMETRY_KEY[] = "Workbench/geometry";

} // namespace

MainWindow::MainWindow() : m_document(new Document(m_managers, this))
{
    setObjectName(QStringLiteral("workbench"));
    m_pages = new QStackedWidget(this);
    m_start = new StartPage(m_pages);
    m_project = createProjectPage();
    m_pages->addWidget(m_start);
    m_pages->addWidget(m_project);
    setCentralWidget(m_pages);
    m_place = new QLabel(this);
    m_place->setObjectName(QStringLiteral("place"));
    statusBar()->addWidget(m_place, 1);
    createActions();
    createHistory();
    createFileMenu();
    createEditMenu();
    createOtherMenus();
    createToolBar();

    connect(m_start, &StartPage::newWanted, this, &MainWindow::slot_new);
    connect(m_start, &StartPage::openWanted, this, &MainWindow::slot_open);
    connect(m_start, &StartPage::recentWanted, this, &MainWindow::openProject);
    connect(m_tasks, &TaskPanel::managerWanted, this, [this](Manager which) { openManager(which); });
    connect(m_document, &Document::replaced, this, &MainWindow::slot_replaced);
    connect(m_document, &Document::changed, this, &MainWindow::slot_changed);
    setAcceptDrops(true);
    restorePlace();
    slot_replaced();
}

MainWindow::~MainWindow() = default;

void MainWindow::restorePlace()
{
    resize(ui::fittingSize(QSize(1200, 760), *this));
    if (restoreGeometry(QSettings().value(QLatin1String(GEOMETRY_KEY)).toByteArray())) {
        ui::keepOnScreen(*this);
    }
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!mayGiveUp()) {
        event->ignore();
        return;
    }
    QSettings().setValue(QLatin1String(GEOMETRY_KEY), saveGeometry());
    event->accept();
}

QString MainWindow::managerRefusal() const
{
    if (!m_managers.isLoaded()) {
        return tr("The managers can't be loaded: %1").arg(m_managers.reason());
    }
    // Without the design code its factors would be missing, and an acceptance would write zeros.
    const QString reason = m_document->designCodeFailure();
    return reason.isEmpty()
               ? QString()
               : tr("The managers need the design code of the project, which can't be loaded: %1")
                     .arg(reason);
}

void MainWindow::openManager(Manager which, const std::set<int>& loadCases)
{
    if (!m_document->isOpen()) {
        return;
    }
    const QString refusal = managerRefusal();
    if (!refusal.isEmpty()) {
        QMessageBox::warning(this, tr("Managers"), refusal);
        return;
    }
    if (wantsExtras()) {
        runDialog(which, loadCases);
    } else {
        m_document->runStep(tr("Acceptance in the managers"),
                            [&] { m_managers.openDialog(which, m_document->shadow(), this); });
    }
    // Where a question closes together with its dialog, a window manager may be left without an active window.
    activateWindow();
}

void MainWindow::slot_replaced()
{
    const bool open = m_document->isOpen();
    m_pages->setCurrentWidget(open ? m_project : static_cast<QWidget*>(m_start));
    m_start->showRecent(RecentFiles::list());
    for (QAction* action : {m_saveAsAction, m_closeAction, m_importAction, m_exportAction, m_reportAction,
                            m_recodeAction, m_keepCodeAction}) {
        action->setEnabled(open);
    }
    m_place->setText(open ? shownPath(m_document->file()) : QString());
    m_combinations->forget();
    slot_changed();
    // So that the keyboard has a place to begin.
    (open ? static_cast<QWidget*>(m_tasks) : m_start)->setFocus();
}

void MainWindow::slot_changed()
{
    if (m_document->isOpen()) {
        refreshProject();
    }
    const bool canManage = m_document->isOpen() && managerRefusal().isEmpty();
    m_actionsAction->setEnabled(canManage);
    m_loadCasesAction->setEnabled(canManage);
    refreshTitle();
}

void MainWindow::refreshProject()
{
    const ProjectSummary summary = summarise(m_document->database());
    m_summary->show(summary);
    m_tasks->showCounts(static_cast<int>(summary.actions.size()), static_cast<int>(summary.loadCases.size()));
    m_tasks->setRefusal(managerRefusal());
    m_combinations->follow(m_document->database());
    m_input->showText(m_managers.isLoaded() ? m_managers.generate(m_document->shadow()) : QString());
}

void MainWindow::refreshTitle()
{
    const bool modified = m_document->isModified();
    m_saveAction->setEnabled(modified);
    setWindowModified(modified);
    if (!m_document->isOpen()) {
        setWindowTitle(tr("Marlavon Workbench"));
        return;
    }
    const QString name = QFileInfo(m_document->file()).fileName();
    setWindowTitle(m_document->isReadOnly() ? tr("%1[*] (read-only) - Marlavon Workbench").arg(name)
                                            : tr("%1[*] - Marlavon Workbench").arg(name));
    m_place->setText(shownPath(m_document->file()));
    m_place->setToolTip(m_document->readOnlyReason());
}

void MainWindow::slot_settings()
{
    SettingsDialog dialog(this);
    dialog.exec();
}

void MainWindow::slot_help() { MRL_T_Help::show(this, "marlload", "ACT"); }

void MainWindow::slot_about()
{
    QMessageBox::about(
        this, tr("About the Marlavon Workbench"),
        tr("<h3>Marlavon Workbench %1</h3>"
           "<p>Edits the actions and load cases of structural models.</p>"
           "<p>Check every design code against the printed standard before you rely on it.</p>")
            .arg(QCoreApplication::applicationVersion()));
}

} // namespace mrl::workbench
