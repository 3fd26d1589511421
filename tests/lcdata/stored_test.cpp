#include <gmock/gmock.h>

#include <array>

#include "lcdata/record_walk.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "tests/support/project_test.h"

namespace {

using mrl::test::bareLoadCase;
using mrl::test::codeOf;
using mrl::test::ProjectTest;
using mrl::test::soundAction;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

tagCDB_LC_ACT ofKind(int kind, float gamu)
{
    tagCDB_LC_ACT record = soundAction("G").gamu(gamu);
    record.kind = kind;
    return record;
}

using RecordWalk = ProjectTest;

TEST_F(RecordWalk, MeetsTheRecordsOfAKeyInTheirOrderAndFillsShortOnesUp)
{
    project.put(20, 1, std::array<int, 3>{1, 2, 3});
    project.append(20, 1, 4);
    project.append(20, 1, std::array<int, 2>{5, 6});
    std::vector<std::array<int, 2>> met;
    LCM_RecordWalk<std::array<int, 2>> walk(db, 20, 1);
    while (walk.next()) {
        EXPECT_EQ(walk.position(), static_cast<int>(met.size()));
        met.push_back(walk.record());
    }
    EXPECT_THAT(met, ElementsAre(std::array{1, 2}, std::array{4, 0}, std::array{5, 6}));
    EXPECT_FALSE(LCM_RecordWalk<int>(db, 20, 2).next());
}

class StoredActions : public ProjectTest
{
  protected:
    std::vector<int> codes() const
    {
        std::vector<int> found;
        for (const LCM_StoredAction& stored : lcm_stored_actions(db)) {
            found.push_back(stored.code);
        }
        return found;
    }
};

TEST_F(StoredActions, AreListedByCodeWithReservedAndNamelessOnesButWithoutNumbers)
{
    project.putAction(soundAction("W"));
    project.putAction(soundAction("G"));
    project.putAction(soundAction("Y1"));
    project.putAction(LC_BLANK_WORD, soundAction("X"));
    project.putAction(LC_BLANK_WORD - 1, soundAction("S"));
    EXPECT_THAT(codes(), ElementsAre(LC_BLANK_WORD, codeOf("G"), codeOf("W"), codeOf("Y1")));
    EXPECT_FALSE(lcm_stored_action(db, LC_BLANK_WORD - 1));
}

TEST_F(StoredActions, TheLastDefinitionOfAKeyCounts)
{
    project.putAction(ofKind(2, 1.1f));
    project.append(LC_KWH_ACTIONS, codeOf("G"), ofKind(LC_KIND_ACTION, 1.2f));
    project.append(LC_KWH_ACTIONS, codeOf("G"), ofKind(LC_KIND_ACTION, 1.3f));
    project.append(LC_KWH_ACTIONS, codeOf("G"), ofKind(2, 1.4f));
    const auto stored = lcm_stored_action(db, codeOf("G"));
    ASSERT_TRUE(stored);
    EXPECT_EQ(stored->record.gamu, 1.3f);
    EXPECT_EQ(stored->position, 2);
}

TEST_F(StoredActions, AKeyWithoutADefinitionIsNone)
{
    project.putAction(ofKind(2, 1.0f));
    EXPECT_THAT(codes(), IsEmpty());
    EXPECT_FALSE(lcm_stored_action(db, codeOf("G")));
}

using StoredLoadCases = ProjectTest;

TEST_F(StoredLoadCases, AreMetByNumberWhoeverOwnsThem)
{
    project.putLoadCase(9, bareLoadCase().kind(2));
    project.putLoadCase(3, bareLoadCase());
    project.putLoadCase(5, bareLoadCase().kind(1));
    project.putLoadCase(7, bareLoadCase().kind(-1));
    std::vector<std::pair<int, bool>> met;
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        met.emplace_back(walk.current().number, walk.current().isOwn());
    }
    using Met = std::pair<int, bool>;
    EXPECT_THAT(met, ElementsAre(Met{3, true}, Met{5, true}, Met{7, false}, Met{9, false}));
}

TEST_F(StoredLoadCases, OfALongerRecordTheBeginningIsRead)
{
    std::array<char, 4000> longer{};
    longer.fill('x');
    const tagCDB_LC_CTRL beginning = bareLoadCase("G").title("Beginning");
    std::memcpy(longer.data(), &beginning, sizeof beginning);
    project.put(LC_KWH_CASES, 4, longer);
    const auto stored = lcm_stored_load_case(db, 4);
    ASSERT_TRUE(stored);
    EXPECT_EQ(std::memcmp(&stored->record, &beginning, sizeof beginning), 0);
    EXPECT_FALSE(lcm_stored_load_case(db, 5));
}

TEST_F(StoredLoadCases, MayBeDeletedInTheWalk)
{
    for (int number = 1; number <= 300; ++number) {
        project.putLoadCase(number, bareLoadCase());
    }
    int met = 0;
    for (LCM_LoadCaseWalk walk(db); walk.next(); ++met) {
        mrl_cdb_del(db, LC_KWH_CASES, walk.current().number);
    }
    EXPECT_EQ(met, 300);
    EXPECT_FALSE(LCM_LoadCaseWalk(db).next());
}

} // namespace
