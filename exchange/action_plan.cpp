#include <algorithm>
#include <map>

#include "exchange/decimals.h"
#include "exchange/planning.h"
#include "exchange/raw_records.h"
#include "exchange/record_cells.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/partition.h"
#include "rules/action_row.h"
#include "rules/new_action_name.h"

namespace mrl::exchange {

namespace {

/// Plans one row.
class ActionRow : RowPlan
{
  public:
    using RowPlan::RowPlan;

    void plan()
    {
        m_row.name = m_cells.text(ACTION_NAME);
        m_row.id = codeOfName();
        const auto stored = m_state.actions.find(m_row.id);
        m_row.isNew = stored == m_state.actions.end();
        if (m_row.isNew) {
            checkName();
        } else {
            m_row.action->stored = stored->second.record;
        }
        m_row.action->wanted = m_row.isNew ? newRecord() : m_row.action->stored;
        if (m_row.outcome == Outcome::Refused) {
            return;
        }
        changeTexts();
        if (m_row.isNew) {
            takeDefaultFactors();
        }
        changeFactors();
        conclude(m_row, bytesOf(m_row.action->wanted) == bytesOf(m_row.action->stored));
        if (isWritten()) {
            refuse(m_row, lcm_check_action(asShown(), m_state.limits, m_state.identity));
        }
    }

  private:
    /// A stored action as it stands, else in upper case.
    int codeOfName() const
    {
        const QString name = QString::fromStdString(m_row.name);
        const int typed = lcm_pack_word(name);
        return m_state.actions.count(typed) != 0 ? typed : lcm_normalise_code(name);
    }
    /// Judges the name of a new action as the dialog does.
    void checkName()
    {
        const LCM_TypedName name = lcm_typed_name(QString::fromStdString(m_row.name));
        if (name.action.isEmpty()) {
            refuse(m_row, "import-no-name", {QT_TRANSLATE_NOOP("Exchange", "the row names no action")});
        }
        const auto finding = lcm_check_whole_name(name);
        if (finding && m_row.outcome != Outcome::Refused) {
            refuse(m_row, {*finding});
        }
    }
    /// A variable action without factors, as the dialog makes one whose name is typed.
    tagCDB_LC_ACT newRecord() const
    {
        LCM_ActionCells cells;
        cells.name = lcm_code_text(m_row.id);
        cells.partition = LC_CATEGORY_VARIABLE;
        cells.superposition = LC_SUPERPOSITION_EXCL;
        tagCDB_LC_ACT record{};
        lcm_action_record(cells, record);
        return record;
    }
    template <class List>
    int idOf(const List& list, std::size_t place, int old)
    {
        const std::string text = QString::fromStdString(m_cells.text(place)).toUpper().toStdString();
        if (text.empty() || text == lcm_word_of_id(list, old)) {
            return old;
        }
        const auto id = lcm_id_of_word(list, text);
        if (!id) {
            refuse(m_row, "import-unknown-word",
                   {QT_TRANSLATE_NOOP("Exchange", "\"%1\" of \"%2\" is none of %3"),
                    {text, columnsOf(Sheet::Actions)[place].name, lcm_joined_words(list)}});
        }
        return id.value_or(old);
    }
    void changeTexts()
    {
        changeTitle(ACTION_TITLE, m_row.action->wanted.title);
        const int partition = lcm_partition_id(m_row.action->wanted.partition);
        const int superposition = lcm_superposition_id(m_row.action->wanted.partition);
        const int newPartition = idOf(LCM_PARTITIONS, ACTION_PARTITION, partition);
        const int newSuperposition = idOf(LCM_SUPERPOSITIONS, ACTION_SUPERPOSITION, superposition);
        if (newPartition != partition || newSuperposition != superposition) {
            m_row.action->wanted.partition = lcm_partition_word(newPartition, newSuperposition);
        }
    }
    /// The factors that a row doesn't state are those of the design code.
    void takeDefaultFactors()
    {
        const auto found = defaultCode();
        if (!found) {
            return;
        }
        const int code = *found;
        for (const LCM_Factor& factor : LCM_FACTORS) {
            m_row.action->wanted.*factor.actionField = m_state.defaultActions.at(code).*factor.actionField;
        }
        if (!statesAllFactors()) {
            m_row.notes.push_back(
                {QT_TRANSLATE_NOOP("Exchange",
                                   "factors that the row doesn't state are those of %1 of the design code"),
                 {lcm_code_name(code).toStdString()}});
        }
    }
    /// The action of the same name, else that which the row resembles, else the first one of its category.
    std::optional<int> defaultCode() const
    {
        const auto& defaults = m_state.defaultActions;
        const int like = lcm_pack_word(QString::fromStdString(m_cells.row().like));
        for (const int code : {m_row.id, like}) {
            if (defaults.count(code) != 0) {
                return code;
            }
        }
        const auto category = [](const tagCDB_LC_ACT& action) { return action.partition & 0xF0; };
        const auto alike =
            std::find_if(m_state.defaultOrder.begin(), m_state.defaultOrder.end(), [&](int code) {
                return category(defaults.at(code)) == category(m_row.action->wanted);
            });
        return alike == m_state.defaultOrder.end() ? std::nullopt : std::optional<int>(*alike);
    }
    bool statesAllFactors() const
    {
        for (std::size_t i = ACTION_SUPERPOSITION + 1; i < columnsOf(Sheet::Actions).size(); ++i) {
            if (m_cells.text(i).empty()) {
                return false;
            }
        }
        return true;
    }
    /// An empty factor leaves it as it is.
    void changeFactors()
    {
        const std::vector<Column>& columns = columnsOf(Sheet::Actions);
        for (std::size_t i = ACTION_SUPERPOSITION + 1; i < columns.size(); ++i) {
            const LCM_Factor& factor = *columns[i].factor;
            const std::string text = m_cells.text(i);
            if (!m_row.isNew && text == numberText(lcm_shown_factor(m_row.action->wanted, factor))) {
                continue;
            }
            if (const auto value = numberIn(text, columns[i], m_row)) {
                m_row.action->wanted.*factor.actionField = lcm_factor_to_store(factor, *value);
            }
        }
    }
    /// As its row shows it: a factor without a column is 0.
    tagCDB_LC_ACT asShown() const
    {
        tagCDB_LC_ACT shown = m_row.action->wanted;
        for (const LCM_Factor& factor : LCM_FACTORS) {
            shown.*factor.actionField = m_state.setup.factorColumns[factor.id]
                                            ? lcm_shown_factor(m_row.action->wanted, factor)
                                            : 0.0f;
        }
        return shown;
    }
};

} // namespace

void planAction(const RowCells& cells, const ProjectState& state, PlannedRow& row)
{
    row.sheet = Sheet::Actions;
    row.action = std::make_unique<ActionRecords>();
    ActionRow(cells, state, row).plan();
}

void planActions(const Table& table, ProjectState& state, std::map<int, int>& lines, Plan& plan)
{
    RowCells cells(table.head);
    for (const Row& tableRow : table.rows) {
        PlannedRow row;
        row.line = tableRow.line;
        row.notes = tableRow.notes;
        cells.moveTo(tableRow);
        planAction(cells, state, row);
        const auto [first, isFirst] = lines.emplace(row.id, row.line);
        if (!isFirst) {
            refuse(row, "import-doubled",
                   {QT_TRANSLATE_NOOP("Exchange", "\"%1\" stands in line %2 already"),
                    {row.name, std::to_string(first->second)}});
        }
        enter(row, state);
        plan.rows.push_back(std::move(row));
    }
}

} // namespace mrl::exchange
