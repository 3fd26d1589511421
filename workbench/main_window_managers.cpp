// Running the manager's dialog, and what comes of it.
#include "workbench/main_window.h"

#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>
#include <QUrl>

#include <cmath>

#include "host/mrl_alib.h"
#include "lcdata/values/keys.h"
#include "manager/entry_points.h"
#include "workbench/accepted_changes.h"
#include "workbench/document_history.h"
#include "workbench/steps/shown_changes.h"
#include "workbench/unused_load_cases.h"
#include "workbench/wanted_extras.h"

namespace mrl::workbench {

namespace {

constexpr int RESTRICTED_MODES = 24;
constexpr int WITHOUT_OWN_ACTIONS = 1;

/// "7 from 3 (factor 0.5)" of the copies whose loads the managers can't make.
QString scaledCopies(const std::vector<LCM_LoadcaseCopy>& copies)
{
    QStringList scaled;
    for (const LCM_LoadcaseCopy& copy : copies) {
        if (std::fabs(copy.factor - 1.0) > 1e-9) {
            scaled << MainWindow::tr("%1 from %2 (factor %3)")
                          .arg(copy.target)
                          .arg(copy.source)
                          .arg(copy.factor);
        }
    }
    return scaled.join(QStringLiteral(", "));
}

/// The local file that is dragged, empty for anything else.
QString draggedFile(const QMimeData& data)
{
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

} // namespace

void MainWindow::runDialog(Manager which, const std::set<int>& loadCases)
{
    MRL_LC_CtrlStruct control;
    control.mode = which == Manager::Actions ? 1 : 0;
    control.singleTab = wantsOneTab();
    control.loadCases = loadCases;
    if ((mrl_alib_getLaufModus() & RESTRICTED_MODES) != 0) {
        control.actionOptions |= WITHOUT_OWN_ACTIONS;
    }
    const ProjectSummary before = summarise(m_document->database());
    const int steps = m_document->history().doneCount();
    std::optional<int> result;
    m_document->runStep(tr("Acceptance in the managers"), [&] {
        result = m_managers.openDialog(control, m_document->shadow(), this);
        if (!result) {
            m_managers.openDialog(which, m_document->shadow(), this);
        }
    });
    if (!result) {
        return;
    }
    if (*result == MRL_LC_DELETE_UNUSED) {
        deleteUnusedLoadCases();
    } else if (*result == QDialog::Accepted) {
        const int rewritten = m_document->history().doneCount() > steps ? noteEdited() : 0;
        tellAccepted(before, control, rewritten);
    }
}

int MainWindow::noteEdited()
{
    std::set<int> loadCases;
    std::set<int> actions;
    if (!m_managers.readEdited(loadCases, actions)) {
        return 0;
    }
    DocumentHistory::Keys edited;
    for (const int number : loadCases) {
        edited.emplace(LC_KWH_CASES, number);
    }
    for (const int code : actions) {
        edited.emplace(LC_KWH_ACTIONS, code);
    }
    DocumentHistory& history = m_document->history();
    const int rewritten = rewrittenCount(history.changesOf(history.doneCount() - 1), edited);
    history.noteEdited(std::move(edited));
    return rewritten;
}

void MainWindow::tellAccepted(const ProjectSummary& before, const MRL_LC_CtrlStruct& control, int rewritten)
{
    const QString changes = changesInNumbers(before, summarise(m_document->database()));
    QString text = changes.isEmpty() ? tr("Nothing was changed.") : changes;
    if (rewritten > 0) {
        text += QLatin1Char(' ') + tr("Rewritten, edited by nobody: %1.").arg(rewritten);
    }
    const QString copies = scaledCopies(control.copies);
    if (!copies.isEmpty()) {
        text += QLatin1Char(' ') + tr("The loads of copies belong to other modules: %1.").arg(copies);
    }
    statusBar()->showMessage(text);
}

void MainWindow::deleteUnusedLoadCases()
{
    const std::vector<UnusedLoadCase> unused = unusedLoadCases(m_document->database());
    if (unused.empty()) {
        QMessageBox::information(this, tr("Delete unused load cases"), tr("No load case is unused."));
        return;
    }
    QStringList lines;
    for (const UnusedLoadCase& loadCase : unused) {
        lines << QStringLiteral("%1  %2").arg(loadCase.number).arg(loadCase.title);
    }
    constexpr int MOST_LINES = 12;
    QMessageBox box(QMessageBox::Question, tr("Delete unused load cases"),
                    tr("%1 load cases carry no dead weight, are no imperfection, and no other module holds "
                       "anything under their numbers. Should they be deleted?")
                        .arg(unused.size()),
                    QMessageBox::Cancel, this);
    box.setInformativeText(QStringList(lines.mid(0, MOST_LINES)).join(QLatin1Char('\n')) +
                           (lines.size() > MOST_LINES ? QStringLiteral("\n...") : QString()));
    if (lines.size() > MOST_LINES) {
        box.setDetailedText(lines.join(QLatin1Char('\n')));
    }
    auto* remove = box.addButton(tr("&Delete"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() != remove) {
        return;
    }
    bool removed = false;
    m_document->runStep(tr("Deletion of unused load cases: %1").arg(unused.size()),
                        [&] { removed = removeLoadCases(m_document->database(), unused); });
    if (removed) {
        statusBar()->showMessage(tr("Deleted load cases: %1").arg(unused.size()));
    } else {
        QMessageBox::critical(this, tr("Delete unused load cases"),
                              tr("The load cases could not be deleted. The project is as it was."));
    }
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (QFileInfo(draggedFile(*event->mimeData())).suffix() == QLatin1String("cdb")) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    openProject(draggedFile(*event->mimeData()));
}

} // namespace mrl::workbench
