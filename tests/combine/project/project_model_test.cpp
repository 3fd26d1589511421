#include "combine/project/project_model.h"

#include <gmock/gmock.h>

#include "lcdata/load_case_factors.h"
#include "lcdata/values/packing.h"
#include "tests/support/project_test.h"

namespace mrl::test {

using combine::Action;
using combine::Category;
using combine::factor;
using combine::LoadCase;
using combine::Model;
using combine::ProjectModel;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

class ProjectModelTest : public ProjectTest
{
  protected:
    ProjectModelTest() { project.putAction(permanent()); }

    static tagCDB_LC_ACT permanent() { return soundAction(QStringLiteral("G")).partition(0x10); }

    ProjectModel read() const
    {
        ProjectModel made = combine::projectModel(db, {{"KFI", 1.0f}});
        EXPECT_TRUE(otherIsCurrent());
        return made;
    }
    LoadCase only() const
    {
        const ProjectModel made = read();
        EXPECT_EQ(made.model.loadCases.size(), 1u);
        return made.model.loadCases.empty() ? LoadCase() : made.model.loadCases.front();
    }
    /// A load case without an action, with these factors.
    static tagCDB_LC_CTRL own(float gamu, float gamf, float psi0)
    {
        tagCDB_LC_CTRL record = standalone();
        record.gamu = lcm_pack_pair(gamu, 1.0f);
        record.gamf = gamf;
        record.psi0 = psi0;
        return record;
    }
};

} // namespace

TEST_F(ProjectModelTest, ActionsBringCategorySuperpositionGroupAndStoredFactors)
{
    project.putAction(soundAction(QStringLiteral("Q_1")).partition(2 * 256 + 0x36).gama(0.001f));
    const Model model = read().model;
    ASSERT_EQ(model.actions.size(), 2u);
    EXPECT_EQ(model.constants.at("KFI"), 1.0f);
    for (const Action& action : model.actions) {
        if (action.name == "G") {
            EXPECT_EQ(action.category, Category::Permanent);
            EXPECT_EQ(action.superposition, LC_SUPERPOSITION_PERM);
            EXPECT_EQ(action.group, 0);
            EXPECT_EQ(factor(action.factors, LCM_FactorId::Gamu), 1.35f);
            continue;
        }
        EXPECT_EQ(action.name, "Q_1");
        EXPECT_EQ(action.category, Category::Variable);
        EXPECT_EQ(action.superposition, LC_SUPERPOSITION_EXEX);
        EXPECT_EQ(action.group, 2);
        EXPECT_EQ(factor(action.factors, LCM_FactorId::Gama), 0.001f) << "still under its zero rule";
    }
}

TEST_F(ProjectModelTest, ALoadCaseNamesItsActionAndTakesNoFactorsFromItsRecord)
{
    tagCDB_LC_CTRL record = following(QStringLiteral("G"));
    lcm_load_case_from_action(permanent(), record, record.action);
    project.putLoadCase(5, record);
    const LoadCase loadCase = only();
    EXPECT_EQ(loadCase.number, 5);
    EXPECT_EQ(loadCase.action, "G");
    EXPECT_FALSE(loadCase.own);
    EXPECT_EQ(loadCase.finding, "");
}

TEST_F(ProjectModelTest, FactorsThatDifferFromThoseOfTheActionAreAFinding)
{
    project.putLoadCase(5, following(QStringLiteral("G")).factors(0.3f));
    EXPECT_THAT(only().finding, HasSubstr("differ from those of its action G"));
}

TEST_F(ProjectModelTest, ImperfectionsAreMarked)
{
    project.putLoadCase(5, following(LC_ACTION_IMPERFECTION));
    EXPECT_TRUE(only().isImperfection);
}

TEST_F(ProjectModelTest, AnOldActionNumberStandsForItsAction)
{
    project.putLoadCase(5, following(2));
    EXPECT_EQ(only().action, "G");
}

TEST_F(ProjectModelTest, FactorsOfItsOwnAreUnpacked)
{
    project.putLoadCase(5, own(1.5f, 0.0f, 0.7f));
    const LoadCase loadCase = only();
    ASSERT_TRUE(loadCase.own);
    EXPECT_EQ(factor(*loadCase.own, LCM_FactorId::Gamu), 1.5f);
    EXPECT_EQ(factor(*loadCase.own, LCM_FactorId::Gama), 1.0f);
    EXPECT_EQ(factor(*loadCase.own, LCM_FactorId::Psi0), 0.7f);
    EXPECT_EQ(loadCase.finding, "");
}

TEST_F(ProjectModelTest, AZeroGamaOfItsOwnStaysUnderItsRule)
{
    tagCDB_LC_CTRL record = own(1.5f, 0.0f, 0.7f);
    record.gamu = lcm_pack_pair(1.5f, LC_GAMA_ZERO);
    project.putLoadCase(5, record);
    EXPECT_EQ(factor(*only().own, LCM_FactorId::Gama), LC_GAMA_ZERO);
}

TEST_F(ProjectModelTest, FactorsThatAreAllZeroOrNotSetAreNone)
{
    project.putLoadCase(5, standalone());
    EXPECT_FALSE(only().own);
    project.putLoadCase(5, standalone().factors(LC_UNDEFINED));
    EXPECT_FALSE(only().own);
}

TEST_F(ProjectModelTest, AFactorOfItsOwnThatIsNotSetIsAFinding)
{
    project.putLoadCase(5, own(1.5f, 0.0f, LC_UNDEFINED));
    EXPECT_EQ(only().finding, "its Psi0 is not set");
}

TEST_F(ProjectModelTest, FindingsOfAnActionAreThoseOfItsLoadCases)
{
    project.putAction(soundAction(QStringLiteral("Q")).gamf(2.0f));
    project.putLoadCase(5, following(QStringLiteral("Q")));
    EXPECT_THAT(only().finding, HasSubstr("action Q: "));
    project.putAction(soundAction(QStringLiteral("Q")).partition(0x72));
    EXPECT_THAT(only().finding, HasSubstr("its category 7 is not known"));
    project.putAction(soundAction(QStringLiteral("Q")).partition(0x3B));
    EXPECT_THAT(only().finding, HasSubstr("its superposition 11 is not known"));
    project.putAction(soundAction(QStringLiteral("Q")).gama(LC_UNDEFINED));
    EXPECT_THAT(only().finding, HasSubstr("its Gama is not set"));
}

TEST_F(ProjectModelTest, AnUnknownActionIsNamedForTheRefusal)
{
    project.putLoadCase(5, following(QStringLiteral("X")));
    EXPECT_EQ(only().action, "X");
    EXPECT_EQ(only().finding, "") << "told once, by whoever refuses it";
}

TEST_F(ProjectModelTest, RecordsOfOthersAndReservedActionsAreLeftOutAndTold)
{
    project.putAction(soundAction(QStringLiteral("Y1")));
    project.putLoadCase(7, bareLoadCase().kind(3));
    const ProjectModel made = read();
    EXPECT_THAT(made.model.loadCases, IsEmpty());
    ASSERT_EQ(made.leftOut.size(), 2u);
    EXPECT_EQ(made.leftOut[0].reason, "action Y1: its name is reserved");
    EXPECT_EQ(made.leftOut[1].number, 7);
}

} // namespace mrl::test
