// Accepts the manager dialog on a project file without end, to be killed in the middle of it: accept_forever
// FILE Each acceptance gives all load cases the same title, the number of the acceptance, which is told when
// it is done.
#include <QMessageBox>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

#include "actions/actions_widget.h"
#include "host/mrl_table.h"
#include "hostlib/data/cdb/project.h"
#include "loadcases/loadcase_widget.h"
#include "manager/control_struct.h"
#include "manager/entry_points.h"
#include "rules/load_case_columns.h"

namespace {

/// Nobody answers a message here: say it and end.
void leaveOnMessage()
{
    if (const auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        std::fprintf(stderr, "unexpected message: %s\n", qPrintable(box->text()));
        std::_Exit(5);
    }
}

void acceptWithTitle(const QString& title)
{
    QWidget* window = QApplication::activeModalWidget();
    if (!window) { // something let events through before the dialog was up
        QTimer::singleShot(0, [title] { acceptWithTitle(title); });
        return;
    }
    auto* tab = window->findChild<LCM_LoadcaseWidget*>();
    if (!tab) {
        std::fprintf(stderr, "unexpected window: %s\n", qPrintable(window->windowTitle()));
        std::_Exit(4);
    }
    MRL_H_TableWidget* table = tab->tableWidget();
    for (int row = 0; row < table->rowCount(); ++row) {
        table->itemOnColId(row, LC_COL_TITLE)->setText(title);
    }
    QTimer::singleShot(0, leaveOnMessage);
    qobject_cast<QDialog*>(window)->accept();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    MRL_QT_Application application(argc, argv);
    const auto project = argc == 2 ? mrl::cdb::open(argv[1]) : mrl::cdb::Opened{};
    if (!project) {
        return 2;
    }
    for (int round = 1;; ++round) {
        MRL_LC_CtrlStruct control;
        control.mode = 0;
        control.singleTab = true;
        QTimer::singleShot(0, [round] { acceptWithTitle(QString::number(round)); });
        if (mrl_loadcase_manager(nullptr, project.db, control) != 1) {
            return 3;
        }
        std::printf("%d\n", round);
        std::fflush(stdout);
    }
}
