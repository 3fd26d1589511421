#include <cstdio>
#include <fstream>

#include "designcode/reader_sample.h"
#include "tests/support/own_folder.h"

using mrl::test::errorOf;
using mrl::test::READER_SAMPLE;
using mrl::test::sampleWith;

namespace {

struct Malformed
{
    const char* name;
    const char* from; ///< text of the sample
    std::string to;   ///< what stands there instead
    std::string error;
};

std::ostream& operator<<(std::ostream& out, const Malformed& sample) { return out << sample.name; }

class MalformedCode : public testing::TestWithParam<Malformed>
{
};

const Malformed SAMPLES[] = {
    {"NumberThatIsNone", "Gamu = 1.35", "Gamu = 1,35", "bad.ini:25: '1,35' of entry 'Gamu' is no number"},
    {"EmptyNumber", "Gamu = 1.35", "Gamu = ; none", "bad.ini:25: '' of entry 'Gamu' is no number"},
    {"NotANumber", "Gamu = 1.35", "Gamu = nan", "bad.ini:25: 'nan' of entry 'Gamu' is no number"},
    {"InfiniteNumber", "Gamu = 1.35", "Gamu = inf", "bad.ini:25: 'inf' of entry 'Gamu' is no number"},
    {"NumberBeyondFloat", "Gamu = 1.35", "Gamu = 1e39", "bad.ini:25: '1e39' of entry 'Gamu' is no number"},
    {"LimitThatIsNoNumber", "Psi2 = 1", "Psi2 = yes", "bad.ini:13: 'yes' of entry 'Psi2' is no number"},
    {"FactorThatIsNoNumber", "KFI = 1.1", "KFI = CC2", "bad.ini:15: 'CC2' of entry 'KFI' is no number"},
    {"IdentityThatIsNoWholeNumber", "year = 2002", "year = 2002.5",
     "bad.ini:6: '2002.5' of entry 'year' is no whole number"},
    {"IdentityBeyondInt", "year = 2002", "year = 99999999999",
     "bad.ini:6: '99999999999' of entry 'year' is no whole number"},
    {"IdentityMissing", "country = 0\n", "",
     "bad.ini:1: entry 'country' is missing in section 'DESIGN CODE'"},
    {"LabelEmpty", "label = Sample", "label =", "bad.ini:2: the label is empty"},
    {"NoIdentityAtAll", "[DESIGN CODE]\nlabel = Sample\nntcode = 0\nidcode = 2\ncountry = 0\nyear = 2002\n",
     "", "bad.ini: section 'DESIGN CODE' is missing"},
    {"UnknownSection", "[AVAILABILITY]", "[AVAILABLE]", "bad.ini:7: section 'AVAILABLE' is not known"},
    {"UnknownEntry", "Gamf = 1.0\n", "Gamff = 1.0\n",
     "bad.ini:26: entry 'Gamff' is not known in section 'ACTION G'"},
    {"UnknownMark", "Gama = 1\n", "gama = 1\n",
     "bad.ini:10: entry 'gama' is not known in section 'AVAILABILITY'"},
    {"UnknownCombination", "XSI", "XI", "bad.ini:16: entry 'XI' is not known in section 'COMBINATIONS'"},
    {"LabelWithoutPrefix", "TXT_GAMU", "GAMU",
     "bad.ini:18: entry 'GAMU' of section 'ACTIONS' doesn't begin with 'TXT_'"},
    {"SectionTwice", "[COMBINATIONS]", "[AVAILABILITY]",
     "bad.ini:14: section 'AVAILABILITY' stands twice, first in line 7"},
    {"EntryTwice", "KFI", "XSI", "bad.ini:16: entry 'XSI' stands twice, first in line 15"},
    {"SectionNotClosed", "[COMBINATIONS]", "[COMBINATIONS",
     "bad.ini:14: the section's name has no closing ']'"},
    {"TextBehindSection", "[COMBINATIONS]", "[COMBINATIONS] KFI = 1",
     "bad.ini:14: text stands behind the section's name"},
    {"SectionNameTooLong", "[COMBINATIONS]", "[" + std::string(50, 'C') + "]",
     "bad.ini:14: the section's name is longer than 49 bytes"},
    {"LineThatIsNothing", "KFI = 1.1", "KFI",
     "bad.ini:15: the line is neither a section, an entry 'name = value' nor a comment"},
    {"EntryWithoutName", "KFI = 1.1", "= 1.1", "bad.ini:15: the entry has no name"},
    {"EntryAheadOfSections", "[DESIGN CODE]", "label = X\n[DESIGN CODE]",
     "bad.ini:1: an entry stands ahead of the first section"},
    {"LineTooLong", "label = Sample", "label = " + std::string(300, 'x'),
     "bad.ini:2: the line is longer than 197 bytes"},
    {"NotUtf8", "label = Sample", "label = caf\xE9", "bad.ini:2: the line is not UTF-8"},
    {"ZeroByte", "label = Sample", std::string("label = a\0b", 11),
     "bad.ini:2: a zero byte stands in the line"},
    {"NameNotAscii", "[ACTION G]", "[ACTION Gγ]",
     "bad.ini:20: the name of an action holds printable ASCII characters only, and no blank"},
    {"NameWithBlank", "[ACTION G]", "[ACTION G 1]",
     "bad.ini:20: the name of an action holds printable ASCII characters only, and no blank"},
    {"NameEmpty", "[ACTION G]", "[ACTION ]",
     "bad.ini:20: the first part of an action's name has 1 to 4 characters"},
    {"NameTooLong", "[ACTION G]", "[ACTION GRAVE]",
     "bad.ini:20: the first part of an action's name has 1 to 4 characters"},
    {"SuffixEmpty", "[ACTION Q_A]", "[ACTION Q_]",
     "bad.ini:41: the suffix of an action's name has 1 to 4 characters and no further '_'"},
    {"SuffixTooLong", "[ACTION Q_A]", "[ACTION Q_ABCDE]",
     "bad.ini:41: the suffix of an action's name has 1 to 4 characters and no further '_'"},
    {"SuffixBehindFourCharacters", "[ACTION Q_A]", "[ACTION QQQQ_A]",
     "bad.ini:41: only a first part of at most 3 characters can carry a suffix"},
    {"NamesWithOneCode", "[ACTION Q_A]", "[ACTION Q_AB1]\ncategory=Q\nsuperposition=COND\n[ACTION Q_AB2]",
     "bad.ini:44: the first four characters of the name are those of the action in line 41"},
    {"TitleTooLong", "Permanent load", std::string(34, 'x'),
     "bad.ini:21: the title has 34 units, at most 33 fit"},
    {"CategoryUnknown", "category = G", "category = Z",
     "bad.ini:22: 'Z' of entry 'category' is none of G, P, Q, A, E"},
    {"CategoryMissing", "category = G\n", "",
     "bad.ini:20: an action needs the entries 'category' and 'superposition'"},
    {"SuperpositionUnknown", "PERM", "perm",
     "bad.ini:23: 'perm' of entry 'superposition' is none of PERM, COND, EXCL, UNSI, USEX, ALEX, EXEX, PERC"},
    {"GroupOutOfRange", "group = 1", "group = 6",
     "bad.ini:43: a load group is 1 to 5 and stands with category Q only"},
    {"GroupOfAPermanentAction", "category = G", "category = G\ngroup = 1",
     "bad.ini:23: a load group is 1 to 5 and stands with category Q only"},
    {"OldNumberOutOfRange", "old = 7", "old = 1000", "bad.ini:35: an old number is 1 to 999"},
    {"OldNumberTwice", "old = 7", "old = 3", "bad.ini:35: the old number 3 is already given in line 24"},
    {"OldNumberThatIsNone", "old = 7", "old = 7,", "bad.ini:35: '' of entry 'old' is no whole number"},
};

} // namespace

