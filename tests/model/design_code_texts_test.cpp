#include "tests/model/model_fixture.h"
#include "tests/support/modal_answers.h"

namespace {

using mrl::test::DesignCodeBuilder;
using mrl::test::limitsOfOne;
using mrl::test::ModalAnswers;
using mrl::test::Model;
using mrl::test::ModelTest;

/// A code of every factor, to which a test gives the labels.
DesignCodeBuilder everyFactor() { return DesignCodeBuilder().marks(limitsOfOne()); }

using DesignCodeText = ModelTest;

TEST_F(DesignCodeText, IsTheLabelOfTheFile)
{
    useCode(everyFactor().text("TXT_PSI1S", "ψ1,infq").text("TXT_GAMU", "γG"));
    const Model model = load();
    EXPECT_EQ(model->designCodeText("Psi1s"), QString::fromUtf8("ψ1,infq"));
    EXPECT_EQ(model->designCodeText("Gamu"), QString::fromUtf8("γG"));
}

TEST_F(DesignCodeText, IsTheKeyAsWrittenWhenTheFileHasNone)
{
    useCode(everyFactor());
    const Model model = load();
    EXPECT_EQ(model->designCodeText("Gamu"), "Gamu");
    EXPECT_EQ(model->designCodeText("GAMU"), "Gamu") << "one entry for both ways of writing it";
}

TEST_F(DesignCodeText, IsReadOnceForEachKey)
{
    useCode(everyFactor().text("TXT_GAMU", "before"));
    const Model model = load();
    EXPECT_EQ(model->designCodeText("Gamu"), "before");
    useCode(everyFactor().text("TXT_GAMU", "after").text("TXT_GAMF", "after"));
    EXPECT_EQ(model->designCodeText("GAMU"), "before");
    EXPECT_EQ(model->designCodeText("Gamf"), "after");
}

TEST_F(DesignCodeText, LosesItsOuterBlanksAndKeepsOneOfTheInnerOnes)
{
    useCode(everyFactor().text("TXT_GAMU", "  a   b  "));
    EXPECT_EQ(load()->designCodeText("Gamu"), "a b");
}

TEST_F(DesignCodeText, IsCutToTwentyBytes)
{
    useCode(
        everyFactor().text("TXT_GAMU", std::string(20, 'a') + "b").text("TXT_GAMF", std::string(20, 'c')));
    const Model model = load();
    EXPECT_EQ(model->designCodeText("Gamu"), QString(20, 'a'));
    EXPECT_EQ(model->designCodeText("Gamf"), QString(20, 'c'));
}

TEST_F(DesignCodeText, WithoutADesignCodeTheUserIsWarnedOnceForEachModel)
{
    for (int i = 0; i < 2; ++i) {
        ModalAnswers answers;
        answers.click("OK");
        const Model model(new LCM_DataClass(other.db()));
        EXPECT_EQ(model->designCodeText("Gamu"), "Gamu");
        EXPECT_EQ(model->designCodeText("Gamf"), "Gamf");
        ASSERT_EQ(answers.boxes().size(), 1u);
        EXPECT_EQ(answers.boxes()[0].title, "Database corrupt");
        EXPECT_EQ(answers.boxes()[0].text,
                  "Can't read design code from database! Some text may be wrong or unreadable.");
    }
}

using FactorColumns = ModelTest;

TEST_F(FactorColumns, FollowTheMarks)
{
    const Model all = load();
    EXPECT_EQ(all->optionalColumnCount(), 7);
    EXPECT_TRUE(all->hasGamu() && all->hasGamf() && all->hasGama() && all->hasPsi0() && all->hasPsi1() &&
                all->hasPsi2() && all->hasPsi1s());

    tagCDB_LC_ACT marks{};
    marks.gamu = 1.0f;
    marks.psi2 = 1.0f;
    useCode(DesignCodeBuilder().marks(marks));
    const Model two = load();
    EXPECT_EQ(two->optionalColumnCount(), 2);
    EXPECT_EQ(two->hasGamu(), 1);
    EXPECT_EQ(two->hasGamf(), 0);
    EXPECT_EQ(two->hasGama(), 0);
    EXPECT_EQ(two->hasPsi0(), 0);
    EXPECT_EQ(two->hasPsi1(), 0);
    EXPECT_NE(two->hasPsi2(), 0);
    EXPECT_EQ(two->hasPsi1s(), 0);
}

TEST_F(FactorColumns, TheLabelNoneTakesASafetyFactorAway)
{
    useCode(everyFactor().text("TXT_GAMU", "none").text("TXT_GAMF", "  none ").text("TXT_GAMA", "None"));
    const Model model = load();
    EXPECT_EQ(model->hasGamu(), 0);
    EXPECT_EQ(model->hasGamf(), 0) << "blanks around it don't save it";
    EXPECT_EQ(model->hasGama(), 1) << "this one is a label";
    EXPECT_EQ(model->optionalColumnCount(), 5);
}

TEST_F(FactorColumns, TheLabelNoneMeansNothingForACombinationFactor)
{
    useCode(everyFactor().text("TXT_PSI0", "none"));
    EXPECT_EQ(load()->optionalColumnCount(), 7);
}

TEST_F(FactorColumns, AnUnmarkedFactorIsNotLookedUp)
{
    // Without a design code nothing is marked, so nothing is asked of its file and no warning comes up.
    ModalAnswers answers;
    const Model model(new LCM_DataClass(other.db()));
    EXPECT_EQ(model->optionalColumnCount(), 0);
    EXPECT_TRUE(answers.boxes().empty());
}

TEST_F(FactorColumns, AFailureNeverHidesOne)
{
    const Model model = load();
    project.setDesignCode(std::string()); // the project loses its design code while the dialog is open
    ModalAnswers answers;
    answers.click("OK");
    EXPECT_EQ(model->optionalColumnCount(), 7);
    EXPECT_EQ(answers.boxes().size(), 1u);
}

} // namespace
