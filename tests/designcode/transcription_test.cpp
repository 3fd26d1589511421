// Every shipped code against a second transcription, typed by another hand than the file: a table of its own for
// each code under transcription/, with the columns action, factor, value, clause and state.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>
#include <variant>
#include <vector>

#include "hostlib/data/designcode/designcode.h"
#include "lcdata/values/factors.h"

using mrl::designcode::DesignCode;
using mrl::designcode::wordOf;

namespace {

std::vector<std::string> cells(const std::string& line)
{
    std::vector<std::string> out;
    std::istringstream in(line);
    for (std::string cell; std::getline(in, cell, ',');) {
        out.push_back(cell);
    }
    return out;
}

struct Row
{
    float value = 0.0f;
    std::string
        state; ///< empty: it follows from the structure of the combinations, and nobody counts its sources
};

/// By action and factor; the constants stand under COMBINATIONS.
using Table = std::map<std::pair<std::string, std::string>, Row>;

Table tableOf(const std::filesystem::path& file)
{
    std::ifstream in(file);
    std::string line;
    std::getline(in, line);
    EXPECT_EQ(line, "action,factor,value,clause,state");
    Table table;
    while (std::getline(in, line)) {
        const auto row = cells(line + ",");
        EXPECT_GE(row.size(), 4u) << line;
        const Row typed{std::stof(row.at(2)), row.size() > 4 ? row[4] : std::string()};
        EXPECT_TRUE(table.emplace(std::pair(row[0], row[1]), typed).second) << "twice: " << line;
    }
    return table;
}

/// What a shipped file states, with what it inherits.
Table statedBy(const DesignCode& code)
{
    Table table;
    for (const auto& action : code.actions) {
        for (const LCM_Factor& factor : LCM_FACTORS) {
            const auto& origin = action.origins[factor.id];
            if (origin.isStated()) {
                table[{action.name, factor.key}] = {lcm_stored_factor(action.record, factor),
                                                    std::string(wordOf(origin.source.state))};
            }
        }
    }
    const std::pair<const char*, std::optional<float>> constants[] = {{"KFI", code.kfi}, {"XSI", code.xsi}};
    for (const auto& [name, value] : constants) {
        if (value) {
            table[{"COMBINATIONS", name}] = {*value, {}};
        }
    }
    return table;
}

/// How much a state claims.
int rankOf(const std::string& state)
{
    const std::vector<std::string> states{"unverified", "own choice", "one source", "verified"};
    return static_cast<int>(std::find(states.begin(), states.end(), state) - states.begin());
}

DesignCode shipped(const std::filesystem::path& table)
{
    return std::get<DesignCode>(mrl::designcode::read(*mrl::designcode::find(table.stem().string())));
}

class Transcription : public testing::TestWithParam<std::filesystem::path>
{
};

std::vector<std::filesystem::path> tables()
{
    std::vector<std::filesystem::path> out;
    for (const auto& entry : std::filesystem::directory_iterator(MRL_TRANSCRIPTION_DIR)) {
        out.push_back(entry.path());
    }
    std::sort(out.begin(), out.end());
    return out;
}

} // namespace

TEST(Transcriptions, ThereIsOneOfEachShippedCode)
{
    std::vector<std::string> typed;
    for (const auto& table : tables()) {
        typed.push_back(table.stem().string());
    }
    std::vector<std::string> codes;
    for (const auto& found : mrl::designcode::list()) {
        codes.push_back(found.name);
    }
    EXPECT_THAT(typed, testing::UnorderedElementsAreArray(codes));
}

TEST_P(Transcription, HasEveryValueOfTheShippedFileAndNoOther)
{
    const Table typed = tableOf(GetParam());
    const Table stated = statedBy(shipped(GetParam()));
    for (const auto& [key, row] : stated) {
        const auto found = typed.find(key);
        ASSERT_NE(found, typed.end()) << key.first << " " << key.second << " is in the file alone";
        EXPECT_EQ(row.value, found->second.value) << key.first << " " << key.second;
    }
    for (const auto& entry : typed) {
        EXPECT_EQ(stated.count(entry.first), 1u) << entry.first.first << " " << entry.first.second;
    }
}

TEST_P(Transcription, VouchesForWhatTheShippedFileClaims)
{
    const Table typed = tableOf(GetParam());
    for (const auto& [key, row] : statedBy(shipped(GetParam()))) {
        const auto found = typed.find(key);
        if (found != typed.end() && !found->second.state.empty() && !row.state.empty()) {
            EXPECT_LE(rankOf(row.state), rankOf(found->second.state)) << key.first << " " << key.second;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Designcode, Transcription, testing::ValuesIn(tables()), [](const auto& sample) {
    std::string name = sample.param.stem().string();
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
});
