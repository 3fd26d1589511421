#include <gmock/gmock.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "designcode/reader_sample.h"
#include "tests/support/own_folder.h"
#include "tests/support/record_layout.h"

using mrl::designcode::DesignCode;
using mrl::test::parsed;
using mrl::test::READER_SAMPLE;
using mrl::test::sampleWith;
using testing::ElementsAre;

namespace {

std::u16string titleOf(const tagCDB_LC_ACT& record)
{
    std::u16string text;
    for (const std::uint32_t word : record.title) {
        text.push_back(static_cast<char16_t>(word & 0xFFFFu));
        text.push_back(static_cast<char16_t>(word >> 16));
    }
    return text.substr(0, text.find(u'\0'));
}

} // namespace

TEST(ParseDesignCode, TakesIdentityAndLabel)
{
    const DesignCode code = parsed(sampleWith("ntcode = 0", "ntcode = -3"));
    EXPECT_EQ(code.label, "Sample");
    EXPECT_EQ(code.ntcode, -3);
    EXPECT_EQ(code.idcode, 2);
    EXPECT_EQ(code.country, 0);
    EXPECT_EQ(code.year, 2002);
    EXPECT_EQ(code.name, "sample");
    EXPECT_EQ(code.file, "sample.ini");
}

TEST(ParseDesignCode, AvailabilityHoldsMarksAndPartitionZero)
{
    const DesignCode code = parsed(READER_SAMPLE);
    EXPECT_EQ(code.availability.gamu, 1.0f);
    EXPECT_EQ(code.availability.psi1s, 0.0f);
    EXPECT_EQ(code.availability.partition, 0);
}

TEST(ParseDesignCode, EveryFactorGoesToItsPlaceInTheRecord)
{
    for (const mrl::test::FactorPlace& place : mrl::test::FACTOR_PLACES) {
        const std::string entry = std::string(place.key) + " = 0.125\n";
        const DesignCode code = parsed("[DESIGN CODE]\nlabel = x\nntcode = 0\nidcode = 2\ncountry = 0\n"
                                       "year = 2002\n[AVAILABILITY]\n" +
                                       entry + "[ACTION G]\ncategory = G\nsuperposition = PERM\n" + entry);
        ASSERT_EQ(code.actions.size(), 1u);
        EXPECT_EQ(mrl::test::floatAt(code.availability, place.actionByte), 0.125f) << place.key;
        EXPECT_EQ(mrl::test::floatAt(code.actions[0].record, place.actionByte), 0.125f) << place.key;
    }
}

TEST(ParseDesignCode, EveryWordGivesTheBitsOfThePartitionWord)
{
    for (const mrl::test::PartitionWord& expected : mrl::test::partitionWords()) {
        const bool isGroup = expected.partition.size() > 1;
        std::string entries = "category = " + expected.partition.substr(0, 1) +
                              "\nsuperposition = " + expected.superposition + "\n";
        if (isGroup) {
            entries += "group = " + expected.partition.substr(2) + "\n";
        }
        const DesignCode code = parsed(sampleWith("category = G\nsuperposition = PERM\n", entries));
        EXPECT_EQ(code.actions[0].record.partition, expected.word)
            << expected.partition << ' ' << expected.superposition;
    }
}

TEST(ParseDesignCode, ActionsKeepTheOrderOfTheFile)
{
    const DesignCode code = parsed(READER_SAMPLE);
    ASSERT_EQ(code.actions.size(), 3u);
    EXPECT_EQ(code.actions[0].name, "G");
    EXPECT_EQ(code.actions[1].name, "Q");
    EXPECT_EQ(code.actions[2].name, "Q_A");
}

TEST(ParseDesignCode, ActionTakesEveryField)
{
    const DesignCode code = parsed(READER_SAMPLE);
    const auto& g = code.actions.at(0);
    EXPECT_EQ(g.code, 0x20202047); // 'G' and three blanks, first byte lowest
    EXPECT_THAT(g.oldNumbers, ElementsAre(2, 3));
    EXPECT_EQ(g.record.kind, 1);
    EXPECT_EQ(std::string(g.record.name, 4), "G   ");
    EXPECT_EQ(g.record.suffix, 0);
    EXPECT_EQ(g.record.partition, 0x10);
    EXPECT_EQ(g.record.gamu, 1.35f);
    EXPECT_EQ(g.record.psi2, 1.0f);
    EXPECT_EQ(titleOf(g.record), u"Permanent load");
}

