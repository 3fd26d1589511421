// Every shipped code against a second transcription, typed by another hand than the file: a table of its own for
// each code under transcription/, with the columns action, factor, value, clause and state.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <variant>
#include <vector>

#include "hostlib/data/designcode/designcode.h"
#include "lcdata/values/factors.h"

using mrl::designcode::DesignCode;

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

std::optional<float> stated(const DesignCode& code, const std::string& action, const std::string& factor)
{
    if (action == "COMBINATIONS") {
        const auto& value = factor == "KFI" ? code.kfi : code.xsi;
        return value;
    }
    for (const auto& candidate : code.actions) {
        for (const LCM_Factor& known : LCM_FACTORS) {
            if (candidate.name == action && known.key == factor) {
                return lcm_stored_factor(candidate.record, known);
            }
        }
    }
    return std::nullopt;
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

TEST_P(Transcription, AgreesWithTheShippedFile)
{
    const auto result = mrl::designcode::read(*mrl::designcode::find(GetParam().stem().string()));
    const auto& code = std::get<DesignCode>(result);
    std::ifstream in(GetParam());
    std::string line;
    ASSERT_TRUE(std::getline(in, line)) << "the heading";
    int rows = 0;
    while (std::getline(in, line)) {
        const auto row = cells(line);
        ASSERT_EQ(row.size(), 5u) << line;
        EXPECT_EQ(stated(code, row[0], row[1]), std::stof(row[2])) << line;
        ++rows;
    }
    EXPECT_GT(rows, 0);
}

INSTANTIATE_TEST_SUITE_P(Designcode, Transcription, testing::ValuesIn(tables()), [](const auto& sample) {
    std::string name = sample.param.stem().string();
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
});
