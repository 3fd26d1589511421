#include "tests/history/snapshot.h"

#include <QTabWidget>

#include <algorithm>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "lcdata/values/roles.h"
#include "loadcases/action_list.h"
#include "loadcases/loadcase_widget.h"

namespace mrl::test {

namespace {

QString cellText(const QTableWidgetItem& cell)
{
    QStringList parts{cell.text()};
    if (const auto* number = MRL_H_TwSimpleLineEditItem::fromItem(&cell)) {
        parts << QString::number(number->getVal(nullptr), 'g', 17);
    }
    if (const auto* choice = MRL_H_TwSimpleComboBoxItem::fromItem(&cell)) {
        parts << QStringLiteral("id %1").arg(choice->getCurrentId());
    }
    parts << cell.foreground().color().name() << cell.toolTip() << QString::number(int(cell.flags()));
    for (const int role : {ROLE_ACTION_CODE, ROLE_ROW_VALID, ROLE_FROM_ACTION}) {
        const QVariant value = cell.data(role);
        parts << (value.isValid() ? value.toString() : QStringLiteral("-"));
    }
    return parts.join('|');
}

void addTab(const LCM_TabInterface* tab, Places places, QStringList& lines)
{
    if (!tab) {
        return;
    }
    const MRL_H_TableWidget& table = *tab->tableWidget();
    lines << QStringLiteral("modified %1").arg(tab->isModified());
    QStringList rows;
    for (int row = 0; row < table.rowCount(); ++row) {
        QString line;
        for (int column = 0; column < table.columnCount(); ++column) {
            const QModelIndex index = table.model()->index(row, column);
            line += cellText(*table.item(row, column));
            line += table.selectionModel()->isSelected(index) ? QStringLiteral(" selected") : QString();
            line += index == table.currentIndex() ? QStringLiteral(" current; ") : QStringLiteral("; ");
        }
        rows << line;
    }
    if (places == Places::DontCount) {
        std::sort(rows.begin(), rows.end());
    }
    lines << rows;
}

QString entryText(const LCM_SubAction& entry)
{
    return QStringLiteral("%1 %2 %3 %4")
        .arg(reinterpret_cast<quintptr>(&entry))
        .arg(entry.state)
        .arg(entry.code)
        .arg(QString::fromLatin1(
            QByteArray(reinterpret_cast<const char*>(&entry.record), sizeof entry.record).toHex()));
}

void addModel(LCM_DataClass& model, QStringList& lines)
{
    for (const LCM_ActionEntry* parent : model.actions) {
        lines << entryText(*parent);
        for (const LCM_SubAction* child : parent->subActions) {
            lines << entryText(*child);
        }
    }
    QString numbers = QStringLiteral("numbers");
    for (const int number : model.getUsedLoadcaseNumbers()) {
        numbers += QStringLiteral(" %1").arg(number);
    }
    lines << numbers;
}

} // namespace

QStringList snapshotOf(const LCM_HistoryTabs& tabs, Places places)
{
    QStringList lines{QStringLiteral("front %1").arg(tabs.pages->currentIndex())};
    addTab(tabs.actions, places, lines);
    addTab(tabs.loadCases, places, lines);
    if (tabs.loadCases) {
        for (const LCM_LoadcaseCopy& copy : tabs.loadCases->getCopies()) {
            lines << QStringLiteral("copy %1 %2 %3").arg(copy.source).arg(copy.target).arg(copy.factor);
        }
        QStringList offered;
        for (const ComboList& entry : tabs.loadCases->offeredActions()->entries()) {
            offered << QStringLiteral("offered %1 %2").arg(entry.id).arg(entry.text);
        }
        lines << offered;
    }
    if (tabs.actions) {
        for (const auto& [code, action] : tabs.actions->getActionMap()) {
            lines << QStringLiteral("known %1 %2").arg(code).arg(static_cast<double>(action.gamu));
        }
    }
    addModel(tabs.model(), lines);
    return lines;
}

} // namespace mrl::test
