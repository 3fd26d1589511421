#include "tests/exchange/exchange_fixture.h"
#include "tests/support/action_builder.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/memory_project.h"

using namespace mrl::test;
using testing::ElementsAre;

namespace {

TEST(JsonText, HoldsBothSheetsWithNumbersAsNumbers)
{
    const MemoryProject project;
    project.putAction(soundAction("G").title("a \"b\""));
    project.putLoadCase(1, following("G"));
    EXPECT_EQ(
        written("json", project.db(), {Sheet::Actions, Sheet::LoadCases}),
        "{\n \"actions\": [\n"
        "  {\"name\": \"G\", \"title\": \"a \\\"b\\\"\", \"partition\": \"Q\", \"superposition\": \"EXCL\", "
        "\"Gamu\": 1.35, \"Gamf\": 1, \"Gama\": 1, \"Psi0\": 0.5, \"Psi1\": 0.5, \"Psi2\": 0.5, \"Psi1s\": "
        "0.5}\n"
        " ],\n \"loadcases\": [\n"
        "  {\"number\": 1, \"title\": \"\", \"action\": \"G\", \"DLX\": 0, \"DLY\": 0, \"DLZ\": 0, "
        "\"factor\": 1, "
        "\"Gamu\": null, \"Gamf\": null, \"Gama\": null, \"Psi0\": null, \"Psi1\": null, \"Psi2\": null, "
        "\"Psi1s\": null}\n ]\n}\n");
}

TEST(JsonText, ObjectsMayLackWhatOthersHave)
{
    const auto read =
        readAs("json", R"({"loadcases": [{"number": 1, "DLZ": 0.1}, {"number": 2}, {"number": 3}]})");
    ASSERT_EQ(read.tables.size(), 2u);
    EXPECT_THAT(rowsOf(read), ElementsAre("1|0.1"));
    EXPECT_EQ(read.tables[1].rows.size(), 2u);
}

TEST(JsonText, WhatIsNoTableIsRefused)
{
    EXPECT_EQ(errorOf("json", "[1"), "the file is no JSON object");
    EXPECT_EQ(errorOf("json", "3"), "the file is no JSON object");
    EXPECT_EQ(errorOf("json", R"({"combinations": []})"),
              "the file has neither \"actions\" nor \"loadcases\"");
    EXPECT_EQ(errorOf("json", "{\"loadcases\": [}"), "the file is no JSON: byte 16 is not expected");
    EXPECT_EQ(errorOf("json", R"({"loadcases": 3})"), "loadcases, entry 1 is no object");
    EXPECT_EQ(errorOf("json", R"({"loadcases": [{"number": [1]}]})"),
              "loadcases, entry 1: \"number\" is neither text nor number");
    EXPECT_EQ(errorOf("json", R"({"loadcases": [{"number": 1, "Nr": 2}]})"),
              "loadcases, entry 1: two entries mean \"number\"");
}

} // namespace
