// Tables in and out, and the report.
#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QStatusBar>

#include "workbench/exchange/export_dialog.h"
#include "workbench/exchange/import_dialog.h"
#include "workbench/main_window.h"
#include "workbench/report/report_dialog.h"

namespace mrl::workbench {

void MainWindow::slot_export()
{
    if (!m_document->isOpen()) {
        return;
    }
    ExportDialog dialog(m_document->database(), m_document->file(), this);
    if (dialog.exec() == QDialog::Accepted) {
        statusBar()->showMessage(tr("Written: %1").arg(QDir::toNativeSeparators(dialog.file())));
    }
}

void MainWindow::slot_report()
{
    if (!m_document->isOpen()) {
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ReportDialog dialog(m_document->database(), m_document->file(), m_document->isModified(), this);
    QApplication::restoreOverrideCursor();
    dialog.exec();
    if (!dialog.writtenFile().isEmpty()) {
        statusBar()->showMessage(tr("Written: %1").arg(QDir::toNativeSeparators(dialog.writtenFile())));
    }
}

void MainWindow::slot_import()
{
    if (!m_document->isOpen()) {
        return;
    }
    // Rows are judged by the design code.
    const QString reason = m_document->designCodeFailure();
    if (!reason.isEmpty()) {
        QMessageBox::warning(
            this, tr("Import"),
            tr("An import needs the design code of the project, which can't be loaded: %1").arg(reason));
        return;
    }
    const auto runStep = [this](const QString& name, const std::function<void()>& command) {
        m_document->runStep(name, command);
    };
    ImportDialog dialog(m_document->database(), runStep, this);
    if (dialog.exec() == QDialog::Accepted) {
        statusBar()->showMessage(tr("Imported: %1").arg(dialog.summary()));
    }
}

} // namespace mrl::workbench
