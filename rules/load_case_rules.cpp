#include "rules/load_case_rules.h"

#include <algorithm>

#include "lcdata/load_case_factors.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packing.h"

namespace {

/// A factor of the load case, or that of its action where the load case has none of its own.
float ownOr(float own, float ofAction) { return own == LC_UNDEFINED ? ofAction : own; }

void add(LCM_Findings& findings, LCM_Rule rule, int column, float lowest, float highest)
{
    findings.push_back({rule, LCM_Subject::LoadCase, 0, column, {lowest, highest}});
}

void checkSafety(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT& action, const tagCDB_LC_ACT& limits,
                 LCM_Findings& findings)
{
    if (!(limits.gamu > 0.0f)) {
        return;
    }
    const float gamu = ownOr(record.gamu, action.gamu);
    if (record.gamu < 0.0f && record.gamu != LC_UNDEFINED) {
        findings.push_back({LCM_Rule::GamuBelow0, LCM_Subject::LoadCase, 0, LC_COL_GAMU, {}});
    }
    if (!(limits.gamf > 0.0f)) {
        return;
    }
    const float gamf = ownOr(record.gamf, action.gamf);
    if (gamf < 0.0f || gamu < gamf) {
        add(findings, LCM_Rule::GamfNotBetween0AndGamu, LC_COL_GAMF, 0.0f, gamu);
    }
}

/// The combination factors that the checks compare with each other.
struct Combination
{
    float psi1 = 0.0f;
    float psi1s = 0.0f;
    float psi2 = 0.0f;
};

Combination combinationOf(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT& action,
                          const tagCDB_LC_ACT& limits)
{
    Combination values;
    if (limits.psi1 != 0.0f) {
        const LCM_FactorPair own = lcm_unpack_pair(record.psi1);
        const bool follows = own.main == LC_UNDEFINED;
        values.psi1 = follows ? action.psi1 : own.main;
        values.psi1s = follows ? action.psi1s : own.minor;
    }
    if (limits.psi2 != 0.0f) {
        values.psi2 = ownOr(record.psi2, action.psi2);
    }
    return values;
}

bool within(float value, float low, float high) { return value >= low && value <= high; }

void checkCombination(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT& action, const tagCDB_LC_ACT& limits,
                      LCM_Findings& findings)
{
    const Combination values = combinationOf(record, action, limits);
    // Without Psi1 nothing bounds Psi2 from above and Psi1s from below.
    const bool hasPsi1 = limits.psi1 != 0.0f;
    if (limits.psi0 != 0.0f && record.psi0 != LC_UNDEFINED && !within(record.psi0, 0.0f, limits.psi0)) {
        add(findings, LCM_Rule::Psi0NotBetween0AndLimit, LC_COL_PSI0, 0.0f, limits.psi0);
    }
    if (hasPsi1 && record.psi1 != LC_UNDEFINED && !within(values.psi1, values.psi2, limits.psi1)) {
        add(findings, LCM_Rule::Psi1NotBetweenPsi2AndLimit, LC_COL_PSI1, values.psi2, limits.psi1);
    }
    if (hasPsi1 && limits.psi2 != 0.0f && record.psi2 != LC_UNDEFINED &&
        !within(values.psi2, 0.0f, values.psi1)) {
        add(findings, LCM_Rule::Psi2NotBetween0AndPsi1, LC_COL_PSI2, 0.0f, values.psi1);
    }
    if (hasPsi1 && limits.psi1s != 0.0f && record.psi1 != LC_UNDEFINED &&
        !within(values.psi1s, values.psi1, limits.psi1s)) {
        add(findings, LCM_Rule::Psi1sNotBetweenPsi1AndLimit, LC_COL_PSI1S, values.psi1, limits.psi1s);
    }
}

} // namespace

LCM_Findings lcm_check_load_case(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT& action,
                                 const tagCDB_LC_ACT& limits)
{
    LCM_Findings findings;
    checkSafety(record, action, limits, findings);
    checkCombination(record, action, limits, findings);
    return findings;
}

LCM_LoadCaseVerdict lcm_judge_load_case(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT* action,
                                        const tagCDB_LC_ACT& limits)
{
    LCM_LoadCaseVerdict verdict;
    if (action) {
        verdict.findings = lcm_check_load_case(record, *action, limits);
        verdict.valid = verdict.findings.empty();
        return verdict;
    }
    verdict.actionMissing = record.action != LC_ACTION_NONE && record.action != LC_ACTION_IMPERFECTION;
    verdict.valid = !verdict.actionMissing;
    return verdict;
}

bool lcm_copies_differ(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT& action)
{
    tagCDB_LC_CTRL copies = record;
    lcm_load_case_from_action(action, copies, record.action);
    const auto differs = [&](const LCM_Factor& factor) {
        const float field = record.*factor.loadCaseField;
        return field != LC_UNDEFINED && field != copies.*factor.loadCaseField;
    };
    return std::any_of(LCM_FACTORS.begin(), LCM_FACTORS.end(), differs);
}

LCM_LoadCaseVerdict lcm_judge_stored_load_case(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT* action,
                                               const LCM_LoadCaseSetup& setup, const tagCDB_LC_ACT& limits)
{
    // Of a row the rules look at the action and the factors only.
    tagCDB_LC_CTRL read{};
    read.action = record.action;
    lcm_store_factors(lcm_shown_factors(record, action), setup, read);
    return lcm_judge_load_case(read, action, limits);
}
