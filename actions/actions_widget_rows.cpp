// How the table of the actions tab is made and filled, and how its rows are judged.

#include <QFontMetrics>
#include <QHeaderView>

#include <algorithm>

#include "actions/action_columns_setup.h"
#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "actions/command_log.h"
#include "actions/row_cells.h"
#include "actions/table_helpers.h"
#include "host/mrl_widgets.h"
#include "lcdata/values/action_code.h"
#include "model/working_model.h"
#include "rules/action_columns.h"
#include "rules/action_row.h"
#include "rules/project_setup.h"

namespace {

constexpr int ROWS_TO_FIT = 100; ///< how many rows the widths of the columns go by

/// An action that gets a row, with the text of its name cell.
struct Shown
{
    QString name;
    const tagCDB_LC_ACT* record;
};

/// All active entries, sorted by name as the rows will stand: sorting records costs less than sorting rows. A
/// parent's state says nothing about its children.
std::vector<Shown> activeRecords(const LCM_DataClass& model)
{
    std::vector<Shown> shown;
    const auto add = [&shown](const LCM_SubAction& entry) {
        if (entry.state == LCM_STATE_ACTIVE) {
            shown.push_back({lcm_code_text(lcm_action_code(entry.record)), &entry.record});
        }
    };
    for (const LCM_ActionEntry* entry : model.actions) {
        add(*entry);
        for (const LCM_SubAction* child : entry->subActions) {
            add(*child);
        }
    }
    std::stable_sort(shown.begin(), shown.end(),
                     [](const Shown& a, const Shown& b) { return a.name < b.name; });
    return shown;
}

} // namespace

void LCM_ActionsWidget::setupTable()
{
    m_actionsTable = new MRL_LC_ActionsTable(4 + model->optionalColumnCount(), this, "actions table");
    table = m_actionsTable;
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    // Measuring a cell costs more than filling it, and the first rows are a fair sample.
    table->horizontalHeader()->setResizeContentsPrecision(ROWS_TO_FIT);
    QHeaderView* rows = table->verticalHeader();
    rows->setSectionResizeMode(QHeaderView::Fixed);
    rows->setDefaultSectionSize(rows->fontMetrics().height() + 8);
    table->setResetContextMenuOnCreation(true);
    table->activateSearchEnabled(false);
    table->setMultiEditingEnabled(true);
    table->setContextmenueEnabled_new_del(false);
    lcm_create_action_columns(table, model);
    mrl_connect(table, "2cellChanged( int, int )", this, "1slot_cellChanged( int, int )", Qt::AutoConnection);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    table->resizeColumnsToContents();
    table->setSortingEnabled(true);
}

void LCM_ActionsWidget::fillTable()
{
    {
        const MRL_QT_SignalBlocker signalBlocker(table);
        MRL_QT_SortingBlocker sortingBlocker(table);
        const std::vector<Shown> actions = activeRecords(*model);
        int row = table->rowCount();
        table->appendNewRows(static_cast<int>(actions.size()), MRL_H_TableWidget::CreateCells);
        for (const Shown& action : actions) {
            fillRow(row++, *action.record, true);
        }
        sortingBlocker.unblock();
        table->sortByColumn(table->getColumnNumber(ACT_COL_ACTION), Qt::AscendingOrder);
    }
    emit signal_actionCountChanged();
    table->resizeColumnsToContents();
}

void LCM_ActionsWidget::fillRow(int row, const tagCDB_LC_ACT& action, bool check)
{
    fillRow(LCM_RowCells(table, row), action, check);
}

void LCM_ActionsWidget::fillRow(const LCM_RowCells& cells, const tagCDB_LC_ACT& action, bool check)
{
    const MRL_QT_SignalBlocker signalBlocker(table);
    cells.show(action);
    if (check) {
        cells.setValid(checkRow(cells));
    }
}

LCM_ErrorList LCM_ActionsWidget::errorsOf(int row) const { return errorsOf(LCM_RowCells(table, row)); }

LCM_ErrorList LCM_ActionsWidget::errorsOf(const LCM_RowCells& cells) const
{
    tagCDB_LC_ACT action;
    cells.read(action);
    return lcm_error_list(lcm_check_action(action, *model->availabilityRecord(), lcm_active_design_code()));
}

bool LCM_ActionsWidget::checkRow(const LCM_RowCells& cells)
{
    MRL_QT_UpdateBlocker updateBlocker(table);
    MRL_QT_SignalBlocker signalBlocker(table);
    const LCM_ErrorList errors = errorsOf(cells);
    cells.markErrors(errors);
    updateBlocker.unblock();
    signalBlocker.unblock();
    return errors.empty();
}

void LCM_ActionsWidget::judgeAllRows()
{
    const LCM_CommandScope command(commandLog(), LCM_Command::CheckAgain);
    const MRL_QT_SignalBlocker signalBlocker(table);
    std::vector<LCM_RowCells> all; // taken first: colouring can move rows of a sorted table
    all.reserve(static_cast<std::size_t>(table->rowCount()));
    for (int row = 0; row < table->rowCount(); ++row) {
        all.emplace_back(table, row);
    }
    for (const LCM_RowCells& cells : all) {
        cells.setValid(checkRow(cells));
    }
}

void LCM_ActionsWidget::slot_cellChanged(int row, int col)
{
    modified = true;
    rowCacheDirty = true;
    // Taken before the judgement: colouring can move rows of a sorted table, and the signal must name the
    // edited row.
    const LCM_RowCells edited(table, row);
    std::vector<LCM_RowCells> selected;
    for (const int selectedRow : getSelectedRows(table)) {
        selected.emplace_back(table, selectedRow);
    }
    for (const LCM_RowCells& cells : selected) {
        cells.setValid(checkRow(cells));
    }
    emit signal_actionValuesChanged(edited.position(), col);
}

QString LCM_ActionsWidget::cellText(int row, int column) const
{
    const auto* cell = LCM_RowCells(table, row).at<MRL_H_TwSimpleLineEditItem>(column);
    return cell == nullptr ? QString() : cell->text();
}
