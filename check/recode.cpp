#include "check/recode.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <string_view>

#include "check/recode_dead_weight.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/system_words.h"

namespace {

constexpr int CATEGORY_BITS = 0xF;

int categoryOf(const tagCDB_LC_ACT& record) { return record.partition >> 4 & CATEGORY_BITS; }

const tagCDB_LC_ACT* defaultOf(const LCM_DesignCodeData& code, int action)
{
    const auto found = std::find_if(code.actions.begin(), code.actions.end(), [&](const tagCDB_LC_ACT& each) {
        return lcm_action_code(each) == action;
    });
    return found == code.actions.end() ? nullptr : &*found;
}

template <class Record>
std::string_view bytesOf(const Record& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

/// Two records that differ in a bit are two, whatever their numbers compare as.
template <class Record>
bool isSame(const Record& a, const Record& b)
{
    return bytesOf(a) == bytesOf(b);
}

std::vector<std::string> droppedBy(const tagCDB_LC_ACT& record, const tagCDB_LC_ACT& limits)
{
    std::vector<std::string> dropped;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (!(limits.*factor.actionField > 0.0f) && record.*factor.actionField != 0.0f) {
            dropped.emplace_back(factor.key);
        }
    }
    return dropped;
}

/// The action under its new name, with all else as it was.
tagCDB_LC_ACT renamed(const tagCDB_LC_ACT& record, const tagCDB_LC_ACT& name)
{
    tagCDB_LC_ACT result = record;
    std::memcpy(result.name, name.name, sizeof result.name);
    result.suffix = name.suffix;
    return result;
}

LCM_RecodeRow rowOf(const LCM_StoredAction& action, const LCM_DesignCodeData& from,
                    const LCM_DesignCodeData& to, const std::map<int, int>& map)
{
    LCM_RecodeRow row;
    row.oldCode = row.newCode = action.code;
    row.before = row.after = action.record;
    const auto mapped = map.find(action.code);
    const bool isMapped = mapped != map.end();
    const tagCDB_LC_ACT* target = defaultOf(to, isMapped ? mapped->second : action.code);
    if (target != nullptr && !isMapped && categoryOf(*target) != categoryOf(action.record)) {
        target = nullptr; // the same letter for another thing
    }
    const tagCDB_LC_ACT* old = defaultOf(from, action.code);
    if (target == nullptr) {
        row.fate = LCM_RecodeFate::BecomesOwn;
    } else {
        row.newCode = lcm_action_code(*target);
        const bool wasDefault = old != nullptr && isSame(*old, action.record);
        row.fate = wasDefault ? LCM_RecodeFate::TakesDefault : LCM_RecodeFate::KeepsValues;
        row.after = wasDefault ? *target : isMapped ? renamed(action.record, *target) : action.record;
    }
    row.dropped = droppedBy(row.after, to.limits);
    row.broken = lcm_check_action(row.after, to.limits, to.identity);
    return row;
}

/// The code of the action that a load case has, by the old numbers of a design code too; 0 without one.
int actionOf(const tagCDB_LC_CTRL& record, const LCM_RecodeCode& code)
{
    if (record.action >= LC_BLANK_WORD) {
        return record.action;
    }
    if (record.action == LC_ACTION_IMPERFECTION) {
        return 0;
    }
    const auto found = code.oldNumbers.find(record.action);
    return found == code.oldNumbers.end() ? 0 : found->second;
}

std::string nameOf(int code) { return lcm_code_name(code).toStdString(); }

std::string refusalOfNames(const LCM_RecodePlan& plan, const LCM_RecodeCode& to,
                           const std::map<int, int>& map)
{
    std::set<int> codes;
    for (const LCM_RecodeRow& row : plan.rows) {
        if (!codes.insert(row.newCode).second) {
            return "two actions would have the name " + nameOf(row.newCode);
        }
    }
    for (const auto& [oldCode, newCode] : map) {
        const auto isMeant = [old = oldCode](const LCM_RecodeRow& row) { return row.oldCode == old; };
        if (std::none_of(plan.rows.begin(), plan.rows.end(), isMeant)) {
            return "the project has no action " + nameOf(oldCode);
        }
        if (defaultOf(to.data, newCode) == nullptr) {
            return "the new code has no action " + nameOf(newCode);
        }
    }
    return {};
}

std::string refusalWithoutMatch(const LCM_RecodePlan& plan)
{
    const bool matches = std::any_of(plan.rows.begin(), plan.rows.end(), [](const LCM_RecodeRow& row) {
        return row.fate != LCM_RecodeFate::BecomesOwn;
    });
    return matches || plan.rows.empty()
               ? std::string()
               : "no action of the project is one of the new code, so that the next "
                 "opening would activate all of its default actions; map at least one";
}

/// Plans the records of load cases: the names of their actions and their dead weight.
class LoadCasePlanner
{
  public:
    LoadCasePlanner(LCM_RecodePlan& plan, const LCM_RecodeCode& from, const LCM_RecodeCode& to,
                    const LCM_RecodeDirections& directions)
        : m_plan(plan), m_from(from), m_to(to), m_directions(directions)
    {
        for (std::size_t i = 0; i < plan.rows.size(); ++i) {
            m_rows.emplace(plan.rows[i].oldCode, i);
        }
    }

