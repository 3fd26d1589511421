// A whole project through JSON, judged by nothing.
#include <cmath>

#include "exchange/json_text.h"
#include "tests/exchange/exchange_fixture.h"
#include "tests/support/project_test.h"

using namespace mrl::test;
using mrl::exchange::ProjectContent;
using testing::HasSubstr;

namespace {

std::map<std::string, std::string> factsOf(int db)
{
    std::map<std::string, std::string> facts;
    EXPECT_TRUE(static_cast<bool>(mrl::cdb::facts(db, facts)));
    return facts;
}

std::string wholeJson(int db)
{
    return written("json", {db, "p", {Sheet::Actions, Sheet::LoadCases}, true, factsOf(db)});
}

ProjectContent restored(const std::string& json)
{
    auto read = mrl::exchange::projectOfJson(json);
    if (const auto* error = std::get_if<mrl::exchange::FormatError>(&read)) {
        ADD_FAILURE() << error->message.english();
        return {};
    }
    return std::get<ProjectContent>(std::move(read));
}

void expectRestored(int db)
{
    const ProjectContent expected = mrl::exchange::contentOf(db, factsOf(db));
    const ProjectContent content = restored(wholeJson(db));
    EXPECT_EQ(content.facts, expected.facts);
    EXPECT_TRUE(content.keys == expected.keys);
    EXPECT_GT(expected.keys.size(), 0u);
}

TEST(WholeProject, EverySampleComesBackBitForBitTheOddOneToo)
{
    for (const char* name : {"frame", "road-bridge", "oddities"}) {
        SCOPED_TRACE(name);
        const auto opened = mrl::cdb::openReadOnly(std::string(MRL_SAMPLES "/") + name + ".cdb");
        ASSERT_TRUE(static_cast<bool>(opened)) << opened.result.text;
        expectRestored(opened.db);
        mrl::cdb::close(opened.db);
    }
}

TEST(WholeProject, RecordsThatHoldMoreThanTheirCellsComeBack)
{
    const MemoryProject project(SAMPLE_CODE);
    project.putAction(soundAction("Q").gama(0.0f));
    project.putAction(lcm_pack_word("Y1"), soundAction("Q"));
    project.putAction(LC_BLANK_WORD, soundAction(""));
    project.putLoadCase(1, following("Q").kind(1));
    project.putLoadCase(2, following("Q").deadWeight(std::nanf("7"), -0.0f, HUGE_VALF));
    project.putLoadCase(1000001, standalone());
    project.putLoadCase(3, bareLoadCase().kind(9));
    project.append(LC_KWH_CASES, 1, 4711);
    project.put(-3, -2147483647 - 1, std::array<char, 3>{'a', 'b', 'c'});
    tagCDB_LC_CTRL reserved = standalone().title(QString("a") + QChar(0xD800));
    reserved.reserved3[7] = 5;
    project.putLoadCase(4, reserved);
    expectRestored(project.db());
}

TEST(WholeProject, PlainRecordsStandAsRowsAlone)
{
    const MemoryProject project(SAMPLE_CODE);
    project.putAction(soundAction("Q"));
    project.putLoadCase(7, following("Q").title("Snow"));
    EXPECT_THAT(wholeJson(project.db()), HasSubstr("\"records\": [\n ]"));
}

TEST(WholeProject, RowThatContradictsItsRecordIsRefused)
{
    const MemoryProject project(SAMPLE_CODE);
    project.putLoadCase(1, standalone().kind(1).title("Snow"));
    const std::string json = wholeJson(project.db());
    const auto read = mrl::exchange::projectOfJson(replaced(json, "Snow", "Wind"));
    ASSERT_TRUE(std::holds_alternative<mrl::exchange::FormatError>(read));
    EXPECT_EQ(std::get<mrl::exchange::FormatError>(read).message.english(),
              "loadcases, entry 1 makes no record, or contradicts that under its key");
}

TEST(WholeProject, WhatIsNoRecordIsRefusedWithItsPlace)
{
    const std::pair<const char*, const char*> files[] = {
        {R"({"records": [{"kwh": 1, "kwl": 2, "bytes": ["0g"]}]})",
         "records, entry 1: \"bytes\" is no even number of hexadecimal digits"},
        {R"({"records": [{"kwh": 1, "bytes": ["00"]}]})", "records, entry 1 lacks kwh, kwl or bytes"},
        {R"({"records": [{"kwh": 1.5, "kwl": 2, "bytes": ["00"]}]})",
         "records, entry 1: \"kwh\" is no number of a key"},
        {R"({"records": [{"kwh": 1, "kwl": 2, "bytes": ["00"]}, {"kwh": 1, "kwl": 2, "bytes": ["00"]}]})",
         "records, entry 2: the key stands twice"},
        {R"({"facts": [1]})", "facts, entry 1 is no object"}};
    for (const auto& [json, error] : files) {
        const auto read = mrl::exchange::projectOfJson(json);
        ASSERT_TRUE(std::holds_alternative<mrl::exchange::FormatError>(read)) << json;
        EXPECT_EQ(std::get<mrl::exchange::FormatError>(read).message.english(), error);
    }
}

} // namespace
