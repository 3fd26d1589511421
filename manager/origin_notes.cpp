#include "manager/origin_notes.h"

#include <QLabel>
#include <QMenu>
#include <QTabWidget>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "check/factor_origin.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/roles.h"
#include "loadcases/cell_value.h"
#include "loadcases/loadcase_widget.h"
#include "manager/reinit_changes.h"
#include "rules/action_columns.h"
#include "rules/load_case_columns.h"

namespace {

MRL_H_CellNote noteOf(const LCM_FactorOrigin& origin) { return {origin.text, origin.differs}; }

QString captionOf(const MRL_H_TableWidget& table, int column)
{
    const QTableWidgetItem* header = table.horizontalHeaderItem(column);
    return header ? header->text() : QString();
}

MRL_H_CellNote actionNote(const MRL_H_TableWidget& table, int row, int column)
{
    const LCM_Factor* factor = lcm_factor_of_action_column(table.getColumnId(column));
    const QTableWidgetItem* name = factor ? table.itemOnColId(row, ACT_COL_ACTION) : nullptr;
    return name ? noteOf(lcm_factor_origin(name->data(ROLE_ACTION_CODE).toInt(), *factor,
                                           captionOf(table, column), lcm_cell_value(table.item(row, column))))
                : MRL_H_CellNote();
}

/// Of the action whose factors the row shows; a load case without one has factors of its own.
MRL_H_CellNote loadCaseNote(const MRL_H_TableWidget& table, int row, int column)
{
    const LCM_Factor* factor = lcm_factor_of_load_case_column(table.getColumnId(column));
    const int action = factor ? lcm_cell_id(table.itemOnColId(row, LC_COL_ACTION)) : 0;
    return action < LC_BLANK_WORD ? MRL_H_CellNote()
                                  : noteOf(lcm_factor_origin(action, *factor, captionOf(table, column),
                                                             lcm_cell_value(table.item(row, column))));
}

/// The notes on all cells of a row, a line each.
QString helpOfRow(const MRL_H_TableWidget& table,
                  MRL_H_CellNote (*noteOn)(const MRL_H_TableWidget&, int, int), int row)
{
    QStringList lines;
    for (int column = 0; row >= 0 && column < table.columnCount(); ++column) {
        const QString text = table.isColumnHidden(column) ? QString() : noteOn(table, row, column).text;
        if (!text.isEmpty()) {
            lines << text;
        }
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace

LCM_OriginNotes::LCM_OriginNotes(const LCM_HistoryTabs& tabs, QLabel& line, QObject* parent)
    : QObject(parent), m_tabs(tabs), m_line(line)
{
    if (&mrl_h_set_cell_notes == nullptr) { // the host may leave it out
        m_line.hide();
        return;
    }
    if (m_tabs.actions) {
        follow(m_tabs.actions, actionNote);
        m_tabs.actions->actionsTable()->setMenuExtension([this](QMenu& menu) { fillMenu(menu); });
    }
    if (m_tabs.loadCases) {
        follow(m_tabs.loadCases, loadCaseNote);
    }
    connect(m_tabs.pages, &QTabWidget::currentChanged, this, &LCM_OriginNotes::showCurrent);
}

LCM_OriginNotes::~LCM_OriginNotes() = default;

void LCM_OriginNotes::follow(LCM_TabInterface* tab, NoteOn noteOn)
{
    MRL_H_TableWidget* table = tab->tableWidget();
    mrl_h_set_cell_notes(*table,
                         [table, noteOn](int row, int column) { return noteOn(*table, row, column); });
    connect(table, &QTableWidget::currentCellChanged, this, &LCM_OriginNotes::showCurrent);
    connect(table, &QTableWidget::cellChanged, this, &LCM_OriginNotes::showCurrent);
}

void LCM_OriginNotes::showCurrent()
{
    auto* tab = qobject_cast<LCM_TabInterface*>(m_tabs.pages->currentWidget());
    if (!tab) {
        return;
    }
    MRL_H_TableWidget* table = tab->tableWidget();
    const NoteOn noteOn = tab == m_tabs.actions ? actionNote : loadCaseNote;
    const int row = table->currentRow();
    const int column = table->currentColumn();
    m_line.setText(row < 0 || column < 0 ? QString() : noteOn(*table, row, column).text);
    table->setWhatsThis(helpOfRow(*table, noteOn, row));
}

void LCM_OriginNotes::fillMenu(QMenu& menu)
{
    constexpr std::size_t MOST = 25;
    const auto changes = lcm_reinit_changes(*m_tabs.actions);
    if (changes.empty()) {
        menu.addAction(tr("Reinit would change nothing"))->setEnabled(false);
        return;
    }
    QMenu* list = menu.addMenu(tr("Reinit would change (%1)").arg(changes.size()));
    list->setObjectName(QStringLiteral("menu_reinit_changes"));
    MRL_H_TableWidget* table = m_tabs.actions->tableWidget();
    for (std::size_t i = 0; i < std::min(MOST, changes.size()); ++i) {
        // An entry goes to its cell, so that keyboards and screen readers reach it.
        connect(list->addAction(changes[i].text), &QAction::triggered, table,
                [table, change = changes[i]] { table->setCurrentCell(change.row, change.column); });
    }
    if (changes.size() > MOST) {
        list->addAction(tr("and %1 more").arg(changes.size() - MOST))->setEnabled(false);
    }
}
