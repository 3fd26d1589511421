#include "check/finding_text.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTranslator>

#include "lcdata/values/packing.h"
#include "rules/action_columns.h"
#include "rules/action_rules.h"
#include "rules/load_case_rules.h"
#include "tests/support/action_builder.h"

using mrl::test::ActionBuilder;
using mrl::test::limitsOfOne;
using mrl::test::noLimits;
using mrl::test::soundAction;

namespace {

using Texts = std::map<int, std::string>;

Texts plain(const LCM_ErrorList& errors)
{
    Texts result;
    for (const auto& [column, text] : errors) {
        result[column] = text.toStdString();
    }
    return result;
}

Texts textsOfAction(const tagCDB_LC_ACT& row, const tagCDB_LC_ACT& limit = limitsOfOne(),
                    const LCM_DesignCodeIdentity& identity = {1, 2, 49, 2010})
{
    return plain(lcm_error_list(lcm_check_action(row, limit, identity)));
}

/// The texts of a load case with these factors and, where they are undefined, those of the action.
Texts textsOfLoadCase(float psi0, float psi1, float psi1s, float psi2, const tagCDB_LC_ACT& ofAction,
                      const tagCDB_LC_ACT& limit, float gamu = LC_UNDEFINED)
{
    tagCDB_LC_CTRL record{};
    record.gamu = gamu;
    record.gamf = LC_UNDEFINED;
    record.psi0 = psi0;
    record.psi1 = lcm_pack_pair(psi1, psi1s);
    record.psi2 = psi2;
    return plain(lcm_error_list(lcm_check_load_case(record, ofAction, limit)));
}

/// The application that Qt's translators need.
struct Application
{
    int argc = 0;
    QCoreApplication qt{argc, nullptr};
};

/// Translates every text of one context into the same word.
class OneWord : public QTranslator
{
  public:
    OneWord(const char* context, QString word) : m_context(context), m_word(std::move(word))
    {
        QCoreApplication::installTranslator(this);
    }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char*, const char*, int) const override
    {
        return m_context == context ? m_word : QString();
    }

  private:
    std::string m_context;
    QString m_word;
};

} // namespace

TEST(FindingText, CleanRowHasAnEmptyErrorList) { EXPECT_EQ(textsOfAction(soundAction()), Texts{}); }

TEST(FindingText, ZeroGamuOfAnActionHasToBeBigger)
{
    EXPECT_EQ(textsOfAction(soundAction().gamu(0.0f).gamf(0.0f)),
              (Texts{{ACT_COL_GAMU, "GAMU has to be bigger than 0.0!"}}));
}

TEST(FindingText, NegativeGamuOfALoadCaseHasToBeGreater)
{
    EXPECT_EQ(textsOfLoadCase(0, 0, 0, 0, soundAction(), noLimits().gamu(1.0f), -1.0f),
              (Texts{{LC_COL_GAMU, "GAMU has to be greater than 0.0!"}}));
}

TEST(FindingText, BoundsOfAnActionShowThreeSignificantDigits)
{
    // 1.234 in the format g with precision 3, and the limit 1.0 as 1.
    EXPECT_EQ(textsOfAction(soundAction().gamu(1.234f).gamf(1.3f).psi0(1.2f)),
              (Texts{{ACT_COL_GAMF, "GAMF has to be between 0.0 and 1.23!"},
                     {ACT_COL_PSI0, "Psi0 has to be between 0.0 and 1!"}}));
}

TEST(FindingText, UndefinedGamuIsABoundLikeAnyOther)
{
    EXPECT_EQ(textsOfAction(soundAction().gamu(LC_UNDEFINED).gamf(0.0f)),
              (Texts{{ACT_COL_GAMF, "GAMF has to be between 0.0 and -1e+05!"}}));
}

TEST(FindingText, LowerBoundOfPsi1ShowsSixDigitsAndTheUpperThree)
{
    // Psi2 = 0.71234: six significant digits below, three above (0.87654 becomes 0.877).
    const Texts texts = textsOfAction(soundAction().psi1(0.5f).psi2(0.71234f),
                                      limitsOfOne().psi1(0.87654f).psi2(1.0f).psi1s(0.0f));
    EXPECT_EQ(texts.at(ACT_COL_PSI1), "Psi1 has to be between 0.71234 and 0.877!");
    EXPECT_EQ(texts.at(ACT_COL_PSI2), "Psi2 has to be between 0.0 and 0.5!");
}