    void take(const LCM_StoredLoadCase& loadCase)
    {
        tagCDB_LC_CTRL after = loadCase.record;
        const auto row = m_rows.find(actionOf(loadCase.record, m_from));
        if (row != m_rows.end()) {
            LCM_RecodeRow& action = m_plan.rows[row->second];
            action.loadCases.push_back(loadCase.number);
            // An old number stays as long as it means the same action.
            if (actionOf(after, m_to) != action.newCode) {
                after.action = action.newCode;
            }
        }
        const std::string reason = lcm_move_dead_weight(after, m_directions);
        if (!reason.empty()) {
            m_stuck += (m_stuck.empty() ? "" : ", ") + std::to_string(loadCase.number) + " " + reason;
        }
        if (!isSame(after, loadCase.record)) {
            m_plan.loadCases.push_back({loadCase.number, loadCase.record, after});
        }
    }

    std::string refusal() const
    {
        return m_stuck.empty() ? std::string()
                               : "the new system doesn't offer dead weight in every direction (load case " +
                                     m_stuck + "); move it to the new direction of gravity, or take it out";
    }

  private:
    LCM_RecodePlan& m_plan;
    const LCM_RecodeCode& m_from;
    const LCM_RecodeCode& m_to;
    LCM_RecodeDirections m_directions;
    std::map<int, std::size_t> m_rows; ///< by the old code
    std::string m_stuck;
};

} // namespace

bool LCM_RecodeRow::isChanged() const { return oldCode != newCode || !isSame(before, after); }

std::map<int, int> LCM_RecodePlan::moves() const
{
    std::map<int, int> moves;
    for (const LCM_RecodeRow& row : rows) {
        if (row.oldCode != row.newCode) {
            moves.emplace(row.oldCode, row.newCode);
        }
    }
    return moves;
}

LCM_RecodePlan lcm_plan_recode(const LCM_RecodeProject& project, const LCM_RecodeCode& from,
                               const LCM_RecodeCode& to, const LCM_RecodeWish& wish)
{
    LCM_RecodePlan plan;
    for (const LCM_StoredAction& action : project.actions) {
        if (action.code != LC_BLANK_WORD && !lcm_is_reserved_action(action.code)) {
            plan.rows.push_back(rowOf(action, from.data, to.data, wish.map));
        }
    }
    const int oldClass = lcm_class_of_raw_system(project.rawSystem);
    const int newClass = wish.systemClass.value_or(oldClass);
    plan.rawSystem = newClass == oldClass ? project.rawSystem : lcm_raw_system(newClass);
    plan.gravity = wish.gravity.value_or(project.gravity);
    plan.changesSystem = plan.rawSystem != project.rawSystem || plan.gravity != project.gravity;
    LoadCasePlanner loadCases(plan, from, to,
                              {oldClass, newClass, project.gravity, plan.gravity, wish.movesDeadWeight});
    for (const LCM_StoredLoadCase& loadCase : project.loadCases) {
        loadCases.take(loadCase);
    }
    for (const std::string& refusal :
         {refusalOfNames(plan, to, wish.map), refusalWithoutMatch(plan), loadCases.refusal()}) {
        if (plan.refusal.empty()) {
            plan.refusal = refusal;
        }
    }
    return plan;
}
