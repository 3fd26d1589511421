#include "loadcases/row_actions.h"

#include <utility>

#include "host/mrl_widgets.h"
#include "lcdata/values/keys.h"
#include "loadcases/cell_value.h"
#include "loadcases/load_case_cells.h"
#include "loadcases/table_loadcases.h"
#include "model/working_model.h"
#include "rules/load_case_row.h"

namespace {

/// The code to look a row's id up by: names in old records may be in lower case.
int normalised(int id)
{
    return id == LC_ACTION_NONE || id == LC_ACTION_IMPERFECTION ? id : lcm_upper_code(id);
}

} // namespace

int LCM_RowActions::word(const LCM_LoadCaseCells& cells) const
{
    const int id = cells.actionId();
    if (!isMarker(id)) {
        return id;
    }
    // A row whose marker the user chose came with another word.
    const std::optional<int> kept = cells.keptWord();
    return kept && lcm_lower_code(*kept) == id ? *kept : m_list.codeOf(id);
}

void LCM_RowActions::offerActionsOf(const std::vector<LCM_LoadcaseEntry>& entries)
{
    for (const LCM_LoadcaseEntry& entry : entries) {
        m_list.bind(entry.record.action);
    }
    showIfGrown();
}

void LCM_RowActions::bind(LCM_LoadCaseCells& cells, int code, int word)
{
    auto* combo = MRL_H_TwSimpleComboBoxItem::fromItem(cells[LC_COL_ACTION]);
    if (!combo) {
        return;
    }
    const LCM_ActionList::Binding binding = m_list.bind(code);
    showIfGrown();
    if (combo->getCurrentId() != binding.id) {
        forgetUsed();
    }
    combo->setCurrentId(binding.id);
    cells.keepWord(binding.marker ? std::optional<int>(word) : std::nullopt);
}

void LCM_RowActions::bindAgain(LCM_LoadCaseCells& cells, int code)
{
    const std::optional<int> kept = cells.keptWord();
    bind(cells, code, kept && lcm_lower_code(*kept) == lcm_lower_code(code) ? *kept : code);
}

void LCM_RowActions::takeChoice(LCM_LoadCaseCells& cells)
{
    forgetUsed();
    const int chosen = word(cells);
    cells.keepWord(isMarker(cells.actionId()) ? std::optional<int>(chosen) : std::nullopt);
}

LCM_RowActions::Move LCM_RowActions::replaceList(LCM_ActionList list)
{
    Move move;
    move.former = std::exchange(m_list, std::move(list));
    for (int row = 0; row < m_table.rowCount(); ++row) {
        const int id = lcm_cell_id(m_table.itemOnColId(row, LC_COL_ACTION));
        const auto [entry, isNew] = move.targets.try_emplace(id);
        if (isNew) {
            entry->second.id = m_list.bind(normalised(id)).id;
        }
    }
    for (auto& [id, target] : move.targets) {
        target.changed = id != target.id || move.former.text(id) != m_list.text(target.id);
    }
    show();
    forgetUsed();
    return move;
}

bool LCM_RowActions::move(LCM_LoadCaseCells& cells, const Move& move)
{
    const int id = cells.actionId();
    const Move::Target& target = move.targets.at(id);
    if (!target.changed) {
        return false;
    }
    const int word = move.former.isMarker(id) ? cells.keptWord().value_or(move.former.codeOf(id)) : id;
    if (auto* combo = MRL_H_TwSimpleComboBoxItem::fromItem(cells[LC_COL_ACTION])) {
        combo->setCurrentId(target.id);
    }
    cells.keepWord(isMarker(target.id) ? std::optional<int>(word) : std::nullopt);
    return true;
}

bool LCM_RowActions::isUsed(int id)
{
    if (!m_used) {
        m_used.emplace();
        for (int row = 0; row < m_table.rowCount(); ++row) {
            m_used->insert(lcm_cell_id(m_table.itemOnColId(row, LC_COL_ACTION)));
        }
        // The answer holds for the questions of one command; cells can also be changed from outside.
        QMetaObject::invokeMethod(
            &m_table, [this] { forgetUsed(); }, Qt::QueuedConnection);
    }
    return m_used->count(id) != 0;
}

std::shared_ptr<const LCM_ActionList> LCM_RowActions::snapshot()
{
    if (!m_snapshot) {
        m_snapshot = std::make_shared<const LCM_ActionList>(m_list);
    }
    return m_snapshot;
}

void LCM_RowActions::restore(const LCM_ActionList& list)
{
    m_list = list;
    show();
    forgetUsed();
}

void LCM_RowActions::show()
{
    m_snapshot.reset();
    m_list.takeGrown();
    const MRL_QT_SignalBlocker signalBlocker(&m_table);
    if (auto* header =
            dynamic_cast<MRL_H_TwHeaderComboBoxItem*>(m_table.horizontalHeaderItemOnColId(LC_COL_ACTION))) {
        header->setComboEntries(m_list.entries());
    }
}

void LCM_RowActions::showIfGrown()
{
    if (m_list.takeGrown()) {
        show();
    }
}
