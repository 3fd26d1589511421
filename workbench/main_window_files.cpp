// The commands on the project's file: new, open, save, close.
#include "workbench/main_window.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>
#include <QStatusBar>

#include "workbench/designcode/kept_question.h"
#include "workbench/new_project_dialog.h"
#include "workbench/recent_files.h"
#include "workbench/start_page.h"
#include "workbench/steps/changes_dialog.h"
#include "workbench/summary_page.h"
#include "workbench/wanted_extras.h"

namespace mrl::workbench {

namespace {

QString fileFilter() { return MainWindow::tr("Projects (*.cdb);;All files (*)"); }

} // namespace

bool MainWindow::openProject(const QString& file)
{
    if (!mayGiveUp()) {
        return false;
    }
    const QString path = QFileInfo(file).absoluteFilePath();
    const QString reason = m_document->open(path);
    if (reason.isEmpty()) {
        RecentFiles::add(path);
        if (m_document->isReadOnly()) {
            statusBar()->showMessage(m_document->readOnlyReason().section(QLatin1Char('\n'), 0, 0), 10000);
        }
        if (wantsExtras() && askAboutKeptCode(m_document->database(), this) == KeptAnswer::TakeOver) {
            slot_recode();
        }
        return true;
    }
    RecentFiles::remove(path);
    m_start->showRecent(RecentFiles::list());
    QMessageBox::critical(this, tr("Open project"), reason);
    return false;
}

void MainWindow::slot_new()
{
    if (!mayGiveUp()) {
        return;
    }
    NewProjectDialog dialog(folder(), this);
    // On failure the dialog opens again with the same input, so that it can be corrected.
    bool isOpen = false;
    while (!isOpen && dialog.exec() == QDialog::Accepted) {
        isOpen = createAndOpen(dialog.wish());
    }
}

bool MainWindow::createAndOpen(const NewProject& wish)
{
    // Unsaved changes were discarded above, so the target may be the open file.
    if (QFileInfo(wish.file) == QFileInfo(m_document->file())) {
        m_document->close();
    }
    const QString reason = createProject(wish);
    if (!reason.isEmpty()) {
        QMessageBox::critical(this, tr("New project"), reason);
        return false;
    }
    m_document->close();
    return openProject(wish.file);
}

void MainWindow::slot_open()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Open project"), folder(), fileFilter());
    if (!file.isEmpty()) {
        openProject(file);
    }
}

bool MainWindow::slot_save()
{
    if (!m_document->isModified()) {
        return true;
    }
    if (m_document->isReadOnly()) {
        return slot_saveAs();
    }
    if (wantsExtras() && !maySaveFindings()) {
        return false;
    }
    const auto result = m_document->save(false);
    if (result.outcome == Document::Outcome::Conflict) {
        return wantsExtras() ? chooseInConflict() : overwriteConflict();
    }
    return saved(result);
}

bool MainWindow::maySaveFindings()
{
    const auto count = summarise(m_document->database()).findings.size();
    if (count == 0) {
        return true;
    }
    QMessageBox box(QMessageBox::Question, tr("Save project"),
                    count == 1 ? tr("The project has one finding.")
                               : tr("The project has %1 findings.").arg(count),
                    QMessageBox::Save, this);
    box.setInformativeText(tr("It can be saved all the same."));
    auto* show = box.addButton(tr("Show &findings"), QMessageBox::RejectRole);
    box.setEscapeButton(show);
    box.exec();
    if (box.clickedButton() == show) {
        m_summary->showFindings();
        return false;
    }
    return true;
}

bool MainWindow::overwriteConflict()
{
    QMessageBox box(QMessageBox::Warning, tr("Save project"),
                    tr("Another program has changed this project since it was opened."), QMessageBox::Cancel,
                    this);
    box.setInformativeText(
        tr("Overwriting replaces its actions and load cases by those shown here. \"Save as\" keeps "
           "both."));
    auto* overwrite = box.addButton(tr("&Overwrite"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    return box.clickedButton() == overwrite && saved(m_document->save(true));
}

bool MainWindow::chooseInConflict()
{
    ConflictDialog dialog(
        shownChanges(changesBetween(m_document->fileDatabase(), m_document->database()), std::nullopt), this);
    dialog.exec();
    switch (dialog.choice()) {
    case ConflictDialog::Choice::Reload:
        reload();
        return false;
    case ConflictDialog::Choice::SaveAs:
        return slot_saveAs();
    case ConflictDialog::Choice::Overwrite:
        return saved(m_document->save(true));
    case ConflictDialog::Choice::Cancel:
        break;
    }
    return false;
}

void MainWindow::reload()
{
    QString reason;
    m_document->runStep(tr("Reload"), [&] { reason = m_document->reload(); });
    if (!reason.isEmpty()) {
        QMessageBox::critical(this, tr("Reload"), reason);
    }
}

bool MainWindow::slot_saveAs()
{
    QString file =
        QFileDialog::getSaveFileName(this, tr("Save project as"), m_document->file(), fileFilter());
    if (file.isEmpty()) {
        return false;
    }
    if (QFileInfo(file).suffix().isEmpty()) {
        file += QStringLiteral(".cdb");
    }
    if (!saved(m_document->saveAs(file))) {
        return false;
    }
    RecentFiles::add(file);
    return true;
}

bool MainWindow::saved(const Document::Result& result)
{
    if (result.outcome == Document::Outcome::Done) {
        statusBar()->showMessage(tr("Saved."), 4000);
        return true;
    }
    QMessageBox::critical(this, tr("Save project"), result.reason);
    return false;
}

bool MainWindow::mayGiveUp()
{
    if (!m_document->isModified()) {
        return true;
    }
    const auto answer = QMessageBox::question(
        this, tr("Unsaved changes"),
        tr("%1 has unsaved changes. Should they be saved?").arg(QFileInfo(m_document->file()).fileName()),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    if (answer == QMessageBox::Save) {
        return slot_save();
    }
    return answer == QMessageBox::Discard;
}

void MainWindow::slot_close()
{
    if (mayGiveUp()) {
        m_document->close();
    }
}

QString MainWindow::folder() const
{
    if (m_document->isOpen()) {
        return QFileInfo(m_document->file()).absolutePath();
    }
    const QStringList recent = RecentFiles::list();
    if (!recent.isEmpty()) {
        return QFileInfo(recent.first()).absolutePath();
    }
    // Not everybody has a folder for documents.
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

} // namespace mrl::workbench
