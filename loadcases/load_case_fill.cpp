// The rows of the load-case table: how they show an entry and what entry they mean.

#include "actions/actions_widget.h"
#include "actions/columns.h"
#include "host/mrl_widgets.h"
#include "lcdata/system.h"
#include "lcdata/values/packed_text.h"
#include "loadcases/cell.h"
#include "loadcases/columns.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/row_context.h"
#include "loadcases/table_loadcases.h"
#include "model/data_class.h"

void LCM_LoadcaseWidget::readSystem()
{
    m_gravity = model->gravityDirection();
    m_systemClass = lcm_system_class(db);
}

LCM_RowContext LCM_LoadcaseWidget::rowContext()
{
    LCM_LoadCaseSetup setup;
    for (int column = LC_COL_GAMU; column <= LC_COL_PSI1S; ++column) {
        setup.factorColumns[static_cast<std::size_t>(column - LC_COL_GAMU)] =
            loadcaseTable->getColumnNumber(column) >= 0;
    }
    setup.gravity = m_gravity;
    setup.systemClass = m_systemClass;
    setup.globalDirections = checkDeadload->isChecked();
    return {setup, LCM_ActionLookup(actionsWidget, *model)};
}

void LCM_LoadcaseWidget::fillTable()
{
    readSystem();
    const std::vector<LCM_LoadcaseEntry>& entries = model->loadcases;
    if (!entries.empty()) {
        MRL_QT_SortingBlocker sortingBlocker(loadcaseTable);
        const MRL_QT_UpdateBlocker updateBlocker(loadcaseTable);
        const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
        // All markers at once: each change of the list costs its whole length.
        for (const LCM_LoadcaseEntry& entry : entries) {
            m_actionList.bind(entry.record.action);
        }
        showActionList();
        LCM_RowContext context = rowContext();
        int row = loadcaseTable->rowCount();
        loadcaseTable->appendNewRows(static_cast<int>(entries.size()), MRL_H_TableWidget::CreateCells);
        for (const LCM_LoadcaseEntry& entry : entries) {
            LCM_LoadCaseCells cells(*loadcaseTable, row);
            fillCells(cells, entry, context);
            setRowValid(row, judge(row, cells, context));
            ++row;
        }
        forgetUsedActions();
        sortingBlocker.unblock();
    }
    loadcaseTable->sortByColumn(loadcaseTable->getColumnNumber(LC_COL_NUMBER), Qt::AscendingOrder);
    readSettings();
    loadcaseTable->resizeColumnsToContents();
}

void LCM_LoadcaseWidget::fillRow(int row, const LCM_LoadcaseEntry& entry)
{
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    LCM_RowContext context = rowContext();
    LCM_LoadCaseCells cells(*loadcaseTable, row);
    fillCells(cells, entry, context);
}

void LCM_LoadcaseWidget::fillCells(LCM_LoadCaseCells& cells, const LCM_LoadcaseEntry& entry,
                                   LCM_RowContext& context)
{
    const int word = entry.record.action;
    cells.showNumber(entry.number);
    cells.showTitle(lcm_title_text(entry.record.title));
    bindAction(cells, word, word);
    cells.showDeadWeight(lcm_shown_dead_weight(entry.record, context.setup.gravity));
    cells.showFactors(lcm_shown_factors(entry.record, shownAction(cells, context)),
                      lcm_has_own_factors(word));
}

const tagCDB_LC_ACT* LCM_LoadcaseWidget::shownAction(const LCM_LoadCaseCells& cells, LCM_RowContext& context)
{
    // By the entry that the row shows: it may be the lower-case form of the word that the row came with.
    const int id = cells.actionId();
    return m_actionList.isMarker(id) ? nullptr : context.actions.find(id);
}

void LCM_LoadcaseWidget::readRow(int row, LCM_LoadcaseEntry& entry)
{
    readCells(LCM_LoadCaseCells(*loadcaseTable, row), entry, rowContext());
}

void LCM_LoadcaseWidget::readCells(const LCM_LoadCaseCells& cells, LCM_LoadcaseEntry& entry,
                                   const LCM_RowContext& context)
{
    const LCM_LoadCaseRow row{cells.number(), cells.title(), actionWord(cells), cells.deadWeight(),
                              cells.factors()};
    entry.number = row.number;
    entry.record = lcm_record_of_row(row, context.setup);
}

