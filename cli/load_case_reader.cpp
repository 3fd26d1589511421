#include "cli/load_case_reader.h"

#include "cli/words.h"
#include "lcdata/guards.h"
#include "lcdata/load_case_rules.h"
#include "lcdata/packed_text.h"
#include "lcdata/packing.h"

namespace mrl::cli {

bool readLoadCase(int db, int number, StoredLoadCase& loadCase)
{
    const LCM_KeyGuard guard(db, LC_KWH_CASES, number);
    loadCase.number = number;
    loadCase.length = sizeof loadCase.record;
    return mrl_cdb_get(db, LC_KWH_CASES, number, &loadCase.record, &loadCase.length, 0) < CD_END;
}

bool LoadCaseReader::next()
{
    while (walk.next()) {
        if (readLoadCase(db, walk.kwl(), loadCase)) {
            return true;
        }
    }
    return false;
}

LoadCaseFields fieldsOf(const tagCDB_LC_CTRL& record)
{
    LoadCaseFields fields;
    fields.action = record.action;
    if (fields.action < LC_BLANK_WORD) {
        lcm_resolve_action_word(fields.action);
    }
    const auto pair = [](float field, float& main, float& minor) {
        const LCM_FactorPair unpacked = lcm_unpack_pair(field);
        main = unpacked.main;
        minor = unpacked.main == LC_UNDEFINED ? LC_UNDEFINED : unpacked.minor;
    };
    pair(record.gamu, fields.gamu, fields.gama);
    pair(record.psi1, fields.psi1, fields.psi1s);
    fields.gamf = record.gamf;
    fields.psi0 = record.psi0;
    fields.psi2 = record.psi2;
    return fields;
}

namespace {

Json foreignJson(const StoredLoadCase& loadCase, bool isCurrent)
{
    Json out = {
        {"number", loadCase.number}, {"title", nullptr}, {"action", nullptr}, {"kind", loadCase.record.kind}};
    for (const char* name :
         {"DLX", "DLY", "DLZ", "factor", "Gamu", "Gamf", "Gama", "Psi0", "Psi1", "Psi2", "Psi1s"}) {
        out[name] = nullptr;
    }
    out["current"] = isCurrent;
    return out;
}

} // namespace

Json loadCaseJson(const StoredLoadCase& loadCase, int currentNumber)
{
    const bool isCurrent = loadCase.number == currentNumber;
    if (!loadCase.own()) {
        return foreignJson(loadCase, isCurrent);
    }
    const tagCDB_LC_CTRL& record = loadCase.record;
    const LoadCaseFields fields = fieldsOf(record);
    const std::string action = actionWordText(fields.action);
    return {{"number", loadCase.number},
            {"title", lcm_title_text(record.title).toStdString()},
            {"action", action.empty() ? Json(nullptr) : Json(action)},
            {"kind", record.kind},
            {"DLX", jsonNumber(record.dlx)},
            {"DLY", jsonNumber(record.dly)},
            {"DLZ", jsonNumber(record.dlz)},
            {"factor", jsonNumber(record.factor)},
            {"Gamu", jsonFactor(fields.gamu)},
            {"Gamf", jsonFactor(fields.gamf)},
            {"Gama", jsonFactor(fields.gama)},
            {"Psi0", jsonFactor(fields.psi0)},
            {"Psi1", jsonFactor(fields.psi1)},
            {"Psi2", jsonFactor(fields.psi2)},
            {"Psi1s", jsonFactor(fields.psi1s)},
            {"current", isCurrent}};
}

} // namespace mrl::cli