TEST(FindingText, LimitsOfThePsiOfAnAction)
{
    // Each above its limit and in order among themselves, or, for Psi1, below 0 with a Psi2 below it.
    EXPECT_EQ(textsOfAction(soundAction().psi1(-0.2f).psi2(-0.3f).psi1s(-0.1f)),
              (Texts{{ACT_COL_PSI1, "Psi1 has to be between 0.0 and 1!"},
                     {ACT_COL_PSI2, "Psi2 has to be between 0.0 and -0.2!"},
                     {ACT_COL_PSI1S, "Psi1' has to be between 0.0 and 1!"}}));
    EXPECT_EQ(textsOfAction(soundAction().psi1(0.9f).psi2(0.85f).psi1s(0.9f), limitsOfOne().psi2(0.8f)),
              (Texts{{ACT_COL_PSI2, "Psi2 has to be between 0.0 and 0.8!"}}));
}

TEST(FindingText, UpperBoundOfPsi1sReadsOneWhateverTheLimitIs)
{
    EXPECT_EQ(textsOfAction(soundAction().psi1s(0.85f), limitsOfOne().psi1s(0.8f)),
              (Texts{{ACT_COL_PSI1S, "Psi1' has to be between 0.5 and 1.0!"}}));
}

TEST(FindingText, DanishAnnexNamesPointNineAndOne)
{
    EXPECT_EQ(textsOfAction(soundAction().psi1s(0.8f), limitsOfOne(), {0, 2, 45, 2004}),
              (Texts{{ACT_COL_PSI1S, "Psi1' has to be between 0.9 and 1.0!"}}));
}

TEST(FindingText, NotANumberIsTold)
{
    EXPECT_EQ(
        textsOfAction(soundAction().psi1(std::numeric_limits<float>::quiet_NaN()), limitsOfOne().psi2(0.0f)),
        (Texts{{ACT_COL_PSI1, "Psi1 has to be between 1 and 1!"},
               {ACT_COL_PSI1S, "Psi1' has to be between nan and 1.0!"}}));
}

// Gamu and the limit of Psi1s in up to six digits, the others in three.
TEST(FindingText, NumbersOfALoadCaseHaveTheirDigits)
{
    const ActionBuilder fine =
        noLimits().gamu(1.0f).gamf(1.0f).psi0(0.87654f).psi1(1.16789f).psi2(1.0f).psi1s(1.98765f);
    EXPECT_EQ(textsOfLoadCase(LC_UNDEFINED, LC_UNDEFINED, LC_UNDEFINED, LC_UNDEFINED,
                              soundAction().gamu(1.234567f).gamf(2.0f), fine),
              (Texts{{LC_COL_GAMF, "GAMF has to be between 0.0 and 1.23457!"}}));
    EXPECT_EQ(textsOfLoadCase(2.0f, 0.1f, 1.0f, 0.12345f, soundAction(), fine),
              (Texts{{LC_COL_PSI0, "Psi0 has to be between 0.0 and 0.877!"},
                     {LC_COL_PSI1, "Psi1 has to be between 0.123 and 1.17!"},
                     {LC_COL_PSI2, "Psi2 has to be between 0.0 and 0.1!"}}));
    EXPECT_EQ(textsOfLoadCase(0.0f, 1.126f, 0.9f, 1.2f, soundAction(), fine),
              (Texts{{LC_COL_PSI1, "Psi1 has to be between 1.2 and 1.17!"},
                     {LC_COL_PSI2, "Psi2 has to be between 0.0 and 1.13!"},
                     {LC_COL_PSI1S, "Psi1' has to be between 1.13 and 1.98765!"}}));
}

