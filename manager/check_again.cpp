#include "manager/check_again.h"

#include <QAction>

#include "actions/actions_widget.h"
#include "host/mrl_table.h"
#include "loadcases/loadcase_widget.h"
#include "manager/loadcase_manager.h"

namespace {

/// An open editor commits its value when the table takes the focus.
void commitEdit(const LCM_TabInterface* tab)
{
    MRL_H_TableWidget* table = tab->tableWidget();
    if (table->viewport()->isAncestorOf(QApplication::focusWidget())) {
        table->setFocus();
    }
}

} // namespace

void lcm_add_check_again(QWidget* dialog, LCM_ActionsWidget* actions, LCM_LoadcaseWidget* loadCases)
{
    auto* command = new QAction(LoadcaseManager::tr("Check again"), dialog);
    command->setObjectName(QStringLiteral("check again"));
    command->setShortcut(QKeySequence(Qt::Key_F5));
    QObject::connect(command, &QAction::triggered, dialog, [actions, loadCases] {
        if (actions) {
            commitEdit(actions);
            actions->judgeAllRows();
        }
        if (loadCases) {
            commitEdit(loadCases);
            loadCases->judgeAllRows();
        }
    });
    dialog->addAction(command);
}
