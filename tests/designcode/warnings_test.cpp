#include <gmock/gmock.h>

#include "designcode/reader_sample.h"

using mrl::test::parsed;
using mrl::test::READER_SAMPLE;
using mrl::test::sampleWith;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The warnings of a text as "LINE TEXT [RULE]".
std::vector<std::string> warningsOf(const std::string& text)
{
    std::vector<std::string> out;
    for (const auto& warning : mrl::designcode::warnings(parsed(text))) {
        out.push_back(std::to_string(warning.line) + " " + warning.text + " [" + idOf(warning.rule) + "]");
    }
    return out;
}

} // namespace

TEST(DesignCodeWarnings, SoundCodeHasNone) { EXPECT_THAT(warningsOf(READER_SAMPLE), IsEmpty()); }

TEST(DesignCodeWarnings, MissingOldNumbersAreNamed)
{
    EXPECT_THAT(
        warningsOf(sampleWith("old = 2, 3", "old = 3", sampleWith("old = 7\n", ""))),
        ElementsAre(
            "0 no action has the old number 2, which stands for the plain dead action [old-number-missing]",
            "0 no action has the old number 7, which stands for the plain live action [old-number-missing]"));
}

TEST(DesignCodeWarnings, CodeWithoutActionsNeedsNoOldNumbers)
{
    EXPECT_THAT(warningsOf("[DESIGN CODE]\nlabel=L\nntcode=0\nidcode=0\ncountry=0\nyear=0\n"), IsEmpty());
}

TEST(DesignCodeWarnings, GamaNeedsTheActionsSection)
{
    EXPECT_THAT(warningsOf(sampleWith("[ACTIONS]\nTXT_GAMU = γG,sup\nTXT_GAMF = γG,inf\n", "")),
                ElementsAre("0 Gama is marked, but without the section ACTIONS it is not offered "
                            "[gama-without-actions-section]"));
}

TEST(DesignCodeWarnings, LabelNoneBesideAMark)
{
    EXPECT_THAT(warningsOf(sampleWith("γG,inf", "none")),
                ElementsAre("0 Gamf is marked, but its label is \"none\" [label-none-beside-mark]"));
}

TEST(DesignCodeWarnings, LabelAboveTwentyBytesWillBeCut)
{
    // 21 bytes: three characters of two bytes and fifteen of one.
    EXPECT_THAT(
        warningsOf(sampleWith("γG,inf", "γγγ012345678901234")),
        ElementsAre("0 the label of TXT_GAMF is longer than 20 bytes and will be cut [label-too-long]"));
}

TEST(DesignCodeWarnings, FactorWithoutAMark)
{
    EXPECT_THAT(warningsOf(sampleWith("Psi0 = 0.7\n", "Psi0 = 0.7\nPsi1s = 0.8\n")),
                ElementsAre("31 action Q: Psi1s is stated, but not marked as known [factor-not-marked]"));
}

TEST(DesignCodeWarnings, GamaMarkedAndNotStated)
{
    EXPECT_THAT(warningsOf(sampleWith("Gama = 1.0\n", "")),
                ElementsAre("20 action G: Gama is marked, but not stated [gama-not-stated]"));
}

TEST(DesignCodeWarnings, LimitBelowZero)
{
    EXPECT_THAT(
        warningsOf(
            "[DESIGN CODE]\nlabel=L\nntcode=0\nidcode=0\ncountry=0\nyear=0\n[AVAILABILITY]\nGamu=-1\n"),
        ElementsAre("0 the limit of Gamu is below 0 [limit-below-0]"));
}

TEST(DesignCodeWarnings, SuffixedActionNeedsItsPlainOneAhead)
{
    EXPECT_THAT(warningsOf(sampleWith("[ACTION Q_A]", "[ACTION R_A]")),
                ElementsAre("41 action R_A: the plain action of its first part has to stand ahead of it "
                            "[plain-action-not-ahead]"));
}

TEST(DesignCodeWarnings, GroupedActionNeedsItsPlainOneAhead)
{
    EXPECT_THAT(warningsOf(sampleWith("[ACTION Q_A]", "[ACTION R]")),
                ElementsAre("41 action R: the plain action of its first part has to stand ahead of it "
                            "[plain-action-not-ahead]"));
}
