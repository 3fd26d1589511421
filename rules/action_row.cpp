#include "rules/action_row.h"

#include <cmath>

#include "lcdata/values/action_code.h"
#include "lcdata/values/gama.h"
#include "lcdata/values/packed_text.h"

namespace {

constexpr int LOAD_GROUP = 256;       ///< the load group stands in the bits from this one up
constexpr int FIRST_GROUP_ENTRY = 48; ///< category Q (3) shifted up four bits; the load group is added to it
constexpr int VARIABLE = 48;          ///< the bits of category Q in a partition word

bool isNearly(float value, float other) { return std::fabs(value - other) < LC_GAMA_TOLERANCE; }

} // namespace

LCM_ActionCells lcm_action_cells(const tagCDB_LC_ACT& record)
{
    LCM_ActionCells cells;
    cells.code = lcm_action_code(record);
    cells.name = lcm_code_text(cells.code);
    cells.title = lcm_title_text(record.title);
    cells.partition = lcm_partition_id(record.partition);
    cells.superposition = lcm_superposition_id(record.partition);
    for (std::size_t i = 0; i < LCM_ACTION_FACTORS.size(); ++i) {
        cells.factors[i] = lcm_shown_factor(record, LCM_ACTION_FACTORS[i]);
    }
    return cells;
}

int lcm_action_record(const LCM_ActionCells& cells, tagCDB_LC_ACT& record)
{
    record = tagCDB_LC_ACT{};
    record.kind = 1;
    // Padded, so that a text that is too short still has the four characters of a code.
    const QString text = cells.name + QStringLiteral("    ");
    const int underscore = text.indexOf(QLatin1Char('_'));
    lcm_pack_field(text.left(underscore).toUtf8().constData(), record.name);
    if (underscore >= 0) {
        lcm_pack_field(text.mid(underscore + 1, 1).toUtf8().constData(), record.suffix);
    }
    lcm_title_pack(cells.title, record.title, LC_TITLE_WORDS);
    record.partition = lcm_partition_word(cells.partition, cells.superposition);
    for (std::size_t i = 0; i < LCM_ACTION_FACTORS.size(); ++i) {
        record.*LCM_ACTION_FACTORS[i].field = cells.factors[i];
    }
    return lcm_pack_word(text);
}

int lcm_partition_id(int word)
{
    return word >= LOAD_GROUP ? word / LOAD_GROUP + FIRST_GROUP_ENTRY : word / 16;
}

int lcm_superposition_id(int word)
{
    const int code = word & 15;
    return code == 7 ? 8 : code;
}

int lcm_partition_word(int partitionId, int superpositionId)
{
    const int partition = partitionId < FIRST_GROUP_ENTRY
                              ? partitionId * 16
                              : (partitionId - FIRST_GROUP_ENTRY) * LOAD_GROUP + VARIABLE;
    return partition + (superpositionId == 7 ? 8 : superpositionId);
}

float lcm_shown_gama(float stored)
{
    if (isNearly(stored, 0.0f)) {
        return 1.0f;
    }
    return isNearly(stored, LC_GAMA_ZERO) ? 0.0f : stored;
}

float lcm_shown_factor(const tagCDB_LC_ACT& record, const LCM_ActionFactor& factor)
{
    const float value = record.*factor.field;
    return factor.column == ACT_COL_GAMA ? lcm_shown_gama(value) : value;
}
