// The situations of a design code: read, left out where they are broken, and judged.
#include <gmock/gmock.h>

#include <algorithm>

#include "designcode/reader_sample.h"

using mrl::designcode::DesignCode;
using mrl::test::parsed;
using mrl::test::READER_SAMPLE;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::string PERSISTENT = "[SITUATION persistent]\nkind = ultimate\nclause = 6.10\nstate = verified\n"
                               "G = KFI*Gamu | Gamf\nP = Gamu | Gamf\nlead = KFI*Gamu\n"
                               "others = KFI*Gamu*Psi0\nA = none\nE = none\n";

DesignCode withSituation(const std::string& text) { return parsed(READER_SAMPLE + text); }

/// The warnings of a text as "LINE TEXT [RULE]"; lines count from the first of the situation.
std::vector<std::string> warningsOf(const std::string& text)
{
    const auto before = std::count(READER_SAMPLE.begin(), READER_SAMPLE.end(), '\n');
    std::vector<std::string> out;
    for (const auto& warning : mrl::designcode::warnings(withSituation(text))) {
        out.push_back(std::to_string(warning.line - before) + " " + warning.text + " [" + idOf(warning.rule) +
                      "]");
    }
    return out;
}

std::string persistentWith(const std::string& from, const std::string& to)
{
    return mrl::test::sampleWith(from, to, PERSISTENT);
}

} // namespace

TEST(Situations, SoundOneIsReadWithoutAWarning)
{
    const DesignCode code = withSituation(PERSISTENT);
    ASSERT_EQ(code.situations.size(), 1u);
    EXPECT_EQ(code.situations[0].name, "persistent");
    EXPECT_EQ(code.situations[0].clause, "6.10");
    EXPECT_EQ(code.situations[0].state, "verified");
    EXPECT_EQ(code.situations[0].expressions.size(), 1u);
    EXPECT_THAT(warningsOf(PERSISTENT), IsEmpty());
}

TEST(Situations, ConstantsOfTheCodeMayBeNamed)
{
    const std::string own = mrl::test::sampleWith("XSI = 0.85\n", "XSI = 0.85\nF1 = 0.5\n") +
                            persistentWith("others = KFI*Gamu*Psi0", "others = F1*Gamu*Psi0");
    EXPECT_EQ(parsed(own).constants.at("F1"), 0.5f);
    EXPECT_EQ(parsed(own).situations.size(), 1u);
}

TEST(Situations, ConstantThatNoTermNamesIsRefused)
{
    EXPECT_EQ(mrl::test::errorOf(mrl::test::sampleWith("XSI = 0.85\n", "XSI = 0.85\nF1 = 0.5\n")),
              "bad.ini:17:6: entry 'F1' is not known in section 'COMBINATIONS': no situation names it: leave "
              "it out");
}

TEST(Situations, BrokenOneIsToldWithItsLineAndLeftOut)
{
    const std::string broken = persistentWith("lead = KFI*Gamu\n", "lead = KFI*Gamma\n");
    EXPECT_THAT(withSituation(broken).situations, IsEmpty());
    EXPECT_THAT(warningsOf(broken),
                ElementsAre("7 situation persistent: 'Gamma' is neither a factor nor a constant of "
                            "[COMBINATIONS] [situation-not-readable]"));
}

TEST(Situations, ExpressionThatLacksACategoryIsTold)
{
    EXPECT_THAT(warningsOf(persistentWith("E = none\n", "")),
                ElementsAre("1 situation persistent: 'E' is missing "
                            "[situation-not-readable]"));
}

TEST(Situations, FactorWithoutAMarkIsTold)
{
    EXPECT_THAT(warningsOf(persistentWith("KFI*Gamu*Psi0", "KFI*Gamu*Psi1s")),
                ElementsAre("8 situation persistent: Psi1s is named, but not marked as known "
                            "[situation-factor-not-marked]"));
}

TEST(Situations, ActionThatIsNoneIsToldWithTheNearestOne)
{
    EXPECT_THAT(warningsOf(PERSISTENT + "lead Q_B = 1.35\n"),
                ElementsAre("11 situation persistent: there is no action 'Q_B' "
                            "[situation-action-unknown]"));
}

TEST(Situations, UnfavourableBelowFavourableIsTold)
{
    EXPECT_THAT(warningsOf(persistentWith("G = KFI*Gamu | Gamf", "G = 0.9 | 1.35")),
                ElementsAre("5 situation persistent: of action G the unfavourable factor is below the "
                            "favourable one [situation-unfavourable-below-favourable]"));
}

TEST(Situations, ActionThatNoExpressionUsesIsTold)
{
    const std::string text =
        persistentWith("lead = KFI*Gamu\nothers = KFI*Gamu*Psi0\n", "lead = none\nothers = none\n");
    EXPECT_THAT(warningsOf(text),
                Contains("-20 action Q: no expression of a situation uses it [action-in-no-situation]"));
}