TEST_P(MalformedCode, IsRefusedWithFileLineAndReason)
{
    EXPECT_EQ(errorOf(sampleWith(GetParam().from, GetParam().to)), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(Designcode, MalformedCode, testing::ValuesIn(SAMPLES),
                         [](const auto& sample) { return std::string(sample.param.name); });

TEST(MalformedFile, EmptyTextHasNoIdentity)
{
    EXPECT_EQ(errorOf(""), "bad.ini: section 'DESIGN CODE' is missing");
}

TEST(MalformedFile, ThousandthActionIsRefused)
{
    std::string text = "[DESIGN CODE]\nlabel=L\nntcode=0\nidcode=0\ncountry=0\nyear=0\n"; // 6 lines
    for (int number = 1000; number < 2000;
         ++number) { // 3 lines each: the last begins in line 6 + 999 * 3 + 1
        text += "[ACTION " + std::to_string(number) + "]\ncategory=Q\nsuperposition=COND\n";
    }
    EXPECT_EQ(errorOf(text), "bad.ini:3004: more than 999 actions");
}

TEST(MalformedFile, MissingFileGivesTheSystemsReason)
{
    const auto result = mrl::designcode::read("/nowhere/none.ini");
    ASSERT_TRUE(std::holds_alternative<mrl::designcode::Error>(result));
    EXPECT_EQ(std::get<mrl::designcode::Error>(result).text(),
              "/nowhere/none.ini: No such file or directory");
}

TEST(MalformedFile, FolderIsNoFile)
{
    const auto result = mrl::designcode::read("/tmp");
    ASSERT_TRUE(std::holds_alternative<mrl::designcode::Error>(result));
    EXPECT_EQ(std::get<mrl::designcode::Error>(result).text(), "/tmp: is a folder");
}

TEST(MalformedFile, HugeFileIsNotReadIn)
{
    const std::string file = mrl::test::ownFolder() + "huge.ini";
    std::ofstream(file) << std::string((1 << 20) + 1, ';');
    const auto result = mrl::designcode::read(file);
    std::remove(file.c_str());
    ASSERT_TRUE(std::holds_alternative<mrl::designcode::Error>(result));
    EXPECT_EQ(std::get<mrl::designcode::Error>(result).reason,
              "is larger than 1 MiB and so no design-code file");
}
