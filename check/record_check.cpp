#include "check/record_check.h"

#include <cstring>

#include "lcdata/stored_load_cases.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/records.h"

namespace {

int kindOf(std::string_view bytes)
{
    int kind = 0;
    if (bytes.size() >= sizeof kind) {
        std::memcpy(&kind, bytes.data(), sizeof kind);
    }
    return kind;
}

LCM_Finding about(const LCM_RawRecord& record, LCM_Rule rule, std::vector<LCM_Argument> arguments)
{
    return {rule, LCM_Subject::Key, record.kwl, 0, std::move(arguments), record.kwh};
}

std::optional<LCM_Finding> checkSize(const LCM_RawRecord& record, LCM_Rule rule, std::size_t expected)
{
    if (record.bytes.size() == expected) {
        return std::nullopt;
    }
    return about(record, rule, {static_cast<int>(record.bytes.size()), static_cast<int>(expected)});
}

std::optional<LCM_Finding> checkCurrent(const LCM_RawRecord& record)
{
    auto wrong = checkSize(record, LCM_Rule::CurrentLoadCaseSizeWrong, LC_CURRENT_BYTES);
    if (!wrong && kindOf(record.bytes) != 0) {
        wrong = about(record, LCM_Rule::CurrentLoadCaseKindWrong, {kindOf(record.bytes)});
    }
    return wrong;
}

std::optional<LCM_Finding> checkLoadCase(const LCM_RawRecord& record)
{
    if (record.kwl <= 0) {
        return about(record, LCM_Rule::LoadCaseNumberNotAbove0, {});
    }
    return lcm_is_own_kind(kindOf(record.bytes))
               ? checkSize(record, LCM_Rule::LoadCaseSizeWrong, sizeof(tagCDB_LC_CTRL))
               : std::nullopt;
}

std::optional<LCM_Finding> checkAction(const LCM_RawRecord& record)
{
    const bool own = record.kwl >= LC_BLANK_WORD && !lcm_is_reserved_action(record.kwl) &&
                     kindOf(record.bytes) == LC_KIND_ACTION;
    return own ? checkSize(record, LCM_Rule::ActionSizeWrong, sizeof(tagCDB_LC_ACT)) : std::nullopt;
}

} // namespace

std::optional<LCM_Finding> lcm_check_record(const LCM_RawRecord& record)
{
    if (record.kwh == LC_KWH_ACTIONS) {
        return checkAction(record);
    }
    if (!record.first) {
        return std::nullopt;
    }
    if (record.kwh == LC_KWH_CASES) {
        return checkLoadCase(record);
    }
    if (record.kwh == LC_KWH_CURRENT && record.kwl == LC_KWL_CURRENT) {
        return checkCurrent(record);
    }
    return record.kwh == LC_KWH_SYSTEM && record.kwl == 0
               ? checkSize(record, LCM_Rule::SystemRecordSizeWrong, LC_SYSTEM_BYTES)
               : std::nullopt;
}
