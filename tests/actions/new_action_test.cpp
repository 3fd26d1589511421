#include "tests/actions/actions_fixture.h"

#include "actions/new_action.h"

using mrl::test::ActionsProject;
using mrl::test::codeOf;
using mrl::test::soundAction;

namespace {

class NewAction : public ::testing::Test
{
  protected:
    NewAction()
    {
        project.putAction(soundAction("G").gamu(1.2f));
        m_model = new LCM_DataClass(project.db());
    }
    ~NewAction() override { m_model->release(); }

    LCM_DataClass& model() const { return *m_model; }
    int indexOf(const QString& name) const
    {
        for (std::size_t i = 0; i < model().actions.size(); ++i) {
            if (model().actions[i]->code == codeOf(name)) {
                return static_cast<int>(i);
            }
        }
        return -1;
    }
    const LCM_ActionEntry& entry(const QString& name) const
    {
        return *model().actions.at(static_cast<std::size_t>(indexOf(name)));
    }

    ActionsProject project;

  private:
    LCM_DataClass* m_model; ///< counted
};

} // namespace

TEST_F(NewAction, TypedNameBecomesAUserDefinedVariableActionWithoutFactors)
{
    const tagCDB_LC_ACT record = lcm_add_action(model(), {-1, -1, "Crane", "C1", QString()});
    const tagCDB_LC_ACT expected = mrl::test::ActionBuilder("C1").partition(50).title("Crane");
    EXPECT_EQ(std::memcmp(&record, &expected, sizeof record), 0);
    const LCM_ActionEntry& added = *model().actions.back();
    EXPECT_EQ(added.state, LCM_STATE_ACTIVE);
    EXPECT_TRUE(added.userDefined);
    EXPECT_EQ(added.code, codeOf("C1"));
    EXPECT_TRUE(added.subActions.empty());
}

TEST_F(NewAction, TypedCategoryBecomesTheSuffix)
{
    const tagCDB_LC_ACT record = lcm_add_action(model(), {-1, -1, QString(), "Q1", "A"});
    EXPECT_EQ(lcm_action_code(record), codeOf("Q1_A"));
    EXPECT_EQ(record.suffix, lcm_pack_word("A"));
    EXPECT_EQ(model().actions.back()->code, codeOf("Q1_A"));
}

TEST_F(NewAction, EmptyNameBecomesAnActionOfFourBlanks)
{
    lcm_add_action(model(), LCM_NewAction{});
    EXPECT_EQ(model().actions.back()->code, 0x20202020);
    EXPECT_EQ(model().actions.back()->state, LCM_STATE_ACTIVE);
}

TEST_F(NewAction, ChosenParentKeepsItsFactorsAndTakesTheDescription)
{
    const std::size_t before = model().actions.size();
    const tagCDB_LC_ACT record = lcm_add_action(model(), {indexOf("A"), -1, "Lorry", QString(), QString()});
    EXPECT_EQ(model().actions.size(), before);
    EXPECT_EQ(record.psi0, 1.0f);
    EXPECT_EQ(lcm_title_text(record.title), QStringLiteral("Lorry"));
    EXPECT_EQ(entry("A").state, LCM_STATE_ACTIVE);
    EXPECT_EQ(std::memcmp(&entry("A").record, &record, sizeof record), 0);
    EXPECT_FALSE(entry("A").userDefined);
}

TEST_F(NewAction, ChosenChildLeavesItsParentAsItIs)
{
    const tagCDB_LC_ACT record = lcm_add_action(model(), {indexOf("Q"), 1, "Storage", QString(), QString()});
    EXPECT_EQ(lcm_action_code(record), codeOf("Q_2"));
    EXPECT_EQ(record.psi1, 0.9f);
    EXPECT_EQ(entry("Q").state, LCM_STATE_FREE);
    EXPECT_EQ(entry("Q").subActions[1]->state, LCM_STATE_ACTIVE);
    EXPECT_EQ(entry("Q").subActions[0]->state, LCM_STATE_FREE);
}

TEST_F(NewAction, TypedCategoryBesideAChosenParentMakesAParentOfItsOwn)
{
    const tagCDB_LC_ACT record = lcm_add_action(model(), {indexOf("Q"), -1, "own", "Q", "7"});
    EXPECT_EQ(lcm_action_code(record), codeOf("Q_7"));
    EXPECT_EQ(model().actions.back()->code, codeOf("Q_7"));
    EXPECT_TRUE(model().actions.back()->userDefined);
    EXPECT_EQ(entry("Q").state, LCM_STATE_FREE);
}

TEST_F(NewAction, DescriptionKeepsThirtyThreeUnits)
{
    const tagCDB_LC_ACT record = lcm_add_action(model(), {-1, -1, QString(40, 'x'), "C1", QString()});
    EXPECT_EQ(lcm_title_text(record.title), QString(33, 'x'));
}

TEST_F(NewAction, AllFreeActionsComeWithTheirChildrenFirst)
{
    QStringList names;
    for (const tagCDB_LC_ACT& record : lcm_activate_free_actions(model())) {
        names << QString::fromLatin1(mrl::test::codeName(record)).trimmed();
    }
    // G is stored; W is a placeholder, which stays one.
    EXPECT_EQ(names, QStringList({"Q_1", "Q_2", "Q", "W_1", "W_2", "A"}));
    EXPECT_EQ(entry("W").state, LCM_STATE_PLACEHOLDER);
    EXPECT_TRUE(lcm_activate_free_actions(model()).empty());
}