TEST(ParseDesignCode, SuffixAndLoadGroupGoIntoRecordAndCode)
{
    const auto action = parsed(READER_SAMPLE).actions.at(2);
    EXPECT_EQ(action.code, 0x20415F51); // 'Q' '_' 'A' ' '
    EXPECT_EQ(action.record.suffix, 0x20202041);
    EXPECT_EQ(action.record.partition, 0x132); // group 1, category 3, EXCL 2
    EXPECT_EQ(titleOf(action.record), u"");
}

TEST(ParseDesignCode, SuperpositionPercentIsEight)
{
    const DesignCode code = parsed(sampleWith("PERM", "PERC"));
    EXPECT_EQ(code.actions.at(0).record.partition, 0x18);
}

TEST(ParseDesignCode, GamaOfZeroIsStoredAsAThousandth)
{
    const DesignCode code = parsed(sampleWith("Gama = 1.0", "Gama = 0"));
    EXPECT_EQ(code.actions.at(0).record.gama, 0.001f);
}

TEST(ParseDesignCode, FactorThatIsNotStatedIsZero)
{
    EXPECT_EQ(parsed(READER_SAMPLE).actions.at(1).record.gamf, 0.0f);
}

TEST(ParseDesignCode, CombinationValuesAreOptional)
{
    const DesignCode both = parsed(READER_SAMPLE);
    EXPECT_EQ(both.kfi, 1.1f);
    EXPECT_EQ(both.xsi, 0.85f);
    const DesignCode one = parsed(sampleWith("KFI = 1.1\n", ""));
    EXPECT_FALSE(one.kfi.has_value());
}

TEST(ParseDesignCode, EmptyActionsSectionStillCounts)
{
    const std::string bare = "[DESIGN CODE]\nlabel=L\nntcode=0\nidcode=0\ncountry=0\nyear=0\n";
    EXPECT_FALSE(parsed(bare).hasActionsSection);
    EXPECT_TRUE(parsed(bare + "[ACTIONS]").hasActionsSection);
}

TEST(ParseDesignCode, TitleOfThirtyThreeUnitsFits)
{
    const std::string title(33, 'x');
    const DesignCode code = parsed(sampleWith("Permanent load", title));
    EXPECT_EQ(titleOf(code.actions.at(0).record).size(), 33u);
    EXPECT_EQ(code.actions.at(0).record.title[16] >> 16, 0u);
}

TEST(ParseDesignCode, CommentsBlanksCarriageReturnsAndMarkAreNoMatter)
{
    std::string text =
        sampleWith("Gamu = 1.35", "\t Gamu=1.35 ; Table A1.2(B)\r\n# " + std::string(5000, 'x') + "\n\n");
    text = "\xEF\xBB\xBF; first line\r\n" + text;
    const DesignCode code = parsed(text);
    EXPECT_EQ(code.actions.at(0).record.gamu, 1.35f);
    EXPECT_EQ(code.actions.at(0).record.gamf, 1.0f);
}

TEST(ParseDesignCode, IndentedEntryIsNoContinuation)
{
    const DesignCode code = parsed(sampleWith("idcode = 2", "   idcode = 7"));
    EXPECT_EQ(code.ntcode, 0);
    EXPECT_EQ(code.idcode, 7);
}

TEST(ReadDesignCode, NameIsTheFilesNameWithoutFolderAndEnding)
{
    const std::string file = mrl::test::ownFolder() + "my.code.ini";
    std::ofstream(file) << READER_SAMPLE;
    const auto result = mrl::designcode::read(file);
    std::remove(file.c_str());
    ASSERT_TRUE(std::holds_alternative<DesignCode>(result));
    EXPECT_EQ(std::get<DesignCode>(result).name, "my.code");
    EXPECT_EQ(std::get<DesignCode>(result).file, file);
}
