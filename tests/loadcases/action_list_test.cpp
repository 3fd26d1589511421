#include "loadcases/action_list.h"

#include <gmock/gmock.h>

#include "support/loadcase_builders.h"

namespace {

using namespace lctest;

const QString NONE = "None";
const QString IMP = "IMP  Imperfection";

std::vector<std::pair<QString, int>> entriesOf(const LCM_ActionList& list)
{
    std::vector<std::pair<QString, int>> result;
    for (const ComboList& entry : list.entries()) {
        result.emplace_back(entry.text, entry.id);
    }
    return result;
}

using Entries = std::vector<std::pair<QString, int>>;

TEST(ActionList, BeginsWithNoneAndImperfection)
{
    const LCM_ActionList list(NONE, IMP, {action("Q", "Live"), action("G")});
    EXPECT_EQ(entriesOf(list),
              (Entries{{NONE, 0}, {IMP, 70}, {"Q    Live", code("Q")}, {"G    ", code("G")}}));
    for (const ComboList& entry : list.entries()) {
        EXPECT_EQ(entry.reserved, -99999);
    }
}

TEST(ActionList, ActionLabelledAsAFixedEntryStandsForNone)
{
    const LCM_ActionList list(NONE, IMP, {action("IMP", "Imperfection")});
    EXPECT_EQ(entriesOf(list), (Entries{{NONE, 0}, {IMP, 70}, {IMP, 0}}));
    EXPECT_EQ(list.text(0), NONE);
    EXPECT_FALSE(list.contains(code("IMP")));
}

TEST(ActionList, ActionLabelledAsNoneStandsForNone)
{
    const LCM_ActionList list("No   action", IMP, {action("No", "action"), action("Q")});
    EXPECT_EQ(entriesOf(list),
              (Entries{{"No   action", 0}, {IMP, 70}, {"No   action", 0}, {"Q    ", code("Q")}}));
}

TEST(ActionList, BindsACodeThenItsLowerCaseForm)
{
    LCM_ActionList list(NONE, IMP, {action("Q"), action("w")});
    EXPECT_EQ(list.bind(code("Q")).id, code("Q"));
    EXPECT_FALSE(list.bind(code("Q")).marker);
    EXPECT_EQ(list.bind(code("W")).id, code("w"));
    EXPECT_FALSE(list.bind(code("W")).marker);
    EXPECT_FALSE(list.takeGrown());
}

TEST(ActionList, MissingActionGetsOneMarkerHoweverOftenItIsMissed)
{
    LCM_ActionList list(NONE, IMP, {});
    const auto first = list.bind(code("AB"));
    EXPECT_EQ(first.id, code("ab"));
    EXPECT_TRUE(first.marker);
    EXPECT_TRUE(list.takeGrown());
    EXPECT_EQ(list.bind(code("aB")).id, code("ab"));
    EXPECT_FALSE(list.takeGrown());
    EXPECT_EQ(entriesOf(list).back(),
              (std::pair<QString, int>{"*** Action AB   is missing ***", code("ab")}));
    EXPECT_EQ(list.codeOf(code("ab")), code("AB"));
    EXPECT_EQ(list.entries().size(), 3u);
}

} // namespace