void LCM_LoadcaseWidget::refreshCells(LCM_LoadCaseCells& cells, LCM_RowContext& context)
{
    tagCDB_LC_CTRL record{};
    record.action = actionWord(cells);
    lcm_store_dead_weight(cells.deadWeight(), context.setup, record);
    lcm_store_factors(cells.factors(), context.setup, record);
    cells.showDeadWeight(lcm_shown_dead_weight(record, context.setup.gravity));
    cells.showFactors(lcm_shown_factors(record, shownAction(cells, context)),
                      lcm_has_own_factors(record.action));
}

void LCM_LoadcaseWidget::setItemVal(int row, int colId, float val, bool enabled)
{
    QTableWidgetItem* cell = loadcaseTable->itemOnColId(row, colId);
    const bool asksAction = val == LC_UNDEFINED && MRL_H_TwEditableComboBoxItem::fromItem(cell);
    lcm_set_cell_value(cell, val, enabled, asksAction ? getActionVal(row, colId) : LC_UNDEFINED);
    if (cell && colId == LC_COL_NUMBER) {
        cell->setData(Qt::DisplayRole, static_cast<int>(val));
    }
}

float LCM_LoadcaseWidget::getItemVal(int row, int colId)
{
    return lcm_cell_value(loadcaseTable->itemOnColId(row, colId));
}

QString LCM_LoadcaseWidget::getItemText(int row, int colId)
{
    return lcm_cell_text(loadcaseTable->itemOnColId(row, colId));
}

bool LCM_LoadcaseWidget::isItemFromAction(int row, int colId)
{
    return lcm_cell_from_action(loadcaseTable->itemOnColId(row, colId));
}

void LCM_LoadcaseWidget::setItemFromAction(int row, int colId, bool fromAction)
{
    lcm_set_cell_from_action(loadcaseTable->itemOnColId(row, colId), fromAction);
}

void LCM_LoadcaseWidget::setActionItem(int row, int colId, int code)
{
    if (colId != LC_COL_ACTION) {
        return;
    }
    LCM_LoadCaseCells cells(*loadcaseTable, row);
    const int lower = lcm_lower_code(code);
    const auto kept = cells.keptWord();
    bindAction(cells, code, kept && lcm_lower_code(*kept) == lower ? *kept : code);
}

void LCM_LoadcaseWidget::bindAction(LCM_LoadCaseCells& cells, int code, int word)
{
    auto* combo = MRL_H_TwSimpleComboBoxItem::fromItem(cells[LC_COL_ACTION]);
    if (!combo) {
        return;
    }
    const LCM_ActionList::Binding binding = m_actionList.bind(code);
    showActionList();
    if (combo->getCurrentId() != binding.id) {
        forgetUsedActions();
    }
    combo->setCurrentId(binding.id);
    cells.keepWord(binding.marker ? std::optional<int>(word) : std::nullopt);
}

int LCM_LoadcaseWidget::actionWord(const LCM_LoadCaseCells& cells) const
{
    const int id = cells.actionId();
    return m_actionList.isMarker(id) ? keptWordFor(cells, id) : id;
}

int LCM_LoadcaseWidget::keptWordFor(const LCM_LoadCaseCells& cells, int markerId) const
{
    // A row whose marker the user chose himself came with another word.
    const std::optional<int> kept = cells.keptWord();
    return kept && lcm_lower_code(*kept) == markerId ? *kept : m_actionList.codeOf(markerId);
}

void LCM_LoadcaseWidget::showActionList()
{
    if (m_actionList.takeGrown()) {
        setActionEntries();
    }
}

void LCM_LoadcaseWidget::setActionEntries()
{
    m_actionList.takeGrown();
    const MRL_QT_SignalBlocker signalBlocker(loadcaseTable);
    if (auto* header = dynamic_cast<MRL_H_TwHeaderComboBoxItem*>(
            loadcaseTable->horizontalHeaderItemOnColId(LC_COL_ACTION))) {
        header->setComboEntries(m_actionList.entries());
    }
}

int LCM_LoadcaseWidget::numberOfRow(int row) const
{
    return lcm_cell_number(loadcaseTable->itemOnColId(row, LC_COL_NUMBER));
}
