#include <gmock/gmock.h>

#include <algorithm>
#include <climits>
#include <stdexcept>

#include "lcdata/guards.h"
#include "lcdata/key_walk.h"
#include "lcdata/system_record.h"
#include "tests/support/project_test.h"

namespace {

using mrl::test::codeOf;
using mrl::test::ProjectTest;
using mrl::test::soundAction;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<int> keysOf(LCM_KeyWalk walk)
{
    std::vector<int> found;
    while (walk.next()) {
        found.push_back(walk.kwl());
    }
    return found;
}

using KeyWalk = ProjectTest;

TEST_F(KeyWalk, KeepsToItsGroup)
{
    project.put(11, 9, 1);
    project.put(12, 3, 1);
    project.put(12, INT_MAX, 1);
    project.put(13, INT_MIN, 1);
    project.put(14, 1, 1);
    EXPECT_THAT(keysOf(LCM_KeyWalk(db, 12)), ElementsAre(3, INT_MAX));
    EXPECT_THAT(keysOf(LCM_KeyWalk(db, 15)), IsEmpty());
    EXPECT_THAT(keysOf(LCM_KeyWalk(db, 10)), IsEmpty()) << "the next group is not taken for it";
    EXPECT_THAT(keysOf(LCM_KeyWalk(db, 12, 3)), ElementsAre(INT_MAX)) << "strictly behind its start";
}

TEST_F(KeyWalk, OverActionsPassesTheNumbersAndTheWordOfBlanks)
{
    project.put(LC_KWH_ACTIONS, -7, 1);
    project.put(LC_KWH_ACTIONS, 5, 1);
    project.put(LC_KWH_ACTIONS, LC_BLANK_WORD - 1, 1);
    project.put(LC_KWH_ACTIONS, LC_BLANK_WORD, 1);
    project.putAction(soundAction("Y1"));
    project.putAction(soundAction("G"));
    EXPECT_THAT(keysOf(lcm_walk_actions(db)), ElementsAre(codeOf("G"), codeOf("Y1")));
}

TEST_F(KeyWalk, GoesOnWhenItsKeyIsDeleted)
{
    for (int i = 1; i <= 300; ++i) {
        project.put(12, i, i);
    }
    std::vector<int> met;
    for (LCM_KeyWalk walk(db, 12); walk.next();) {
        met.push_back(walk.kwl());
        mrl_cdb_del(db, 12, walk.kwl());
    }
    EXPECT_EQ(met.size(), 300u);
    EXPECT_THAT(keysOf(LCM_KeyWalk(db, 12)), IsEmpty());
}

TEST(ReservedActions, BeginWithTheLetterY)
{
    EXPECT_TRUE(lcm_is_reserved_action(codeOf("Y")));
    EXPECT_TRUE(lcm_is_reserved_action(codeOf("Y1_1")));
    EXPECT_FALSE(lcm_is_reserved_action(lcm_pack_word("y")));
    EXPECT_FALSE(lcm_is_reserved_action(codeOf("GY")));
}

using CurrentDatabaseGuard = ProjectTest;

TEST_F(CurrentDatabaseGuard, RestoresTheCurrentDatabaseAlsoWhenAnExceptionPasses)
{
    EXPECT_THROW(
        {
            const LCM_CurrentDatabaseGuard guard;
            mrl_cdb_use(db, 0);
            ASSERT_EQ(mrl_cdb_status(-1), db);
            throw std::runtime_error("passing");
        },
        std::runtime_error);
    EXPECT_TRUE(otherIsCurrent());
}

using KeyGuard = ProjectTest;

TEST_F(KeyGuard, EndsTheAccessAlsoWhenAnExceptionPasses)
{
    project.put(12, 1, 1);
    EXPECT_THROW(
        {
            const LCM_KeyGuard guard(db, 12, 1);
            int word = 0;
            int length = sizeof word;
            mrl_cdb_get(db, 12, 1, &word, &length, 0);
            throw std::runtime_error("passing");
        },
        std::runtime_error);
    EXPECT_EQ(mrl_cdb_del(db, 12, 1), CD_OK);
}

struct SystemRecord
{
    int rawClass, gravity;
    unsigned char others[344];
};

using SystemClass = ProjectTest;

TEST_F(SystemClass, FollowsTheRawClass)
{
    for (const auto& [raw, expected] : {std::pair{0, 0},
                                        {1, 1},
                                        {19, 1},
                                        {20, 3},
                                        {39, 3},
                                        {40, 0},
                                        {1000, 0},
                                        {-1, 1},
                                        {INT_MIN, 1},
                                        {INT_MAX, 0}}) {
        project.put(10, 0, SystemRecord{raw, -3, {}});
        EXPECT_EQ(lcm_system_class(db), expected) << raw;
    }
    EXPECT_EQ(lcm_gravity_direction(db), -3);
    EXPECT_TRUE(otherIsCurrent());
}

TEST_F(SystemClass, OfANewProjectIsWrittenWithNothingElse)
{
    ASSERT_TRUE(lcm_write_system(db, 20, -2));
    EXPECT_EQ(lcm_system_class(db), 3);
    EXPECT_EQ(lcm_gravity_direction(db), -2);
    const auto written = project.bytes(10, 0);
    ASSERT_EQ(written.size(), 352u);
    EXPECT_TRUE(std::all_of(written.begin() + 8, written.end(), [](unsigned char c) { return c == 0; }));
    EXPECT_FALSE(lcm_write_system(-1, 0, 1));
}

TEST_F(SystemClass, WithoutARecordIsSpatialWithGravityAlongX)
{
    EXPECT_EQ(lcm_system_class(db), 0);
    EXPECT_EQ(lcm_gravity_direction(db), 1);
}

TEST_F(SystemClass, ReadsLongerAndShorterRecords)
{
    const int longer[100] = {20, 2};
    project.put(10, 0, longer);
    EXPECT_EQ(lcm_system_class(db), 3);
    EXPECT_EQ(lcm_gravity_direction(db), 2);
    project.put(10, 0, 5);
    EXPECT_EQ(lcm_system_class(db), 1);
    EXPECT_EQ(lcm_gravity_direction(db), 0) << "as stored: nothing stands there";
}

} // namespace