TEST(FindingText, ProjectsAreToldWhatTheDialogDoes)
{
    const auto textOf = [](LCM_Rule rule, std::vector<LCM_Argument> arguments) {
        return lcm_finding_text({rule, LCM_Subject::Action, 0, 0, std::move(arguments)}).toStdString();
    };
    EXPECT_EQ(textOf(LCM_Rule::ActionNameReserved, {}),
              "names that begin with Y are reserved; the dialog never loads it");
    EXPECT_EQ(textOf(LCM_Rule::ActionWithoutName, {}), "an action without a name; the dialog never loads it");
    EXPECT_EQ(textOf(LCM_Rule::ActionNameDiffersFromKey, {QStringLiteral("W")}),
              "the record names the action W and will move there when the dialog is accepted");
    EXPECT_EQ(textOf(LCM_Rule::ActionMissing, {QStringLiteral("99")}), "the project has no action 99");
    EXPECT_EQ(textOf(LCM_Rule::LoadCaseNumberAbove999999, {}), "the number is above 999999");
    EXPECT_EQ(
        textOf(LCM_Rule::LoadCaseFactorsDifferFromAction, {QStringLiteral("W")}),
        "it keeps factors that differ from those of its action W, which count; choose the action again to "
        "let it follow");
    EXPECT_EQ(textOf(LCM_Rule::LoadCaseNumberSharedWithModule, {3}),
              "another module keeps a record of kind 3 under this number; accepting the dialog drops it");
}

TEST(FindingText, DesignCodesAreToldTheirTraps)
{
    const auto textOf = [](LCM_Rule rule) {
        return lcm_finding_text({rule, LCM_Subject::DesignCode, 0, 0, {}}).toStdString();
    };
    EXPECT_EQ(textOf(LCM_Rule::Psi1WithoutPsi2),
              "Psi1 is marked without Psi2, so that every Psi1 below 1.0 is refused");
    EXPECT_EQ(textOf(LCM_Rule::ActionNameLowerCase), "the name holds lower-case letters and can't be typed");
    EXPECT_EQ(textOf(LCM_Rule::ActionSuffixTooLong),
              "a suffix of more than one character doesn't survive editing");
}

TEST(FindingText, NumbersAndNamesStandWhereThePatternWantsThem)
{
    EXPECT_EQ(lcm_finding_text({LCM_Rule::ActionSizeWrong, LCM_Subject::Key, 0, 0, {4, 112}, 14}),
              QStringLiteral("the action has 4 bytes instead of 112"));
    EXPECT_EQ(
        lcm_finding_text({LCM_Rule::ActionMissing, LCM_Subject::LoadCase, 3, 0, {QStringLiteral("%1")}}),
        QStringLiteral("the project has no action %1"));
    EXPECT_EQ(lcm_finding_text({LCM_Rule::FileDamaged, LCM_Subject::Project, 0, 0, {QStringLiteral("a%2b")}}),
              QStringLiteral("a%2b"));
}

TEST(FindingText, TranslationIsMadeWhenItIsReadAndEnglishStaysEnglish)
{
    const LCM_Finding finding{LCM_Rule::ActionMissing, LCM_Subject::LoadCase, 3, 0, {QStringLiteral("X9")}};
    const Application application;
    const OneWord translator("LCM_ProjectCheck", QStringLiteral("fehlt: %1"));
    EXPECT_EQ(lcm_finding_text(finding), QStringLiteral("fehlt: X9"));
    EXPECT_EQ(lcm_finding_english(finding), QStringLiteral("the project has no action X9"));
}

namespace {

/// Reads a row's finding of each table under translators of their own, then again without them. In a
/// process that has read none before.
void readRowsInTwoLanguages()
{
    const Application application;
    LCM_Finding finding{
        LCM_Rule::GamfNotBetween0AndGamu, LCM_Subject::Action, 0, ACT_COL_GAMF, {0.0f, 1.35f}};
    const auto bothTexts = [&finding] {
        finding.subject = LCM_Subject::Action;
        const QString ofAction = lcm_finding_text(finding);
        finding.subject = LCM_Subject::LoadCase;
        return ofAction + " | " + lcm_finding_text(finding) + " | " + lcm_finding_english(finding);
    };
    const QString expected = "GAMF: 0.0, 1.35 | GAMF von 0.0 bis 1.35 | GAMF has to be between 0.0 and 1.35!";
    bool good = false;
    {
        const OneWord actions("LCM_ActionsWidget", QStringLiteral("%1: %2, %3"));
        const OneWord loadCases("LCM_LoadcaseWidget", QStringLiteral("%1 von %2 bis %3"));
        good = bothTexts() == expected;
    }
    good = good && bothTexts() == expected;
    std::exit(good ? 0 : 1);
}

} // namespace

TEST(FindingText, RowsHaveAContextForEachTableAndKeepTheirFirstLanguage)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe"; // runs this test alone in a new process
    EXPECT_EXIT(readRowsInTwoLanguages(), testing::ExitedWithCode(0), "");
}
