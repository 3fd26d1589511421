#include "rules/load_case_row.h"

#include <cmath>
#include <cstdlib>

#include "lcdata/load_case_factors.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/packing.h"
#include "lcdata/values/system_words.h"

namespace {

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
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const float field = record.*factor.loadCaseField;
        if (factor.packing == LCM_FactorPacking::Alone) {
            factors[factor.id] = field;
            continue;
        }
        const LCM_FactorPair pair = lcm_unpack_pair(field);
        factors[factor.id] = factor.packing == LCM_FactorPacking::Main ? pair.main : pair.minor;
    }
    return factors;
}

/// The field of a pair whose main value is given, or of a factor alone. Unlike the packing of two numbers at
/// hand each cell counts only if its column is there, and the second one may undo the first: then the whole
/// pair follows the action.
float packCells(const LCM_LoadCaseFactors& cells, const LCM_PerFactor<bool>& columns,
                const LCM_Factor& factor)
{
    const float value = columns[factor.id] ? cells[factor.id] : 0.0f;
    if (factor.packing == LCM_FactorPacking::Alone) {
        return value;
    }
    const float field = value == LC_UNDEFINED ? LC_UNDEFINED : lcm_round_main(value);
    const LCM_Factor& minor = *lcm_partner_of(factor);
    if (!columns[minor.id]) {
        return field;
    }
    if (cells[minor.id] == LC_UNDEFINED) {
        return LC_UNDEFINED;
    }
    return lcm_add_minor(field, lcm_factor_to_store(minor, cells[minor.id]));
}

int packLatin1(const QString& text)
{
    const QByteArray bytes = text.toLatin1();
    return lcm_pack_bytes({bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

} // namespace

std::array<bool, 3> lcm_shown_components(int systemClass)
{
    return {systemClass != LC_SYSTEM_PLATE, systemClass != LC_SYSTEM_PLATE, systemClass != LC_SYSTEM_PLANE};
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
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (factor.packing == LCM_FactorPacking::Minor &&
            factors[lcm_partner_of(factor)->id] == LC_UNDEFINED) {
            factors[factor.id] = LC_UNDEFINED;
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
    for (const LCM_Factor& factor : LCM_FACTORS) {
        factors[factor.id] = lcm_stored_factor(*action, factor);
    }
    return factors;
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
    if (setup.systemClass == LC_SYSTEM_PLANE) {
        record.dlz = 0.0f;
    }
    if (setup.systemClass == LC_SYSTEM_PLATE) {
        record.dlx = record.dly = 0.0f;
    }
}

void lcm_store_factors(const LCM_LoadCaseFactors& cells, const LCM_LoadCaseSetup& setup,
                       tagCDB_LC_CTRL& record)
{
    const bool own = lcm_has_own_factors(record.action);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (factor.packing != LCM_FactorPacking::Minor) {
            record.*factor.loadCaseField = own ? packCells(cells, setup.factorColumns, factor) : LC_UNDEFINED;
        }
    }
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
