// The design code of the open project.
#include "workbench/main_window.h"

#include <QMessageBox>
#include <QStatusBar>

#include "hostlib/data/cdb/project.h"
#include "workbench/designcode/recode_dialog.h"

namespace mrl::workbench {

void MainWindow::slot_recode()
{
    recode(QString::fromStdString(cdb::fact(m_document->database(), "designcode")));
}

void MainWindow::recode(const QString& code)
{
    const int db = m_document->database();
    RecodeDialog dialog(db, code, this);
    if (dialog.exec() != QDialog::Accepted) {
        return;
    }
    QString failure;
    m_document->runStep(tr("Another design code"),
                        [&] { failure = applyRecode(db, dialog.plan(), dialog.code()); });
    if (!failure.isEmpty()) {
        QMessageBox::critical(this, tr("Another design code"), failure);
        return;
    }
    if (dialog.plan().changesSystem) {
        m_document->markSystem();
    }
    slot_changed();
    statusBar()->showMessage(
        tr("The design code is %1 now.").arg(QString::fromStdString(dialog.code().code.name)));
}

void MainWindow::slot_keepCode()
{
    QString failure;
    m_document->runStep(tr("Keeping the design code"), [&] { failure = keepCode(m_document->database()); });
    if (!failure.isEmpty()) {
        QMessageBox::critical(this, tr("Design code"), failure);
        return;
    }
    slot_changed();
    statusBar()->showMessage(tr("Saving the project keeps its design code in it."));
}

} // namespace mrl::workbench
