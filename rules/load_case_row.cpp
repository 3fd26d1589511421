#include "rules/load_case_row.h"

#include <cmath>
#include <cstdlib>
#include <utility>

#include "lcdata/load_case_factors.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/gama.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/packing.h"
#include "rules/action_columns.h"

namespace {

// Both tables number the columns of the factors alike.
static_assert(int(ACT_COL_GAMU) == int(LC_COL_GAMU) && int(ACT_COL_PSI1S) == int(LC_COL_PSI1S));

/// The axis of gravity, 1 to 3, and 0 when the direction names none.
int axisOf(int gravity) { return gravity >= -3 && gravity <= 3 ? std::abs(gravity) : 0; }

float* componentOf(tagCDB_LC_CTRL& record, int axis)
{
    switch (axis) {
    case 1:
        return &record.dlx;
    case 2:
        return &record.dly;
    case 3:
        return &record.dlz;
    default:
        return nullptr;
    }
}

/// The amount with the sign of gravity. Zero has no sign: a load case without dead weight is stored as it
/// was.
float alongGravity(float value, int gravity)
{
    const float amount = std::fabs(value);
    return gravity < 0 && amount != 0.0f ? -amount : amount;
}

LCM_LoadCaseFactors ownFactors(const tagCDB_LC_CTRL& record)
{
    LCM_LoadCaseFactors factors;
    const LCM_FactorPair safety = lcm_unpack_pair(record.gamu);
    const LCM_FactorPair frequent = lcm_unpack_pair(record.psi1);
    factors[LC_COL_GAMU] = safety.main;
    factors[LC_COL_GAMA] = safety.minor;
    factors[LC_COL_PSI1] = frequent.main;
    factors[LC_COL_PSI1S] = frequent.minor;
    factors[LC_COL_GAMF] = record.gamf;
    factors[LC_COL_PSI0] = record.psi0;
    factors[LC_COL_PSI2] = record.psi2;
    return factors;
}

/// Packs a pair of cells. Unlike the packing of two numbers at hand each cell counts only if its column is
/// there, and the second one may undo the first: then the whole pair follows the action.
float packCells(const LCM_LoadCaseFactors& cells, const LCM_LoadCaseSetup& setup, int mainColumn,
                int minorColumn, bool zeroRule)
{
    float field = 0.0f;
    if (setup.hasColumn(mainColumn)) {
        field = cells[mainColumn] == LC_UNDEFINED ? LC_UNDEFINED : lcm_round_main(cells[mainColumn]);
    }
    if (!setup.hasColumn(minorColumn)) {
        return field;
    }
    const float minor = cells[minorColumn];
    if (minor == LC_UNDEFINED) {
        return LC_UNDEFINED;
    }
    return lcm_add_minor(field, zeroRule ? lcm_gama_to_store(minor) : minor);
}

int packLatin1(const QString& text)
{
    const QByteArray bytes = text.toLatin1();
    unsigned word = 0x20202020u;
    for (int i = 0; i < 4 && i < bytes.size(); ++i) {
        const unsigned shift = 8u * static_cast<unsigned>(i);
        word &= ~(0xffu << shift);
        word |= static_cast<unsigned>(static_cast<unsigned char>(bytes.at(i))) << shift;
    }
    return static_cast<int>(word);
}

} // namespace

std::array<bool, 3> lcm_shown_components(int systemClass)
{
    return {systemClass != 3, systemClass != 3, systemClass != 1};
}

LCM_LoadCaseDeadWeight lcm_shown_dead_weight(const tagCDB_LC_CTRL& record, int gravity)
{
    const int axis = axisOf(gravity);
    LCM_LoadCaseDeadWeight cells{record.dlz, record.dlx, record.dly, record.dlz};
    switch (axis) {
    case 1:
        cells.factor = cells.dlx = std::fabs(record.dlx);
        break;
    case 2:
        cells.factor = cells.dly = std::fabs(record.dly);
        break;
    case 3:
        cells.factor = cells.dlz = std::fabs(record.dlz);
        break;
    default:
        break;
    }
    return cells;
}

LCM_LoadCaseFactors lcm_stored_factors(const tagCDB_LC_CTRL& record)
{
    LCM_LoadCaseFactors factors = ownFactors(record);
    for (const auto& [main, minor] : {std::pair{LC_COL_GAMU, LC_COL_GAMA}, {LC_COL_PSI1, LC_COL_PSI1S}}) {
        if (factors[main] == LC_UNDEFINED) {
            factors[minor] = LC_UNDEFINED;
        }
    }
    return factors;
}

