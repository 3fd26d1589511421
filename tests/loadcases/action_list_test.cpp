#include "loadcases/action_list.h"

#include <gmock/gmock.h>

#include "tests/support/action_builder.h"

namespace {

using namespace mrl::test;

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
    const LCM_ActionList list(NONE, IMP, {bareAction("Q").title("Live"), bareAction("G")});
    EXPECT_EQ(entriesOf(list),
              (Entries{{NONE, 0}, {IMP, 70}, {"Q    Live", codeOf("Q")}, {"G    ", codeOf("G")}}));
    for (const ComboList& entry : list.entries()) {
        EXPECT_EQ(entry.reserved, -99999);
    }
}

TEST(ActionList, ActionLabelledAsAFixedEntryStandsForNone)
{
    const LCM_ActionList list(NONE, IMP, {bareAction("IMP").title("Imperfection")});
    EXPECT_EQ(entriesOf(list), (Entries{{NONE, 0}, {IMP, 70}, {IMP, 0}}));
    EXPECT_EQ(list.text(0), NONE);
    EXPECT_FALSE(list.contains(codeOf("IMP")));
}

TEST(ActionList, ActionLabelledAsNoneStandsForNone)
{
    const LCM_ActionList list("No   action", IMP, {bareAction("No").title("action"), bareAction("Q")});
    EXPECT_EQ(entriesOf(list),
              (Entries{{"No   action", 0}, {IMP, 70}, {"No   action", 0}, {"Q    ", codeOf("Q")}}));
}

TEST(ActionList, BindsACodeThenItsLowerCaseForm)
{
    LCM_ActionList list(NONE, IMP, {bareAction("Q"), bareAction("w")});
    EXPECT_EQ(list.bind(codeOf("Q")).id, codeOf("Q"));
    EXPECT_FALSE(list.bind(codeOf("Q")).marker);
    EXPECT_EQ(list.bind(codeOf("W")).id, codeOf("w"));
    EXPECT_FALSE(list.bind(codeOf("W")).marker);
    EXPECT_FALSE(list.takeGrown());
}

TEST(ActionList, MissingActionGetsOneMarkerHoweverOftenItIsMissed)
{
    LCM_ActionList list(NONE, IMP, {});
    const auto first = list.bind(codeOf("AB"));
    EXPECT_EQ(first.id, codeOf("ab"));
    EXPECT_TRUE(first.marker);
    EXPECT_TRUE(list.takeGrown());
    EXPECT_EQ(list.bind(codeOf("aB")).id, codeOf("ab"));
    EXPECT_FALSE(list.takeGrown());
    EXPECT_EQ(entriesOf(list).back(),
              (std::pair<QString, int>{"*** Action AB   is missing ***", codeOf("ab")}));
    EXPECT_EQ(list.codeOf(codeOf("ab")), codeOf("AB"));
    EXPECT_EQ(list.entries().size(), 3u);
}

} // namespace
