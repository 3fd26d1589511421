#include "cli/stored_actions.h"

#include <algorithm>
#include <cstring>

#include "cli/arguments.h"
#include "cli/raw_records.h"
#include "cli/words.h"
#include "host/mrl_cdb.h"
#include "lcdata/action_code.h"
#include "lcdata/guards.h"
#include "lcdata/key_walk.h"
#include "lcdata/packed_text.h"
#include "model/rules/action_row.h"

namespace mrl::cli {

namespace {

/// The position of the last definition among the records of a key, -1 when there is none.
int lastDefinition(const std::vector<std::string>& records)
{
    int last = -1;
    for (std::size_t i = 0; i < records.size(); ++i) {
        last = kindOf(records[i]) == 1 ? static_cast<int>(i) : last;
    }
    return last;
}

std::string partitionText(const tagCDB_LC_ACT& record)
{
    return wordOf(partitionIds(), lcm_partition_id(record.partition));
}

std::string superpositionText(const tagCDB_LC_ACT& record)
{
    return wordOf(superpositionIds(), lcm_superposition_id(record.partition));
}

} // namespace

std::vector<StoredAction> readActions(int db)
{
    std::vector<StoredAction> actions;
    // One step ahead of the walk of the dialog, so that an action without a name is met too.
    LCM_KeyWalk walk(db, LC_KWH_ACTIONS, LC_BLANK_WORD - 1);
    while (walk.next()) {
        if (auto action = storedAction(db, walk.kwl())) {
            actions.push_back(*action);
        }
    }
    return actions;
}

std::optional<StoredAction> storedAction(int db, int code)
{
    if (code < LC_BLANK_WORD) {
        return std::nullopt;
    }
    const std::vector<std::string> records = readRecords(db, LC_KWH_ACTIONS, code);
    const int last = lastDefinition(records);
    if (last < 0) {
        return std::nullopt;
    }
    StoredAction action{code, {}};
    const std::string& bytes = records[static_cast<std::size_t>(last)];
    std::memcpy(&action.record, bytes.data(), std::min(bytes.size(), sizeof action.record));
    return action;
}

StoredAction requireAction(const Project& project, const std::string& name)
{
    const auto action = storedAction(project.db(), typedActionCode(project.db(), name));
    if (!action) {
        project.refuse("the project has no action " + name);
    }
    return *action;
}

bool isStored(int db, int code)
{
    const LCM_KeyGuard guard(db, LC_KWH_ACTIONS, code);
    tagCDB_LC_ACT record{};
    int length = sizeof record;
    return mrl_cdb_get(db, LC_KWH_ACTIONS, code, &record, &length, 0) < CD_END;
}

int typedActionCode(int db, const std::string& name)
{
    const int asTyped = lcm_pack_word(qtext(name));
    return isStored(db, asTyped) ? asTyped : lcm_normalise_code(qtext(name));
}

int typedActionWord(int db, const std::string& name)
{
    const QString upper = qtext(name).toUpper();
    if (upper == QLatin1String("IMP")) {
        return LC_ACTION_IMPERFECTION;
    }
    return upper == QLatin1String("NONE") ? LC_ACTION_NONE : typedActionCode(db, name);
}

bool rewriteAction(int db, int code, const tagCDB_LC_ACT& record)
{
    const int position = lastDefinition(readRecords(db, LC_KWH_ACTIONS, code));
    return overwriteRecord(db, LC_KWH_ACTIONS, code, position, &record, sizeof record);
}

Json actionJson(int code, const tagCDB_LC_ACT& record)
{
    return {{"name", actionName(code)},
            {"code", code},
            {"title", lcm_title_text(record.title).toStdString()},
            {"partition", partitionText(record)},
            {"superposition", superpositionText(record)},
            {"Gamu", jsonFactor(record.gamu)},
            {"Gamf", jsonFactor(record.gamf)},
            {"Gama", jsonFactor(lcm_shown_gama(record.gama))},
            {"Psi0", jsonFactor(record.psi0)},
            {"Psi1", jsonFactor(record.psi1)},
            {"Psi2", jsonFactor(record.psi2)},
            {"Psi1s", jsonFactor(record.psi1s)}};
}

Table actionTable()
{
    const auto right = Table::Align::Right;
    return Table({{"Name"},
                  {"Title"},
                  {"Partition"},
                  {"Superposition"},
                  {"Gamu", right},
                  {"Gamf", right},
                  {"Gama", right},
                  {"Psi0", right},
                  {"Psi1", right},
                  {"Psi2", right},
                  {"Psi1s", right}});
}

void addActionRow(Table& table, int code, const tagCDB_LC_ACT& record)
{
    table.add({actionName(code), printable(lcm_title_text(record.title)), partitionText(record),
               superpositionText(record), factorText(record.gamu), factorText(record.gamf),
               factorText(lcm_shown_gama(record.gama)), factorText(record.psi0), factorText(record.psi1),
               factorText(record.psi2), factorText(record.psi1s)});
}

} // namespace mrl::cli
