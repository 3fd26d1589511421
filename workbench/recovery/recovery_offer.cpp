#include "workbench/recovery/recovery_offer.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>

#include "workbench/recent_files.h"

namespace mrl::workbench {

namespace {

struct RecoveryTexts
{
    Q_DECLARE_TR_FUNCTIONS(Recovery)
};

/// Told once: under another name it isn't found by the next start, and nothing of it is lost.
void leaveAlone(QWidget* parent, const QString& file, const QString& reason)
{
    const QString left = file + QStringLiteral(".left");
    QFile::rename(file, left);
    QFile::remove(file + QStringLiteral(".lock"));
    QMessageBox box(QMessageBox::Information, RecoveryTexts::tr("Recovery"), reason, QMessageBox::Ok, parent);
    box.setInformativeText(RecoveryTexts::tr("It is left alone as %1.").arg(shownPath(left)));
    box.exec();
}

QString contentOf(const Snapshot& snapshot)
{
    QStringList lines;
    if (const auto keys = snapshot.document.keyCount() + snapshot.document.facts().size(); keys > 0) {
        lines << RecoveryTexts::tr("Records that were not saved: %1").arg(keys);
    }
    if (snapshot.rows.state != 0) {
        lines << RecoveryTexts::tr(
                     "A manager was open with edits that were not accepted: %1 actions, %2 load cases")
                     .arg(snapshot.rows.actions.size())
                     .arg(snapshot.rows.loadCases.size());
    }
    lines << RecoveryTexts::tr(
        "Recovering is one step, which can be undone; the file changes when you save.");
    return lines.join(QLatin1Char('\n'));
}

} // namespace

Fit fitOf(const Snapshot& snapshot)
{
    const auto opened = cdb::openReadOnly(snapshot.project.toStdString());
    if (!opened) {
        return Fit::NoProject;
    }
    const FileState now = fileStateOf(opened.db, snapshot.project);
    cdb::close(opened.db);
    if (now.project != snapshot.file.project || now.number < snapshot.file.number) {
        return Fit::NoProject;
    }
    return now.number > snapshot.file.number ? Fit::Older : Fit::Fits;
}

std::optional<Snapshot> askForRecovery(QWidget* parent, const QString& file)
{
    std::optional<Snapshot> snapshot = readSnapshot(file);
    if (!snapshot) {
        leaveAlone(parent, file,
                   RecoveryTexts::tr("The snapshot of a run that ended unexpectedly can't be read."));
        return std::nullopt;
    }
    const QString project = QFileInfo(snapshot->project).fileName();
    const QString when = QLocale().toString(snapshot->when, QLocale::ShortFormat);
    switch (fitOf(*snapshot)) {
    case Fit::NoProject:
        leaveAlone(parent, file,
                   RecoveryTexts::tr(
                       "Unsaved changes to %1 from %2 fit no project: the file is gone or is another one.")
                       .arg(shownPath(snapshot->project), when));
        return std::nullopt;
    case Fit::Older:
        leaveAlone(
            parent, file,
            RecoveryTexts::tr("Unsaved changes to %1 from %2 are older than the file, which was saved since.")
                .arg(shownPath(snapshot->project), when));
        return std::nullopt;
    case Fit::Fits:
        break;
    }
    QMessageBox box(
        QMessageBox::Question, RecoveryTexts::tr("Recovery"),
        RecoveryTexts::tr("The program ended unexpectedly with unsaved changes to %1. The last snapshot is "
                          "from %2.")
            .arg(project, when),
        QMessageBox::NoButton, parent);
    box.setInformativeText(contentOf(*snapshot));
    auto* recover = box.addButton(RecoveryTexts::tr("&Recover"), QMessageBox::AcceptRole);
    auto* forget = box.addButton(RecoveryTexts::tr("&Delete the snapshot"), QMessageBox::DestructiveRole);
    auto* later = box.addButton(RecoveryTexts::tr("&Later"), QMessageBox::RejectRole);
    box.setDefaultButton(recover);
    box.setEscapeButton(later);
    box.exec();
    if (box.clickedButton() == forget) {
        QFile::remove(file);
    }
    return box.clickedButton() == recover ? std::move(snapshot) : std::nullopt;
}

} // namespace mrl::workbench
