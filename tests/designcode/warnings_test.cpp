#include <gmock/gmock.h>

#include "designcode/sample_code.h"

using mrl::test::parsed;
using mrl::test::SAMPLE_CODE;
using mrl::test::sampleWith;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The warnings of a text as "LINE TEXT".
std::vector<std::string> warningsOf(const std::string& text)
{
    std::vector<std::string> out;
    for (const auto& warning : mrl::designcode::warnings(parsed(text))) {
        out.push_back(std::to_string(warning.line) + " " + warning.text);
    }
    return out;
}

const std::string OWN_BOUND =
    sampleWith("idcode = 2\ncountry = 0\nyear = 2002", "idcode = 2\ncountry = 45\nyear = 2004",
               sampleWith("Psi2 = 1\n", "Psi2 = 1\nPsi1s = 1\n"));

} // namespace

TEST(DesignCodeWarnings, SoundCodeHasNone) { EXPECT_THAT(warningsOf(SAMPLE_CODE), IsEmpty()); }

TEST(DesignCodeWarnings, LowerCaseNameCannotBeTyped)
{
    EXPECT_THAT(warningsOf(sampleWith("[ACTION Q_A]", "[ACTION Q_a]")),
                ElementsAre("41 action Q_a: the name holds lower-case letters and can't be typed"));
}

TEST(DesignCodeWarnings, SuffixOfTwoCharactersDoesNotSurviveEditing)
{
    EXPECT_THAT(warningsOf(sampleWith("[ACTION Q_A]", "[ACTION Q_AB]")),
                ElementsAre("41 action Q_AB: a suffix of more than one character doesn't survive editing"));
}

TEST(DesignCodeWarnings, NameWithYIsReserved)
{
    EXPECT_THAT(
        warningsOf(sampleWith("[ACTION G]", "[ACTION Y1]")),
        ElementsAre("20 action Y1: names that begin with Y are reserved and never loaded from a project"));
}

TEST(DesignCodeWarnings, MissingOldNumbersAreNamed)
{
    EXPECT_THAT(warningsOf(sampleWith("old = 2, 3", "old = 3", sampleWith("old = 7\n", ""))),
                ElementsAre("0 no action has the old number 2, which stands for the plain dead action",
                            "0 no action has the old number 7, which stands for the plain live action"));
}

TEST(DesignCodeWarnings, CodeWithoutActionsNeedsNoOldNumbers)
{
    EXPECT_THAT(warningsOf("[DESIGN CODE]\nlabel=L\nntcode=0\nidcode=0\ncountry=0\nyear=0\n"), IsEmpty());
}

TEST(DesignCodeWarnings, GamaNeedsTheActionsSection)
{
    EXPECT_THAT(warningsOf(sampleWith("[ACTIONS]\nTXT_GAMU = γG,sup\nTXT_GAMF = γG,inf\n", "")),
                ElementsAre("0 Gama is marked, but without the section ACTIONS it is not offered"));
}

TEST(DesignCodeWarnings, GamuOfZeroIsCondemned)
{
    EXPECT_THAT(warningsOf(sampleWith("Gamu = 1.35\nGamf = 1.0", "Gamu = 0\nGamf = 0")),
                ElementsAre("20 action G: Gamu has to be above 0"));
}

TEST(DesignCodeWarnings, GamfAboveGamuIsCondemned)
{
    EXPECT_THAT(warningsOf(sampleWith("Gamf = 1.0", "Gamf = 1.36")),
                ElementsAre("20 action G: Gamf has to be between 0 and Gamu"));
}

TEST(DesignCodeWarnings, Psi0AboveItsLimitIsCondemned)
{
    EXPECT_THAT(warningsOf(sampleWith("Psi0 = 0.7", "Psi0 = 1.2")),
                ElementsAre("31 action Q: Psi0 has to be between 0 and its limit"));
}

TEST(DesignCodeWarnings, Psi2AbovePsi1CondemnsBoth)
{
    EXPECT_THAT(warningsOf(sampleWith("Psi2 = 0.3", "Psi2 = 0.6")),
                ElementsAre("31 action Q: Psi1 has to be between Psi2 and its limit",
                            "31 action Q: Psi2 has to be between 0 and Psi1, and at most its limit"));
}

