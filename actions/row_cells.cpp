#include "actions/row_cells.h"

#include <QBrush>

#include <algorithm>
#include <unordered_set>

#include "lcdata/values/roles.h"
#include "rules/action_columns.h"
#include "rules/action_row.h"

namespace {

const QBrush& errorBrush()
{
    static const QBrush BRUSH(Qt::red, Qt::SolidPattern);
    return BRUSH;
}

const QBrush& normalBrush()
{
    static const QBrush BRUSH(Qt::black, Qt::SolidPattern);
    return BRUSH;
}

void mark(QTableWidgetItem* item, const QBrush& brush, const QString& toolTip)
{
    // The cells of this layer write only what changes.
    if (MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(item)) {
        cell->setToolTip(toolTip);
        cell->setForeground(brush);
    } else {
        item->setToolTip(toolTip);
        item->setForeground(brush);
    }
}

} // namespace

LCM_RowCells::LCM_RowCells(const MRL_H_TableWidget* table, int row) : m_table(table), m_row(row)
{
    m_cells.reserve(static_cast<std::size_t>(table->columnCount()));
    for (int column = 0; column < table->columnCount(); ++column) {
        m_cells.push_back(table->item(row, column));
    }
}

QTableWidgetItem* LCM_RowCells::cellAt(int columnId) const
{
    const int column = m_table->getColumnNumber(columnId);
    return column < 0 ? nullptr : m_cells[static_cast<std::size_t>(column)];
}

bool LCM_RowCells::hasColumn(int columnId) const { return m_table->getColumnNumber(columnId) >= 0; }

const QTableWidgetItem* LCM_RowCells::anyCell() const
{
    const auto cell =
        std::find_if(m_cells.begin(), m_cells.end(), [](auto* item) { return item != nullptr; });
    return cell == m_cells.end() ? nullptr : *cell;
}

int LCM_RowCells::position() const
{
    const QTableWidgetItem* cell = anyCell();
    if (cell == nullptr) {
        return m_row;
    }
    const auto column = static_cast<int>(std::find(m_cells.begin(), m_cells.end(), cell) - m_cells.begin());
    // Asking an item for its row searches the whole table.
    return m_table->item(m_row, column) == cell ? m_row : cell->row();
}

void LCM_RowCells::markErrors(const LCM_ErrorList& errors) const
{
    for (std::size_t column = 0; column < m_cells.size(); ++column) {
        if (m_cells[column] == nullptr) {
            continue;
        }
        const auto error = errors.find(m_table->getColumnId(static_cast<int>(column)));
        if (error == errors.end()) {
            mark(m_cells[column], normalBrush(), QString());
        } else {
            mark(m_cells[column], errorBrush(), error->second);
        }
    }
}

void LCM_RowCells::setValid(bool valid) const
{
    if (auto* cell = at<MRL_H_TwSimpleLineEditItem>(ACT_COL_ACTION)) {
        cell->setData(ROLE_ROW_VALID, valid);
    }
}

int LCM_RowCells::actionCode() const
{
    const auto* cell = at<MRL_H_TwSimpleLineEditItem>(ACT_COL_ACTION);
    return cell == nullptr ? -1 : cell->data(ROLE_ACTION_CODE).toInt();
}

void LCM_RowCells::show(const tagCDB_LC_ACT& action) const
{
    const LCM_ActionCells values = lcm_action_cells(action);
    if (auto* cell = at<MRL_H_TwSimpleLineEditItem>(ACT_COL_ACTION)) {
        cell->setText(values.name);
        cell->setData(ROLE_ACTION_CODE, values.code);
    }
    if (auto* cell = at<MRL_H_TwSimpleLineEditItem>(ACT_COL_DESCRIPTION)) {
        cell->setText(values.title);
    }
    if (auto* cell = at<MRL_H_TwSimpleComboBoxItem>(ACT_COL_PARTITION)) {
        cell->setCurrentId(values.partition);
    }
    if (auto* cell = at<MRL_H_TwSimpleComboBoxItem>(ACT_COL_SUPERPOSITION)) {
        cell->setCurrentId(values.superposition);
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (auto* cell = at<MRL_H_TwSimpleLineEditItem>(factor.actionColumn)) {
            cell->setVal(values.factors[factor.id]);
        }
    }
}

int LCM_RowCells::read(tagCDB_LC_ACT& action) const
{
    LCM_ActionCells values;
    if (const auto* cell = at<MRL_H_TwSimpleLineEditItem>(ACT_COL_ACTION)) {
        values.name = cell->text();
    }
    if (const auto* cell = at<MRL_H_TwSimpleLineEditItem>(ACT_COL_DESCRIPTION)) {
        values.title = cell->text();
    }
    if (const auto* cell = at<MRL_H_TwSimpleComboBoxItem>(ACT_COL_PARTITION)) {
        values.partition = cell->getCurrentId();
    }
    if (const auto* cell = at<MRL_H_TwSimpleComboBoxItem>(ACT_COL_SUPERPOSITION)) {
        values.superposition = cell->getCurrentId();
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (const auto* cell = at<MRL_H_TwSimpleLineEditItem>(factor.actionColumn)) {
            values.factors[factor.id] = static_cast<float>(cell->getVal(nullptr));
        } else if (hasColumn(factor.actionColumn)) {
            values.factors[factor.id] = LC_UNDEFINED;
        }
    }
    return lcm_action_record(values, action);
}

std::set<int> lcm_positions(const MRL_H_TableWidget* table, const std::vector<LCM_RowCells>& rows)
{
    std::unordered_set<const QTableWidgetItem*> wanted;
    for (const LCM_RowCells& row : rows) {
        wanted.insert(row.anyCell());
    }
    wanted.erase(nullptr);
    std::set<int> positions;
    for (int row = 0; row < table->rowCount() && !wanted.empty(); ++row) {
        if (wanted.erase(LCM_RowCells(table, row).anyCell()) != 0) {
            positions.insert(positions.end(), row);
        }
    }
    return positions;
}
