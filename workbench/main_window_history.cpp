// The steps of the open project: undo, redo, what they changed, and what a crash has left.
#include "workbench/main_window.h"

#include <QFile>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>

#include "workbench/document_history.h"
#include "workbench/recovery/recovery.h"
#include "workbench/recovery/recovery_offer.h"
#include "workbench/steps/changes_dialog.h"
#include "workbench/steps/history_panel.h"

namespace mrl::workbench {

void MainWindow::createHistory()
{
    m_history = new HistoryPanel(m_document->history(), this);
    addDockWidget(Qt::RightDockWidgetArea, m_history);
    // Beside the project it would push the window over the edge of a small screen.
    constexpr int LEAST_WIDTH = 1150;
    m_history->setFloating(screen()->availableGeometry().width() < LEAST_WIDTH);
    m_history->hide();
    connect(m_history, &HistoryPanel::goToWanted, this, &MainWindow::goToStep);
    connect(m_history, &HistoryPanel::changesWanted, this, &MainWindow::showChanges);
    connect(&m_document->history(), &DocumentHistory::dropped, this,
            [this](const QString& reason) { statusBar()->showMessage(reason); });
    m_recovery = new Recovery(*m_document, m_managers, this);
}

void MainWindow::createEditMenu()
{
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    edit->setObjectName(QStringLiteral("menu_edit"));
    edit->addAction(m_history->undoAction());
    edit->addAction(m_history->redoAction());
    edit->addSeparator();
    QAction* panel = m_history->toggleViewAction();
    panel->setShortcut(QKeySequence(QStringLiteral("Ctrl+H")));
    edit->addAction(panel);
}

void MainWindow::goToStep(int done)
{
    const QString reason = m_document->history().goTo(done);
    if (!reason.isEmpty()) {
        QMessageBox::critical(this, tr("History"), reason);
    }
}

void MainWindow::showChanges(int step)
{
    DocumentHistory& history = m_document->history();
    const DocumentHistory::Step& which = history.steps().at(static_cast<std::size_t>(step));
    ChangesDialog dialog(which.name, shownChanges(history.changesOf(step), which.edited), this);
    dialog.exec();
}

bool MainWindow::offerRecovery()
{
    for (const QString& file : Recovery::abandoned()) {
        const auto snapshot = askForRecovery(this, file);
        if (snapshot && openProject(snapshot->project)) {
            recover(file, *snapshot);
            return true;
        }
    }
    return false;
}

void MainWindow::recover(const QString& file, const Snapshot& snapshot)
{
    m_recovery->adopt(file);
    cdb::Result applied;
    m_document->runStep(tr("Recovery of unsaved changes"),
                        [&] { applied = applySnapshot(m_document->database(), snapshot); });
    if (!applied) {
        QMessageBox::critical(this, tr("Recovery"), QString::fromStdString(applied.text));
        return;
    }
    m_history->show();
    statusBar()->showMessage(tr("Recovered; Ctrl+Z takes it back."));
}

} // namespace mrl::workbench
