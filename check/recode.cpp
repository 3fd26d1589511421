#include "check/recode.h"

#include <algorithm>
#include <cstring>
#include <set>
#include <string_view>

#include "lcdata/values/action_code.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/keys.h"

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

/// The record as it is stored; two that differ in a bit are two, whatever their numbers compare as.
std::string_view bytesOf(const tagCDB_LC_ACT& action)
{
    return {reinterpret_cast<const char*>(&action), sizeof action};
}

bool isSame(const tagCDB_LC_ACT& a, const tagCDB_LC_ACT& b) { return bytesOf(a) == bytesOf(b); }

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

std::string refusalOf(const LCM_RecodePlan& plan, const LCM_DesignCodeData& to, const std::map<int, int>& map)
{
    std::set<int> codes;
    for (const LCM_RecodeRow& row : plan.rows) {
        if (!codes.insert(row.newCode).second) {
            return "two actions would have the name " + lcm_code_name(row.newCode).trimmed().toStdString();
        }
    }
    for (const auto& [oldCode, newCode] : map) {
        const auto isMeant = [&, old = oldCode](const LCM_RecodeRow& row) { return row.oldCode == old; };
        if (std::none_of(plan.rows.begin(), plan.rows.end(), isMeant)) {
            return "the project has no action " + lcm_code_name(oldCode).trimmed().toStdString();
        }
        if (defaultOf(to, newCode) == nullptr) {
            return "the new code has no action " + lcm_code_name(newCode).trimmed().toStdString();
        }
    }
    const bool matches = std::any_of(plan.rows.begin(), plan.rows.end(), [](const LCM_RecodeRow& row) {
        return row.fate != LCM_RecodeFate::BecomesOwn;
    });
    return matches || plan.rows.empty() ? std::string()
                                        : "no action of the project is one of the new code, so that the next "
                                          "opening would activate all "
                                          "of its default actions; map at least one";
}

} // namespace

bool LCM_RecodeRow::isChanged() const { return oldCode != newCode || !isSame(before, after); }

LCM_RecodePlan lcm_plan_recode(const std::vector<LCM_StoredAction>& stored, const LCM_DesignCodeData& from,
                               const LCM_DesignCodeData& to, const std::map<int, int>& map)
{
    LCM_RecodePlan plan;
    for (const LCM_StoredAction& action : stored) {
        if (action.code != LC_BLANK_WORD && !lcm_is_reserved_action(action.code)) {
            plan.rows.push_back(rowOf(action, from, to, map));
        }
    }
    plan.refusal = refusalOf(plan, to, map);
    return plan;
}
