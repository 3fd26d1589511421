#include "rules/load_case_rules.h"

#include <QCoreApplication>

#include "lcdata/values/keys.h"
#include "lcdata/values/packing.h"

namespace {

/// The message patterns, in the language in which the first row was judged.
const QString& greaterPattern()
{
    static const QString pattern =
        QCoreApplication::translate("LCM_LoadcaseWidget", "%1 has to be greater than 0.0!");
    return pattern;
}

const QString& betweenPattern()
{
    static const QString pattern =
        QCoreApplication::translate("LCM_LoadcaseWidget", "%1 has to be between %2 and %3!");
    return pattern;
}

QString number(float value, int precision)
{
    return QStringLiteral("%1").arg(static_cast<double>(value), 0, 'g', precision);
}

QString between(const char* factor, const QString& low, const QString& high)
{
    return betweenPattern().arg(QLatin1String(factor), low, high);
}

const QString ZERO = QStringLiteral("0.0");

/// A factor of the load case, or that of its action where the load case has none of its own.
float ownOr(float own, float ofAction) { return own == LC_UNDEFINED ? ofAction : own; }

void checkSafety(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT& action, const tagCDB_LC_ACT& limits,
                 LCM_Findings& findings)
{
    if (!(limits.gamu > 0.0f)) {
        return;
    }
    const float gamu = ownOr(record.gamu, action.gamu);
    if (record.gamu < 0.0f && record.gamu != LC_UNDEFINED) {
        findings[LC_COL_GAMU] = greaterPattern().arg(QLatin1String("GAMU"));
    }
    if (!(limits.gamf > 0.0f)) {
        return;
    }
    const float gamf = ownOr(record.gamf, action.gamf);
    if (gamf < 0.0f || gamu < gamf) {
        findings[LC_COL_GAMF] = between("GAMF", ZERO, number(gamu, -1));
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
    const bool hasPsi1 =
        limits.psi1 != 0.0f; // without it nothing bounds Psi2 from above and Psi1s from below
    if (limits.psi0 != 0.0f && record.psi0 != LC_UNDEFINED && !within(record.psi0, 0.0f, limits.psi0)) {
        findings[LC_COL_PSI0] = between("Psi0", ZERO, number(limits.psi0, 3));
    }
    if (hasPsi1 && record.psi1 != LC_UNDEFINED && !within(values.psi1, values.psi2, limits.psi1)) {
        findings[LC_COL_PSI1] = between("Psi1", number(values.psi2, 3), number(limits.psi1, 3));
    }
    if (hasPsi1 && limits.psi2 != 0.0f && record.psi2 != LC_UNDEFINED &&
        !within(values.psi2, 0.0f, values.psi1)) {
        findings[LC_COL_PSI2] = between("Psi2", ZERO, number(values.psi1, 3));
    }
    if (hasPsi1 && limits.psi1s != 0.0f && record.psi1 != LC_UNDEFINED &&
        !within(values.psi1s, values.psi1, limits.psi1s)) {
        findings[LC_COL_PSI1S] = between("Psi1'", number(values.psi1, 3), number(limits.psi1s, -1));
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

LCM_LoadCaseVerdict lcm_judge_stored_load_case(int number, const tagCDB_LC_CTRL& record,
                                               const tagCDB_LC_ACT* action, const LCM_LoadCaseSetup& setup,
                                               const tagCDB_LC_ACT& limits)
{
    const LCM_LoadCaseRow row = lcm_row_of_record(number, record, action, setup);
    return lcm_judge_load_case(lcm_record_of_row(row, setup), action, limits);
}
