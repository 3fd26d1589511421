#include "actions/tab_interface.h"

#include "actions/table_helpers.h"
#include "host/mrl_table.h"
#include "lcdata/values/roles.h"
#include "rules/action_columns.h"

bool modificationNoticePending = true;

LCM_TabInterface::LCM_TabInterface(int database, QWidget* parent, const char* name)
    : QWidget(parent), db(database)
{
    modificationNoticePending = true;
    setObjectName(QLatin1String(name));
}

LCM_TabInterface::~LCM_TabInterface() = default;

bool LCM_TabInterface::isValid() { return firstInvalidRow() < 0; }

int LCM_TabInterface::firstInvalidRow() const
{
    for (int row = 0; table != nullptr && row < table->rowCount(); ++row) {
        if (!isRowValid(row)) {
            return row;
        }
    }
    return -1;
}

bool LCM_TabInterface::isRowValid(int row) const
{
    const MRL_H_TwSimpleLineEditItem* cell = verdictCell(row);
    return cell != nullptr && cell->data(ROLE_ROW_VALID).toBool();
}

void LCM_TabInterface::showInvalidRow()
{
    const int row = firstInvalidRow();
    if (row < 0) {
        return;
    }
    table->selectRow(row);
    table->scrollTo(table->model()->index(row, 0));
}

void LCM_TabInterface::setRowValid(int row, bool valid)
{
    if (table != nullptr) {
        lcm_set_row_valid(table, row, valid);
    }
}

MRL_H_TwSimpleLineEditItem* LCM_TabInterface::verdictCell(int row) const
{
    return MRL_H_TwSimpleLineEditItem::fromItem(table->itemOnColId(row, ACT_COL_ACTION));
}
