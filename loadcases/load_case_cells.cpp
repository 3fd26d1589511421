#include "loadcases/load_case_cells.h"

#include "host/mrl_table.h"
#include "lcdata/values/roles.h"

LCM_LoadCaseCells::LCM_LoadCaseCells(const MRL_H_TableWidget& table, int row)
{
    for (int i = 0; i < COLUMNS; ++i) {
        m_cells[static_cast<std::size_t>(i)] = table.itemOnColId(row, LC_COL_NUMBER + i);
    }
}

QTableWidgetItem* LCM_LoadCaseCells::operator[](int column) const
{
    const int i = column - LC_COL_NUMBER;
    return i >= 0 && i < COLUMNS ? m_cells[static_cast<std::size_t>(i)] : nullptr;
}

int LCM_LoadCaseCells::number() const { return lcm_cell_number((*this)[LC_COL_NUMBER]); }

QString LCM_LoadCaseCells::title() const { return lcm_cell_text((*this)[LC_COL_TITLE]); }

int LCM_LoadCaseCells::actionId() const { return lcm_cell_id((*this)[LC_COL_ACTION]); }

LCM_LoadCaseDeadWeight LCM_LoadCaseCells::deadWeight() const
{
    return {lcm_cell_value((*this)[LC_COL_DEADFACTOR]), lcm_cell_value((*this)[LC_COL_DLX]),
            lcm_cell_value((*this)[LC_COL_DLY]), lcm_cell_value((*this)[LC_COL_DLZ])};
}

LCM_LoadCaseFactors LCM_LoadCaseCells::factors() const
{
    LCM_LoadCaseFactors values;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        values[factor.id] = lcm_cell_value((*this)[factor.loadCaseColumn]);
    }
    return values;
}

std::optional<int> LCM_LoadCaseCells::keptWord() const
{
    const QTableWidgetItem* cell = (*this)[LC_COL_NUMBER];
    const QVariant word = cell ? cell->data(ROLE_ACTION_CODE) : QVariant();
    return word.isValid() ? std::optional<int>(word.toInt()) : std::nullopt;
}

void LCM_LoadCaseCells::keepWord(std::optional<int> actionWord)
{
    QTableWidgetItem* cell = (*this)[LC_COL_NUMBER];
    if (cell && keptWord() != actionWord) {
        cell->setData(ROLE_ACTION_CODE, actionWord ? QVariant(*actionWord) : QVariant());
    }
}

void LCM_LoadCaseCells::showNumber(int number)
{
    QTableWidgetItem* cell = (*this)[LC_COL_NUMBER];
    if (!cell || lcm_cell_number(cell) == number) {
        return;
    }
    lcm_set_cell_value(cell, static_cast<float>(number), LCM_CellInput::Open, LC_UNDEFINED);
    cell->setData(Qt::DisplayRole, number);
}

void LCM_LoadCaseCells::showTitle(const QString& title)
{
    if (auto* cell = MRL_H_TwSimpleLineEditItem::fromItem((*this)[LC_COL_TITLE])) {
        cell->setText(title);
    }
}

void LCM_LoadCaseCells::showDeadWeight(const LCM_LoadCaseDeadWeight& values)
{
    lcm_set_cell_value((*this)[LC_COL_DLX], values.dlx, LCM_CellInput::Open, LC_UNDEFINED);
    lcm_set_cell_value((*this)[LC_COL_DLY], values.dly, LCM_CellInput::Open, LC_UNDEFINED);
    lcm_set_cell_value((*this)[LC_COL_DLZ], values.dlz, LCM_CellInput::Open, LC_UNDEFINED);
    lcm_set_cell_value((*this)[LC_COL_DEADFACTOR], values.factor, LCM_CellInput::Open, LC_UNDEFINED);
}

void LCM_LoadCaseCells::showFactors(const LCM_LoadCaseFactors& values, LCM_CellInput input)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const float value = values[factor.id];
        lcm_set_cell_value((*this)[factor.loadCaseColumn], value, input, value);
    }
}
