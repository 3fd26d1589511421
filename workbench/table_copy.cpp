#include "workbench/table_copy.h"

#include <QAction>
#include <QCoreApplication>
#include <QHeaderView>
#include <QTableView>

#include <algorithm>

#include "hostlib/ui/table/clipboard.h"

namespace mrl::workbench {

namespace {

/// The logical columns in sight, as they stand on the screen.
std::vector<int> shownColumns(const QTableView& table)
{
    std::vector<int> columns;
    const QHeaderView* header = table.horizontalHeader();
    for (int place = 0; place < header->count(); ++place) {
        const int column = header->logicalIndex(place);
        if (!header->isSectionHidden(column)) {
            columns.push_back(column);
        }
    }
    return columns;
}

std::vector<int> selectedRows(const QTableView& table)
{
    std::vector<int> rows;
    for (const QItemSelectionRange& range : table.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            rows.push_back(row);
        }
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void copy(const QTableView& table, table::Captions captions)
{
    const std::vector<int> columns = shownColumns(table);
    const std::vector<int> rows = selectedRows(table);
    if (rows.empty()) {
        return;
    }
    std::vector<QStringList> block;
    const auto add = [&](const auto& textOf) {
        block.emplace_back();
        for (const int column : columns) {
            block.back() << textOf(column);
        }
    };
    if (captions == table::Captions::Copy) {
        add([&](int column) { return table.model()->headerData(column, Qt::Horizontal).toString(); });
    }
    for (const int row : rows) {
        add([&](int column) { return table.model()->index(row, column).data().toString(); });
    }
    table::copyToClipboard(block, captions);
}

void addCommand(QTableView& table, const QString& text, const QKeySequence& key, table::Captions captions)
{
    auto* command = new QAction(text, &table);
    command->setShortcut(key);
    command->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(command, &QAction::triggered, &table, [&table, captions] { copy(table, captions); });
    table.addAction(command);
}

QString text(const char* english) { return QCoreApplication::translate("Workbench", english); }

} // namespace

void addCopyCommands(QTableView& table)
{
    addCommand(table, text(QT_TRANSLATE_NOOP("Workbench", "&Copy")), QKeySequence::Copy,
               table::Captions::Leave);
    addCommand(table, text(QT_TRANSLATE_NOOP("Workbench", "Copy with &headings")),
               QKeySequence(QStringLiteral("Ctrl+Shift+C")), table::Captions::Copy);
    table.setContextMenuPolicy(Qt::ActionsContextMenu);
}

} // namespace mrl::workbench
