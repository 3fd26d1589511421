#include "actions/actions_table.h"

#include <QCursor>

#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"

MRL_LC_ActionsTable::MRL_LC_ActionsTable(int columns, QWidget* parent, const char* name)
    : MRL_H_TableWidget(0, columns, parent, name)
{
}

MRL_LC_ActionsTable::~MRL_LC_ActionsTable() = default;

void MRL_LC_ActionsTable::setReinitActions(MRL_QT_Action* all, MRL_QT_Action* selected)
{
    m_reinitAllAction = all;
    m_reinitSelectedAction = selected;
}

void MRL_LC_ActionsTable::contextMenuEvent(QContextMenuEvent*)
{
    MRL_QT_Menu* menu = getContextMenu();
    menu->addSeparator();
    menu->addAction(m_reinitAllAction);
    if (!getSelectedRows(this).empty()) {
        menu->addAction(m_reinitSelectedAction);
    }
    if (m_extendMenu) {
        m_extendMenu(*menu);
    }
    menu->exec(QCursor::pos());
}
