#include "lcdata/values/partition.h"

#include <gtest/gtest.h>

#include "lcdata/values/keywords.h"
#include "lcdata/values/system_words.h"
#include "support/record_layout.h"

using mrl::test::PARTITION_BITS;
using mrl::test::SUPERPOSITION_BITS;
using mrl::test::WordBits;

TEST(PartitionWord, EveryPartitionHasTheBitsOfTheLayout)
{
    ASSERT_EQ(LCM_PARTITIONS.size(), PARTITION_BITS.size());
    for (const WordBits& expected : PARTITION_BITS) {
        const auto id = lcm_id_of_word(LCM_PARTITIONS, expected.word);
        ASSERT_TRUE(id) << expected.word;
        EXPECT_EQ(lcm_partition_word(*id, 0), expected.bits) << expected.word;
        EXPECT_EQ(lcm_partition_id(expected.bits), *id) << expected.word;
        EXPECT_EQ(lcm_word_of_id(LCM_PARTITIONS, *id), expected.word);
    }
}

TEST(PartitionWord, EverySuperpositionHasTheBitsOfTheLayout)
{
    ASSERT_EQ(LCM_SUPERPOSITIONS.size(), SUPERPOSITION_BITS.size());
    for (const WordBits& expected : SUPERPOSITION_BITS) {
        const auto id = lcm_id_of_word(LCM_SUPERPOSITIONS, expected.word);
        ASSERT_TRUE(id) << expected.word;
        EXPECT_EQ(lcm_partition_word(0, *id), expected.bits) << expected.word;
        EXPECT_EQ(lcm_superposition_id(0x530 + expected.bits), *id) << expected.word;
        EXPECT_EQ(lcm_word_of_id(LCM_SUPERPOSITIONS, *id), expected.word);
    }
}

TEST(PartitionWord, SuperpositionSevenIsReadAndWrittenAsEight)
{
    EXPECT_EQ(lcm_superposition_id(0x37), 8);
    EXPECT_EQ(lcm_partition_word(3, 7), 0x38);
}

TEST(PartitionWord, CaptionOfTheDialogBeginsWithTheWord)
{
    for (const LCM_Partition& entry : LCM_PARTITIONS) {
        EXPECT_EQ(std::string(entry.caption).rfind(std::string(entry.word) + " (", 0), 0u) << entry.caption;
    }
    for (const LCM_Superposition& entry : LCM_SUPERPOSITIONS) {
        EXPECT_EQ(std::string(entry.caption).rfind(std::string(entry.word) + " ", 0), 0u) << entry.caption;
    }
}

TEST(PartitionWord, LoadGroupIsShownWhateverTheCategorySays)
{
    EXPECT_EQ(lcm_partition_id(0x210), 50);
    EXPECT_TRUE(lcm_is_load_group(50));
    EXPECT_EQ(lcm_load_group(50), 2);
    EXPECT_FALSE(lcm_is_load_group(5));
}

TEST(PartitionWord, LoadGroupIsNoFamilyOfItsOwn)
{
    tagCDB_LC_ACT action{};
    action.partition = 0x12;
    EXPECT_EQ(lcm_type_family(action), LC_CATEGORY_PERMANENT);
    action.partition = 0x112; // 17 sixteenths
    EXPECT_EQ(lcm_type_family(action), 0x11);
}

TEST(Keywords, UnknownWordHasNoIdAndUnknownIdIsWrittenInDigits)
{
    EXPECT_FALSE(lcm_id_of_word(LCM_SUPERPOSITIONS, "perm"));
    EXPECT_FALSE(lcm_id_of_word(LCM_PARTITIONS, "Q_6"));
    EXPECT_EQ(lcm_word_of_id(LCM_SUPERPOSITIONS, 11), "11");
    EXPECT_EQ(lcm_joined_words(LCM_SYSTEMS), "spatial, plane, plate");
}

TEST(SystemWords, ClassesHaveTheNumbersOfTheSystemRecord)
{
    const auto rawOf = [](const char* word) {
        return lcm_raw_system(lcm_id_of_word(LCM_SYSTEMS, word).value());
    };
    EXPECT_EQ(rawOf("spatial"), 0);
    EXPECT_EQ(rawOf("plane"), 1);
    EXPECT_EQ(rawOf("plate"), 20);
    for (const LCM_System& system : LCM_SYSTEMS) {
        EXPECT_EQ(lcm_class_of_raw_system(system.raw), system.id) << system.word;
    }
    const std::vector<std::pair<int, int>> classes{{0, 0},  {1, 1},  {19, 1}, {20, 3},
                                                   {39, 3}, {40, 0}, {-1, 1}};
    for (const auto& [raw, expected] : classes) {
        EXPECT_EQ(lcm_class_of_raw_system(raw), expected) << raw;
    }
}

TEST(SystemWords, AxesHaveTheSignsOfTheirWords)
{
    const std::vector<WordBits> axes{{"+X", 1}, {"-X", -1}, {"+Y", 2}, {"-Y", -2}, {"+Z", 3}, {"-Z", -3}};
    ASSERT_EQ(LCM_GRAVITY_AXES.size(), axes.size());
    for (const WordBits& axis : axes) {
        EXPECT_EQ(lcm_id_of_word(LCM_GRAVITY_AXES, axis.word), axis.bits) << axis.word;
    }
    EXPECT_EQ(lcm_usual_gravity(LC_SYSTEM_PLANE), -2);
    EXPECT_EQ(lcm_usual_gravity(LC_SYSTEM_SPATIAL), -3);
    EXPECT_EQ(lcm_usual_gravity(LC_SYSTEM_PLATE), -3);
}