LCM_LoadCaseFactors lcm_shown_factors(const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT* action)
{
    if (lcm_has_own_factors(record.action)) {
        return ownFactors(record);
    }
    LCM_LoadCaseFactors factors;
    if (!action || record.action == LC_ACTION_IMPERFECTION) {
        return factors;
    }
    for (int column = LC_COL_GAMU; column <= LC_COL_PSI1S; ++column) {
        factors[column] = lcm_action_factor(*action, column);
    }
    return factors;
}

float lcm_action_factor(const tagCDB_LC_ACT& action, int column)
{
    const LCM_ActionFactor* factor = lcm_factor_of_column(column);
    return factor ? action.*factor->field : LC_UNDEFINED;
}

LCM_LoadCaseRow lcm_row_of_record(int number, const tagCDB_LC_CTRL& record, const tagCDB_LC_ACT* action,
                                  const LCM_LoadCaseSetup& setup)
{
    return {number, lcm_title_text(record.title), record.action, lcm_shown_dead_weight(record, setup.gravity),
            lcm_shown_factors(record, action)};
}

void lcm_store_dead_weight(const LCM_LoadCaseDeadWeight& cells, const LCM_LoadCaseSetup& setup,
                           tagCDB_LC_CTRL& record)
{
    record.dlx = record.dly = record.dlz = 0.0f;
    float* along = componentOf(record, axisOf(setup.gravity));
    if (setup.globalDirections) {
        const auto shown = lcm_shown_components(setup.systemClass);
        record.dlx = shown[0] ? cells.dlx : 0.0f;
        record.dly = shown[1] ? cells.dly : 0.0f;
        record.dlz = shown[2] ? cells.dlz : 0.0f;
        if (along) {
            *along = alongGravity(*along, setup.gravity);
        }
    } else if (along) {
        *along = alongGravity(cells.factor, setup.gravity);
    }
    if (setup.systemClass == 1) {
        record.dlz = 0.0f;
    }
    if (setup.systemClass == 3) {
        record.dlx = record.dly = 0.0f;
    }
}

void lcm_store_factors(const LCM_LoadCaseFactors& cells, const LCM_LoadCaseSetup& setup,
                       tagCDB_LC_CTRL& record)
{
    if (!lcm_has_own_factors(record.action)) {
        record.gamu = record.gamf = record.psi0 = record.psi1 = record.psi2 = LC_UNDEFINED;
        return;
    }
    record.gamu = packCells(cells, setup, LC_COL_GAMU, LC_COL_GAMA, true);
    record.psi1 = packCells(cells, setup, LC_COL_PSI1, LC_COL_PSI1S, false);
    record.gamf = setup.hasColumn(LC_COL_GAMF) ? cells[LC_COL_GAMF] : 0.0f;
    record.psi0 = setup.hasColumn(LC_COL_PSI0) ? cells[LC_COL_PSI0] : 0.0f;
    record.psi2 = setup.hasColumn(LC_COL_PSI2) ? cells[LC_COL_PSI2] : 0.0f;
}

tagCDB_LC_CTRL lcm_record_of_row(const LCM_LoadCaseRow& row, const LCM_LoadCaseSetup& setup)
{
    tagCDB_LC_CTRL record{};
    record.action = row.action;
    record.factor = 1.0f;
    lcm_title_pack(row.title, record.title, LC_TITLE_WORDS);
    lcm_store_dead_weight(row.deadWeight, setup, record);
    lcm_store_factors(row.factors, setup, record);
    return record;
}

tagCDB_LC_CTRL lcm_record_with_action(const tagCDB_LC_CTRL& record, int actionWord)
{
    tagCDB_LC_ACT factors{};
    lcm_default_factors(actionWord, factors);
    tagCDB_LC_CTRL result = record;
    lcm_load_case_from_action(factors, result, actionWord);
    result.action = actionWord; // the name in `factors` is empty, so the word set above is no action's
    return result;
}

QString lcm_missing_action_text(int code)
{
    return QStringLiteral("*** Action %1 is missing ***").arg(lcm_code_text(code));
}

int lcm_lower_code(int code) { return packLatin1(lcm_code_text(code).toLower()); }

int lcm_upper_code(int code) { return packLatin1(lcm_code_text(code).toUpper()); }
