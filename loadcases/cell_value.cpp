#include "loadcases/cell_value.h"

#include "host/mrl_table.h"
#include "lcdata/values/records.h"
#include "lcdata/values/roles.h"

float lcm_cell_value(const QTableWidgetItem* cell)
{
    const auto* number = MRL_H_TwSimpleLineEditItem::fromItem(cell);
    if (!number) {
        return LC_UNDEFINED;
    }
    const auto* editable = MRL_H_TwEditableComboBoxItem::fromItem(cell);
    if (editable && editable->getCurrentId() == -1) {
        return LC_UNDEFINED;
    }
    return static_cast<float>(number->getVal(nullptr));
}

int lcm_cell_number(const QTableWidgetItem* cell)
{
    const auto* number = MRL_H_TwSimpleLineEditItem::fromItem(cell);
    return static_cast<int>(number ? number->getVal(nullptr) : static_cast<double>(LC_UNDEFINED));
}

void lcm_set_cell_value(QTableWidgetItem* cell, float value, LCM_CellInput input, float actionValue)
{
    const bool follows = value == LC_UNDEFINED;
    lcm_set_cell_from_action(cell, follows);
    auto* number = MRL_H_TwSimpleLineEditItem::fromItem(cell);
    if (!number) {
        return;
    }
    number->setEnabled(input == LCM_CellInput::Open);
    auto* editable = MRL_H_TwEditableComboBoxItem::fromItem(cell);
    if (editable && follows) {
        editable->setCurrentId(-1);
        editable->setVal(actionValue);
    } else {
        number->setVal(value);
    }
}

QString lcm_cell_text(const QTableWidgetItem* cell)
{
    const bool hasText =
        MRL_H_TwSimpleLineEditItem::fromItem(cell) || MRL_H_TwSimpleComboBoxItem::fromItem(cell);
    return hasText ? cell->text() : QString();
}

bool lcm_cell_from_action(const QTableWidgetItem* cell)
{
    const auto* item = MRL_H_TwItem::fromItem(cell);
    return item && item->data(ROLE_FROM_ACTION).toBool();
}

void lcm_set_cell_from_action(QTableWidgetItem* cell, bool fromAction)
{
    auto* item = MRL_H_TwItem::fromItem(cell);
    if (item && item->data(ROLE_FROM_ACTION).toBool() != fromAction) {
        item->setData(ROLE_FROM_ACTION, fromAction);
    }
}

int lcm_cell_id(const QTableWidgetItem* cell)
{
    const auto* combo = MRL_H_TwSimpleComboBoxItem::fromItem(cell);
    return combo ? combo->getCurrentId() : -1;
}
