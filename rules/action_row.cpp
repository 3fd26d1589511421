#include "rules/action_row.h"

#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"

LCM_ActionCells lcm_action_cells(const tagCDB_LC_ACT& record)
{
    LCM_ActionCells cells;
    cells.code = lcm_action_code(record);
    cells.name = lcm_code_text(cells.code);
    cells.title = lcm_title_text(record.title);
    cells.partition = lcm_partition_id(record.partition);
    cells.superposition = lcm_superposition_id(record.partition);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        cells.factors[factor.id] = lcm_shown_factor(record, factor);
    }
    return cells;
}

int lcm_action_record(const LCM_ActionCells& cells, tagCDB_LC_ACT& record)
{
    record = tagCDB_LC_ACT{};
    record.kind = LC_KIND_ACTION;
    // Padded, so that a text that is too short still has the four characters of a code.
    const QString text = cells.name + QStringLiteral("    ");
    const int underscore = text.indexOf(QLatin1Char('_'));
    lcm_pack_field(text.left(underscore).toUtf8().constData(), record.name);
    if (underscore >= 0) {
        lcm_pack_field(text.mid(underscore + 1, 1).toUtf8().constData(), record.suffix);
    }
    lcm_title_pack(cells.title, record.title, LC_TITLE_WORDS);
    record.partition = lcm_partition_word(cells.partition, cells.superposition);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        record.*factor.actionField = cells.factors[factor.id];
    }
    return lcm_pack_word(text);
}
