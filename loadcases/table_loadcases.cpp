#include "loadcases/table_loadcases.h"

#include <QCursor>
#include <QItemSelectionModel>

#include "actions/table_helpers.h"
#include "lcdata/values/records.h"
#include "loadcases/cell_value.h"
#include "loadcases/loadcase_widget.h"
#include "rules/load_case_row.h"

TableLoadCases::TableLoadCases(int columns, LCM_LoadcaseWidget* tab, const char* name)
    : MRL_H_TableWidget(0, columns, tab, name), m_widget(tab)
{
    setResetContextMenuOnCreation(true);
    deleteUnusedAction =
        new MRL_QT_Action(LCM_LoadcaseWidget::tr("Delete unused loadcases"), this, "delete unused loadcases");
    mrl_connect(deleteUnusedAction, "2triggered( bool )", m_widget, "2signal_deleteUnusedLoadcases( )",
                Qt::AutoConnection);
}

TableLoadCases::~TableLoadCases() = default;

void TableLoadCases::contextMenuEvent(QContextMenuEvent*)
{
    MRL_QT_Menu* menu = getContextMenu();
    menu->addSeparator();
    menu->addAction(deleteUnusedAction);
    menu->exec(QCursor::pos(), nullptr);
}

int TableLoadCases::numberOfRow(int row) const { return lcm_cell_number(itemOnColId(row, LC_COL_NUMBER)); }

std::vector<int> TableLoadCases::numbers() const
{
    const int column = getColumnNumber(LC_COL_NUMBER);
    std::vector<int> numbers(static_cast<std::size_t>(rowCount()));
    int row = 0;
    for (int& number : numbers) {
        number = lcm_cell_number(item(row++, column));
    }
    return numbers;
}

void TableLoadCases::selectWholeRows(const std::set<int>& rows, int current)
{
    // Adjacent rows become one range, since each range of a selection costs.
    QItemSelection selection;
    const QAbstractItemModel* items = model();
    const int lastColumn = columnCount() - 1;
    for (auto first = rows.begin(); first != rows.end();) {
        auto last = first;
        for (auto next = std::next(last); next != rows.end() && *next == *last + 1; ++next) {
            last = next;
        }
        selection.append(QItemSelectionRange(items->index(*first, 0), items->index(*last, lastColumn)));
        first = std::next(last);
    }
    selectionModel()->setCurrentIndex(items->index(current, 0), QItemSelectionModel::NoUpdate);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

void removeSelectedRows(TableLoadCases* table) { removeRows(table, getSelectedRows(table)); }

MyDelegate::MyDelegate(TableLoadCases* loadcases, LCM_LoadcaseWidget* tab)
    : MRL_H_DelegateItem(loadcases), m_table(loadcases), m_widget(tab)
{
    mrl_connect(this, "2closeEditor( QWidget*, QAbstractItemDelegate::EndEditHint )", this,
                "1slot_closeEditor( QWidget*, QAbstractItemDelegate::EndEditHint )", Qt::AutoConnection);
}

QWidget* MyDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const
{
    QWidget* editor = MRL_H_DelegateItem::createEditor(parent, option, index);
    if (!index.isValid() || !lcm_is_factor_column(m_table->getColumnId(index.column()))) {
        return editor;
    }
    const int action = lcm_cell_id(m_table->itemOnColId(m_table->currentRow(), LC_COL_ACTION));
    auto* combo = qobject_cast<MRL_QT4_ComboBox*>(editor);
    if (!combo) {
        return editor;
    }
    auto* line = qobject_cast<MRL_H_LineEdit*>(combo->lineEdit());
    if (lcm_has_own_factors(action)) {
        if (line) {
            line->getStrLineEdit().thirdBound = 0.0;
        }
        combo->clear();
        return editor;
    }
    const QString text = LCM_LoadcaseWidget::tr("Use from Action");
    if (line) {
        StrLineEdit description = line->getStrLineEdit();
        description.format = -3;
        description.text = text;
        description.value = static_cast<double>(LC_UNDEFINED);
        line->updateVal(description);
    }
    combo->setCurrentText(text);
    if (QTableWidgetItem* cell = m_table->currentItem()) {
        cell->setText(text);
    }
    return editor;
}

void MyDelegate::slot_closeEditor(QWidget*, QAbstractItemDelegate::EndEditHint) {}
