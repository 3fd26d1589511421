// An action of the user's own may bear the code of a free action of the design code, of a placeholder or of a
// child. It is the one that is saved, deleted and reset.
#include "tests/model/model_fixture.h"

namespace {

using mrl::test::codeOf;
using mrl::test::DesignCodeBuilder;
using mrl::test::found;
using mrl::test::Model;
using mrl::test::ModelTest;
using mrl::test::shapeOf;
using mrl::test::soundAction;

class OwnActionOfAKnownCode : public ModelTest
{
  protected:
    static void addOwn(const Model& model, const char* name)
    {
        model->actions.push_back(model->newEntry(soundAction(name).gamu(1.1f), LCM_STATE_ACTIVE, true));
    }
    /// The action's row is edited, and the dialog accepted.
    void save(const Model& model, const char* name) const
    {
        model->storeActions({{codeOf(name), soundAction(name).title("mine").gamu(1.2f)}}, true);
        model->writeActions(db);
    }
};

TEST_F(OwnActionOfAKnownCode, IsSavedWithTheValuesOfItsRow)
{
    for (const char* name : {"P", "Q_1"}) {
        const Model model = load();
        addOwn(model, name);
        save(model, name);
        EXPECT_EQ(project.storedAction(name).gamu, 1.2f) << name;
        EXPECT_EQ(found(*load(), name).gamu, 1.2f) << name << ": as the reopened dialog shows it";
    }
}

TEST_F(OwnActionOfAKnownCode, LeavesTheFreeEntryWithTheValuesOfTheDesignCode)
{
    for (const char* name : {"P", "Q_1"}) {
        const Model model = load();
        addOwn(model, name);
        model->storeAction(codeOf(name), soundAction(name).gamu(1.2f), true);
        EXPECT_EQ(found(*model, name).gamu, found(*model, name, true).gamu) << name << ": the first match";
    }
}

TEST_F(OwnActionOfAKnownCode, IsGoneWhenItIsDeletedAheadOfTheFirstSaving)
{
    for (const char* name : {"P", "Q_1"}) {
        const Model model = load();
        const std::string before = shapeOf(model->actions);
        addOwn(model, name);
        model->removeAction(codeOf(name));
        EXPECT_EQ(shapeOf(model->actions), before);
        model->writeActions(db);
        EXPECT_FALSE(project.hasKey(LC_KWH_ACTIONS, codeOf(name))) << name;
    }
}

TEST_F(OwnActionOfAKnownCode, IsResetItself)
{
    const Model model = load();
    addOwn(model, "P");
    model->resetAction(codeOf("P"));
    EXPECT_EQ(model->actions.back()->record.gamu, found(*model, "P", true).gamu);
}

TEST_F(OwnActionOfAKnownCode, WinsAgainstAPlaceholderOfItsName)
{
    useCode(DesignCodeBuilder().add(soundAction("Q_1").partition(0x42)));
    const Model model = load();
    ASSERT_EQ(shapeOf(model->actions), "Q:-1(Q_1:0)");
    addOwn(model, "Q");
    save(model, "Q");
    EXPECT_EQ(project.storedAction("Q").gamu, 1.2f);
    model->removeAction(codeOf("Q"));
    EXPECT_EQ(shapeOf(model->actions), "Q:-1(Q_1:0)");
}

TEST_F(OwnActionOfAKnownCode, IsSecondToAnActiveEntryOfTheDesignCode)
{
    const Model model = load();
    addOwn(model, "G");
    model->storeAction(codeOf("G"), soundAction("G").gamu(1.2f), true);
    EXPECT_EQ(found(*model, "G").gamu, 1.2f);
    EXPECT_NE(model->actions.back()->record.gamu, 1.2f);
}

} // namespace
