#include "hostlib/ui/table/assisted_paste.h"

#include <algorithm>

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/number_text.h"
#include "hostlib/ui/table/selection.h"
#include "hostlib/ui/table/table_private.h"

namespace mrl::table {

namespace {

/// The definition of the column that a cell stands in; null without a cell.
const MRL_H_TwColumn* columnOf(const MRL_H_TableWidget& table, int row, int column)
{
    const MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(table.item(row, column));
    return cell == nullptr ? nullptr : MRL_H_TwCellAccess::column(*cell);
}

bool holdsNumber(const MRL_H_TwItem& cell, const MRL_H_TwColumn& column, const QString& text)
{
    const auto* line = MRL_H_TwSimpleLineEditItem::fromItem(&cell);
    const auto number = parseNumber(text);
    return column.isNumber() && line != nullptr && number.has_value() &&
           column.numberText(column.kept(*number)) == column.numberText(MRL_H_TwCellAccess::number(*line));
}

bool holdsChoice(const MRL_H_TwColumn& column, const QString& shown, const QString& text)
{
    const ComboList* entry = column.kind == MRL_H_TwColumn::Kind::Combo ? column.entryOfText(text) : nullptr;
    return entry != nullptr && entry->text == shown;
}

bool isEmpty(const QStringList& line)
{
    return std::all_of(line.begin(), line.end(),
                       [](const QString& field) { return field.trimmed().isEmpty(); });
}

/// Why a cell doesn't hold what was entered; empty when it does.
QString whyNot(const MRL_H_TwItem& cell, const QString& text)
{
    const MRL_H_TwColumn& column = *MRL_H_TwCellAccess::column(cell);
    const QString shown = MRL_H_TwCellAccess::text(cell);
    if (shown.trimmed() == text.trimmed() || holdsNumber(cell, column, text) ||
        holdsChoice(column, shown, text)) {
        return {};
    }
    QString wrongNumber = reasonOfRefusal(column, text);
    if (!wrongNumber.isEmpty()) {
        return wrongNumber;
    }
    if (column.kind == MRL_H_TwColumn::Kind::Combo && column.entryOfText(text) == nullptr) {
        return MRL_H_TableWidget::tr("\"%1\" is none of the choices.").arg(text);
    }
    return cell.isEnabled() ? MRL_H_TableWidget::tr("The cell holds \"%1\" now.").arg(shown)
                            : MRL_H_TableWidget::tr("The cell can't be changed.");
}

} // namespace

void AssistedPaste::run(const std::vector<QStringList>& lines)
{
    Paste paste = plannedPaste(m_table, lines);
    if (m_table.rowCount() == 0) {
        paste.columns = shownColumns(m_table);
    } else if (paste.rows.empty()) {
        return;
    }
    m_helper.begin();
    // Spreadsheets end a block with empty lines where empty rows were marked.
    std::vector<QStringList> filled = lines;
    while (filled.size() > paste.rows.size() && isEmpty(filled.back())) {
        filled.pop_back();
    }
    for (const Entry& entry : paste.entries) {
        add(entry.row, entry.column, entry.text);
    }
    refuseSurplusFields(filled, paste);
    makeRows(filled, paste);
    enterAll(pastedCells(paste));
    tellUntaken();
    m_helper.end(m_values, m_refused);
}

void AssistedPaste::refuseSurplusFields(const std::vector<QStringList>& lines, const Paste& paste)
{
    for (std::size_t line = 0; line < std::min(paste.rows.size(), lines.size()); ++line) {
        for (int field = static_cast<int>(paste.columns.size()); field < lines[line].size(); ++field) {
            refuse(paste.rows[line], -1, lines[line].at(field),
                   MRL_H_TableWidget::tr("There is no column for it."));
        }
    }
}

/// To be selected, so that those who judge the selected rows at a change also judge the rows that came; empty when the
/// selection is the same already.
QItemSelection AssistedPaste::pastedCells(const Paste& paste) const
{
    QItemSelection cells = paste.cells;
    if (m_made.empty()) {
        return cells;
    }
    const QAbstractItemModel& model = *m_table.model();
    for (const int column : paste.columns) {
        const int first = paste.rows.empty() ? m_made.front() : paste.rows.front();
        cells.select(model.index(first, column), model.index(m_made.back(), column));
    }
    return cells;
}

void AssistedPaste::makeRows(const std::vector<QStringList>& lines, const Paste& paste)
{
    if (lines.size() <= paste.rows.size()) {
        return;
    }
    const std::vector<QStringList> surplus(lines.begin() + static_cast<std::ptrdiff_t>(paste.rows.size()),
                                           lines.end());
    std::vector<int> ids;
    ids.reserve(paste.columns.size());
    for (const int column : paste.columns) {
        ids.push_back(columnId(column));
    }
    const std::vector<MRL_H_NewRow> made = m_helper.makeRows(surplus, ids);
    for (std::size_t line = 0; line < surplus.size(); ++line) {
        if (made[line].row >= 0) {
            m_made.push_back(made[line].row);
        }
        for (int field = 0; field < surplus[line].size(); ++field) {
            const auto place = static_cast<std::size_t>(field);
            const int column = place < paste.columns.size() ? paste.columns[place] : -1;
            if (made[line].row >= 0 && column >= 0) {
                add(made[line].row, column, surplus[line].at(field));
            } else {
                refuse(made[line].row, column, surplus[line].at(field),
                       made[line].row < 0 ? made[line].reason
                                          : MRL_H_TableWidget::tr("There is no column for it."));
            }
        }
    }
}

void AssistedPaste::add(int row, int column, const QString& text)
{
    const MRL_H_TwColumn* definition = columnOf(m_table, row, column);
    if (definition != nullptr && definition->isNumber() && text.trimmed().isEmpty()) {
        return;
    }
    QString meant = text;
    const QString reason = m_helper.understand(columnId(column), meant);
    if (!reason.isEmpty()) {
        refuse(row, column, text, reason);
        return;
    }
    const bool isChoice = definition != nullptr && definition->kind == MRL_H_TwColumn::Kind::Combo;
    (isChoice ? m_choices : m_others).push_back({row, column, meant, std::nullopt});
    ++m_values;
}

void AssistedPaste::refuse(int row, int column, const QString& text, const QString& reason)
{
    m_refused.push_back({row, columnId(column), text, reason});
    ++m_values;
}

void AssistedPaste::enterAll(const QItemSelection& cells)
{
    for (const auto* entries : {&m_choices, &m_others}) {
        m_entry.enter(*entries, MRL_H_TableJournalListener::Entry::Pasted, cells);
    }
}

void AssistedPaste::tellUntaken()
{
    for (const auto* entries : {&m_choices, &m_others}) {
        for (const Entry& entry : *entries) {
            const MRL_H_TwItem* cell = MRL_H_TwItem::fromItem(m_table.item(entry.row, entry.column));
            const QString reason = cell == nullptr ? MRL_H_TableWidget::tr("The cell can't be changed.")
                                                   : whyNot(*cell, entry.text);
            if (!reason.isEmpty()) {
                m_refused.push_back({entry.row, columnId(entry.column), entry.text, reason});
            }
        }
    }
    std::stable_sort(m_refused.begin(), m_refused.end(),
                     [](const MRL_H_RefusedValue& a, const MRL_H_RefusedValue& b) {
                         // What has no row comes last.
                         return static_cast<unsigned>(a.row) < static_cast<unsigned>(b.row);
                     });
}

} // namespace mrl::table

MRL_H_PasteHelper::~MRL_H_PasteHelper() = default;

void mrl_h_set_paste_helper(MRL_H_TableWidget& table, MRL_H_PasteHelper* helper)
{
    MRL_H_TableWidget::Private::of(table).pasteHelper = helper;
}
