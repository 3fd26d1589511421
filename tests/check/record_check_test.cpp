#include "check/record_check.h"

#include <gtest/gtest.h>

#include <cstring>

#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/records.h"
#include "tests/support/plain_findings.h"

namespace {

std::string record(int kind, std::size_t size)
{
    std::string bytes(size, '\0');
    std::memcpy(bytes.data(), &kind, std::min(size, sizeof kind));
    return bytes;
}

/// The finding as "RULE ARGUMENTS", empty for a sound record.
std::string check(int kwh, int kwl, const std::string& bytes, bool first = true)
{
    const auto finding = lcm_check_record({kwh, kwl, first, bytes});
    if (!finding) {
        return {};
    }
    EXPECT_EQ(finding->subject, LCM_Subject::Key);
    EXPECT_EQ(finding->group, kwh);
    EXPECT_EQ(finding->id, kwl);
    return mrl::test::plain(*finding);
}

const int G = lcm_normalise_code(QStringLiteral("G"));

} // namespace

TEST(RecordCheck, RecordsOfTheirSizeAreSound)
{
    EXPECT_EQ(check(LC_KWH_ACTIONS, G, record(1, sizeof(tagCDB_LC_ACT))), "");
    EXPECT_EQ(check(LC_KWH_CASES, 1, record(0, sizeof(tagCDB_LC_CTRL))), "");
    EXPECT_EQ(check(LC_KWH_CASES, 1, record(1, sizeof(tagCDB_LC_CTRL))), "");
    EXPECT_EQ(check(LC_KWH_CURRENT, LC_KWL_CURRENT, record(0, LC_CURRENT_BYTES)), "");
    EXPECT_EQ(check(LC_KWH_SYSTEM, 0, record(20, LC_SYSTEM_BYTES)), "");
}

TEST(RecordCheck, AnotherSizeIsAFindingWithBothSizes)
{
    EXPECT_EQ(check(LC_KWH_ACTIONS, G, record(1, 113)), "action-size-wrong 113 112");
    EXPECT_EQ(check(LC_KWH_CASES, 1, record(0, 4)), "load-case-size-wrong 4 188");
    EXPECT_EQ(check(LC_KWH_CASES, 1, ""), "load-case-size-wrong 0 188");
    EXPECT_EQ(check(LC_KWH_CURRENT, LC_KWL_CURRENT, record(0, 8)), "current-load-case-size-wrong 8 12");
    EXPECT_EQ(check(LC_KWH_SYSTEM, 0, record(0, 8)), "system-record-size-wrong 8 352");
}

TEST(RecordCheck, CurrentLoadCaseOfAnotherKindCountsAsAbsent)
{
    EXPECT_EQ(check(LC_KWH_CURRENT, LC_KWL_CURRENT, record(1, LC_CURRENT_BYTES)),
              "current-load-case-kind-wrong 1");
}

TEST(RecordCheck, LoadCaseNumberBelowOneIsAFindingWhateverItsKind)
{
    EXPECT_EQ(check(LC_KWH_CASES, 0, record(0, sizeof(tagCDB_LC_CTRL))), "load-case-number-not-above-0");
    EXPECT_EQ(check(LC_KWH_CASES, -4, record(5, 4)), "load-case-number-not-above-0");
}

TEST(RecordCheck, RecordsOfOtherModulesAreTheirBusiness)
{
    EXPECT_EQ(check(LC_KWH_CASES, 1, record(5, 7)), "");
    EXPECT_EQ(check(LC_KWH_CASES, 1, record(0, 7), false), "") << "behind the first of its key";
    EXPECT_EQ(check(LC_KWH_ACTIONS, 5, record(1, 7)), "") << "superposition data";
    EXPECT_EQ(check(LC_KWH_ACTIONS, lcm_normalise_code(QStringLiteral("Y1")), record(1, 7)), "");
    EXPECT_EQ(check(LC_KWH_ACTIONS, G, record(2, 7)), "");
    EXPECT_EQ(check(LC_KWH_SYSTEM, 1, record(0, 7)), "");
    EXPECT_EQ(check(99, 0, record(0, 7)), "");
}

TEST(RecordCheck, EachDefinitionOfAnActionHasItsSize)
{
    EXPECT_EQ(check(LC_KWH_ACTIONS, G, record(1, 4), false), "action-size-wrong 4 112");
}