TEST(DesignCodeWarnings, Psi1sBelowPsi1IsCondemned)
{
    // G and Q_A state no Psi1s, so theirs is 0 and below their Psi1 as well.
    const std::string text = sampleWith("Psi2 = 0.3\n", "Psi2 = 0.3\nPsi1s = 0.4\n",
                                        sampleWith("Psi2 = 1\n", "Psi2 = 1\nPsi1s = 1\n"));
    EXPECT_THAT(warningsOf(text), ElementsAre("21 action G: Psi1s has to be between Psi1 and its limit",
                                              "32 action Q: Psi1s has to be between Psi1 and its limit",
                                              "43 action Q_A: Psi1s has to be between Psi1 and its limit"));
}

TEST(DesignCodeWarnings, TheCodeWithItsOwnBoundAsksForNineTenths)
{
    const std::string text =
        sampleWith("Psi2 = 1.0\n", "Psi2 = 1.0\nPsi1s = 0.9\n",
                   sampleWith("Psi2 = 0.3\n[", "Psi2 = 0.3\nPsi1s = 0.89\n[",
                              sampleWith("[ACTION Q_A]\n", "[ACTION Q_A]\nPsi1s = 1\n", OWN_BOUND)));
    EXPECT_THAT(warningsOf(text), ElementsAre("33 action Q: Psi1s has to be between 0.9 and its limit"));
}

TEST(DesignCodeWarnings, Psi1WithoutPsi2IsATrap)
{
    std::string text = sampleWith("Psi1 = 1\nPsi2 = 1\n", "Psi1 = 1\n");
    for (const char* line : {"Psi2 = 1.0\n", "Psi2 = 0.3\n", "Psi2 = 0.3\n"}) {
        text = sampleWith(line, "", text);
    }
    EXPECT_THAT(warningsOf(text),
                ElementsAre("0 Psi1 is marked without Psi2, so that every Psi1 below 1.0 is refused",
                            "29 action Q: Psi1 has to be between Psi2 and its limit",
                            "38 action Q_A: Psi1 has to be between Psi2 and its limit"));
}

TEST(DesignCodeWarnings, LabelNoneBesideAMark)
{
    EXPECT_THAT(warningsOf(sampleWith("γG,inf", "none")),
                ElementsAre("0 Gamf is marked, but its label is \"none\""));
}

TEST(DesignCodeWarnings, LabelAboveTwentyBytesWillBeCut)
{
    // 21 bytes: three characters of two bytes and fifteen of one.
    EXPECT_THAT(warningsOf(sampleWith("γG,inf", "γγγ012345678901234")),
                ElementsAre("0 the label of TXT_GAMF is longer than 20 bytes and will be cut"));
}

TEST(DesignCodeWarnings, FactorWithoutAMark)
{
    EXPECT_THAT(warningsOf(sampleWith("Psi0 = 0.7\n", "Psi0 = 0.7\nPsi1s = 0.8\n")),
                ElementsAre("31 action Q: Psi1s is stated, but not marked as known"));
}

TEST(DesignCodeWarnings, GamaMarkedAndNotStated)
{
    EXPECT_THAT(warningsOf(sampleWith("Gama = 1.0\n", "")),
                ElementsAre("20 action G: Gama is marked, but not stated"));
}

TEST(DesignCodeWarnings, LimitBelowZero)
{
    EXPECT_THAT(
        warningsOf(
            "[DESIGN CODE]\nlabel=L\nntcode=0\nidcode=0\ncountry=0\nyear=0\n[AVAILABILITY]\nGamu=-1\n"),
        ElementsAre("0 the limit of Gamu is below 0"));
}

TEST(DesignCodeWarnings, SuffixedActionNeedsItsPlainOneAhead)
{
    EXPECT_THAT(warningsOf(sampleWith("[ACTION Q_A]", "[ACTION R_A]")),
                ElementsAre("41 action R_A: the plain action of its first part has to stand ahead of it"));
}

TEST(DesignCodeWarnings, GroupedActionNeedsItsPlainOneAhead)
{
    EXPECT_THAT(warningsOf(sampleWith("[ACTION Q_A]", "[ACTION R]")),
                ElementsAre("41 action R: the plain action of its first part has to stand ahead of it"));
}
