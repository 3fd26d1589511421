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
                ElementsAre("40 action Q: Psi1s is stated, but not marked as known [factor-not-marked]"));
}

TEST(DesignCodeWarnings, GamaMarkedAndNotStated)
{
    EXPECT_THAT(warningsOf(sampleWith("Gama = 1.0\n", "")),
                ElementsAre("20 action G: Gama is marked, but not stated [gama-not-stated]"));
}

namespace {

/// A value that loads and can't be meant.
struct Trap
{
    const char* name;
    const char* from;
    const char* to;
    const char* warning;
};

std::ostream& operator<<(std::ostream& out, const Trap& trap) { return out << trap.name; }

class TrappedCode : public testing::TestWithParam<Trap>
{
};

const Trap TRAPS[] = {
    {"PsiMissing", "Psi0 = 0.7\n", "",
     "31 action Q: Psi0 is marked, but not stated: it counts as 0 [factor-not-stated]"},
    {"FavourableFactorMissing", "Gamf = 1.0\n", "",
     "20 action G: Gamf is marked, but not stated: it counts as 0 [factor-not-stated]"},
    {"UnfavourableFactorMissing", "Gamu = 1.35\n", "",
     "20 action G: Gamu is marked, but not stated: it counts as 0 [factor-not-stated]"},
    {"PointForgotten", "Gamu = 1.35", "Gamu = 135", "25 action G: Gamu is above 3 [gamma-above-3]"},
    {"PointMisplaced", "Gamu = 1.5\n", "Gamu = 15\n", "36 action Q: Gamu is above 3 [gamma-above-3]"},
    {"PsiInPercent", "Psi0 = 0.7", "Psi0 = 70", "39 action Q: Psi0 is above 1 [psi-above-1]"},
    {"XsiInPercent", "XSI = 0.85", "XSI = 85", "16 XSI is not above 0 and at most 1 [xsi-out-of-range]"},
    {"XsiOfZero", "XSI = 0.85", "XSI = 0", "16 XSI is not above 0 and at most 1 [xsi-out-of-range]"},
    {"KfiBelowZero", "KFI = 1.1", "KFI = -1", "15 KFI is not between 0.5 and 2 [kfi-out-of-range]"},
    {"KfiWithoutPoint", "KFI = 1.1", "KFI = 11", "15 KFI is not between 0.5 and 2 [kfi-out-of-range]"},
    {"VariableActionThatHelps", "Gamf = 0\n", "Gamf = 1.35\n",
     "37 action Q: Gamf of a variable action is above 1 [gamf-above-1-of-variable-action]"},
};

} // namespace

TEST_P(TrappedCode, IsToldWithTheLineOfTheEntry)
{
    EXPECT_THAT(warningsOf(sampleWith(GetParam().from, GetParam().to)), ElementsAre(GetParam().warning));
}

INSTANTIATE_TEST_SUITE_P(Designcode, TrappedCode, testing::ValuesIn(TRAPS),
                         [](const auto& trap) { return std::string(trap.param.name); });

TEST(DesignCodeWarnings, HaveACureEach)
{
    const auto all = mrl::designcode::warnings(parsed(sampleWith("Gamu = 1.35", "Gamu = 135")));
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(all[0].cure, "look for the point");
    EXPECT_EQ(all[0].column, 8);
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
                ElementsAre("42 action R_A: the plain action of its first part has to stand ahead of it "
                            "[plain-action-not-ahead]"));
}

TEST(DesignCodeWarnings, GroupedActionNeedsItsPlainOneAhead)
{
    EXPECT_THAT(warningsOf(sampleWith("[ACTION Q_A]", "[ACTION R]")),
                ElementsAre("42 action R: the plain action of its first part has to stand ahead of it "
                            "[plain-action-not-ahead]"));
}
