#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
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
    {"NumberThatIsNone", "Gamu = 1.35", "Gamu = 1,35",
     "bad.ini:25:8: '1,35' of entry 'Gamu' is no number: write a point: 1.35"},
    {"EmptyNumber", "Gamu = 1.35", "Gamu = ; none",
     "bad.ini:25:8: '' of entry 'Gamu' is no number: write digits with one point, such as 1.35"},
    {"NotANumber", "Gamu = 1.35", "Gamu = nan",
     "bad.ini:25:8: 'nan' of entry 'Gamu' is no number: write digits with one point, such as 1.35"},
    {"InfiniteNumber", "Gamu = 1.35", "Gamu = inf",
     "bad.ini:25:8: 'inf' of entry 'Gamu' is no number: write digits with one point, such as 1.35"},
    {"NumberBeyondFloat", "Gamu = 1.35", "Gamu = 1e39",
     "bad.ini:25:8: '1e39' of entry 'Gamu' is no number: write digits with one point, such as 1.35"},
    {"LimitThatIsNoNumber", "Psi2 = 1", "Psi2 = yes",
     "bad.ini:13:8: 'yes' of entry 'Psi2' is no number: write digits with one point, such as 1.35"},
    {"FactorThatIsNoNumber", "KFI = 1.1", "KFI = CC2",
     "bad.ini:15:7: 'CC2' of entry 'KFI' is no number: write digits with one point, such as 1.35"},
    {"IdentityThatIsNoWholeNumber", "year = 2002", "year = 2002.5",
     "bad.ini:6:8: '2002.5' of entry 'year' is no whole number: write digits alone, such as 2005"},
    {"IdentityBeyondInt", "year = 2002", "year = 99999999999",
     "bad.ini:6:8: '99999999999' of entry 'year' is no whole number: write digits alone, such as 2005"},
    {"IdentityMissing", "country = 0\n", "",
     "bad.ini:1: entry 'country' is missing in section 'DESIGN CODE': write 'country = ...'"},
    {"LabelEmpty", "label = Sample",
     "label =", "bad.ini:2:8: the label is empty: write what people are to read"},
    {"NoIdentityAtAll", "[DESIGN CODE]\nlabel = Sample\nntcode = 0\nidcode = 2\ncountry = 0\nyear = 2002\n",
     "", "bad.ini: section 'DESIGN CODE' is missing: write it, with label and year"},
    {"UnknownSection", "[AVAILABILITY]", "[AVAILABLE]",
     "bad.ini:7: section 'AVAILABLE' is not known: write DESIGN CODE, AVAILABILITY, COMBINATIONS, ACTIONS, "
     "ACTION NAME or SITUATION NAME"},
    {"UnknownEntry", "Gamf = 1.0\n", "Gamff = 1.0\n",
     "bad.ini:26:1: entry 'Gamff' is not known in section 'ACTION G': write Gamf"},
    {"UnknownMark", "Gama = 1\n", "gama = 1\n",
     "bad.ini:10:1: entry 'gama' is not known in section 'AVAILABILITY': write Gama"},
    {"UnknownCombination", "XSI", "XI",
     "bad.ini:16:6: entry 'XI' is not known in section 'COMBINATIONS': write XSI"},
    {"LabelWithoutPrefix", "TXT_GAMU", "GAMU",
     "bad.ini:18:8: entry 'GAMU' of section 'ACTIONS' doesn't begin with 'TXT_': write TXT_GAMU"},
    {"SectionTwice", "[COMBINATIONS]", "[AVAILABILITY]",
     "bad.ini:14: section 'AVAILABILITY' stands twice, first in line 7: put its entries into the first one"},
    {"EntryTwice", "KFI", "XSI",
     "bad.ini:16:1: entry 'XSI' stands twice, first in line 15: leave one of them out"},
    {"SectionNotClosed", "[COMBINATIONS]", "[COMBINATIONS",
     "bad.ini:14: the section's name has no closing ']': write [NAME]"},
    {"TextBehindSection", "[COMBINATIONS]", "[COMBINATIONS] KFI = 1",
     "bad.ini:14: text stands behind the section's name: move it to a line of its own"},
    {"SectionNameTooLong", "[COMBINATIONS]", "[" + std::string(50, 'C') + "]",
     "bad.ini:14: the section's name is longer than 49 bytes: shorten it"},
    {"LineThatIsNothing", "KFI = 1.1", "KFI",
     "bad.ini:15:1: the line is neither a section, an entry 'name = value' nor a comment: write 'name = "
     "value', or ';' in front of a comment"},
    {"EntryWithoutName", "KFI = 1.1", "= 1.1", "bad.ini:15: the entry has no name: write 'name = value'"},
    {"EntryAheadOfSections", "[DESIGN CODE]", "label = X\n[DESIGN CODE]",
     "bad.ini:1: an entry stands ahead of the first section: begin with [DESIGN CODE]"},
    {"LineTooLong", "label = Sample", "label = " + std::string(300, 'x'),
     "bad.ini:1: entry 'label' is missing in section 'DESIGN CODE': write 'label = ...'\nbad.ini:2: the line "
     "is longer than 197 bytes: move a part of it into a comment line"},
    {"NotUtf8", "label = Sample", "label = caf\xE9",
     "bad.ini:1: entry 'label' is missing in section 'DESIGN CODE': write 'label = ...'\nbad.ini:2: the line "
     "is not UTF-8 but Latin-1 or the like: save the file in the encoding UTF-8"},
    {"ZeroByte", "label = Sample", std::string("label = a\0b", 11),
     "bad.ini:1: entry 'label' is missing in section 'DESIGN CODE': write 'label = ...'\nbad.ini:2: a zero "
     "byte stands in the line: save the file as plain text in UTF-8"},
    {"NameNotAscii", "[ACTION G]", "[ACTION Gγ]",
     "bad.ini:20: the name of an action holds printable ASCII characters only, and no blank: write a name "
     "such as Q or Q_A"},
    {"NameWithBlank", "[ACTION G]", "[ACTION G 1]",
     "bad.ini:20: the name of an action holds printable ASCII characters only, and no blank: write a name "
     "such as Q or Q_A"},
    {"NameEmpty", "[ACTION G]", "[ACTION ]",
     "bad.ini:20: the first part of an action's name has 1 to 4 characters: write a name such as Q or Q_A"},
    {"NameTooLong", "[ACTION G]", "[ACTION GRAVE]",
     "bad.ini:20: the first part of an action's name has 1 to 4 characters: write a name such as Q or Q_A"},
    {"SuffixEmpty", "[ACTION Q_A]", "[ACTION Q_]",
     "bad.ini:42: the suffix of an action's name has 1 to 4 characters and no further '_': write a name such "
     "as Q or Q_A"},
    {"SuffixTooLong", "[ACTION Q_A]", "[ACTION Q_ABCDE]",
     "bad.ini:42: the suffix of an action's name has 1 to 4 characters and no further '_': write a name such "
     "as Q or Q_A"},
    {"SuffixBehindFourCharacters", "[ACTION Q_A]", "[ACTION QQQQ_A]",
     "bad.ini:42: only a first part of at most 3 characters can carry a suffix: write a name such as Q or "
     "Q_A"},
    {"NamesWithOneCode", "[ACTION Q_A]", "[ACTION Q_AB1]\ncategory=Q\nsuperposition=COND\n[ACTION Q_AB2]",
     "bad.ini:45: the first four characters of the name are those of the action in line 42: choose another "
     "name"},
    {"TitleTooLong", "Permanent load", std::string(34, 'x'),
     "bad.ini:21:9: the title has 34 units, at most 33 fit: shorten it"},
    {"CategoryUnknown", "category = G", "category = Z",
     "bad.ini:22:12: 'Z' of entry 'category' is none of G, P, Q, A, E: write one of them"},
    {"CategoryMissing", "category = G\n", "",
     "bad.ini:20: an action needs the entries 'category' and 'superposition': write 'category = Q' and "
     "'superposition = COND', or others"},
    {"SuperpositionUnknown", "PERM", "perm",
     "bad.ini:23:17: 'perm' of entry 'superposition' is none of PERM, COND, EXCL, UNSI, USEX, ALEX, EXEX, "
     "PERC: write PERM"},
    {"GroupOutOfRange", "group = 1", "group = 6",
     "bad.ini:44:9: a load group is 1 to 5 and stands with category Q only: correct the number, or leave the "
     "entry out"},
    {"GroupOfAPermanentAction", "category = G", "category = G\ngroup = 1",
     "bad.ini:23:9: a load group is 1 to 5 and stands with category Q only: correct the number, or leave the "
     "entry out"},
    {"OldNumberOutOfRange", "old = 7", "old = 1000",
     "bad.ini:35:7: '1000' is no old number: they are 1 to 999: 2 stands for the dead action, 7 for the live "
     "one"},
    {"OldNumberTwice", "old = 7", "old = 3",
     "bad.ini:35:7: the old number 3 is already given in line 24: give it once"},
    {"OldNumberThatIsNone", "old = 7", "old = 7,",
     "bad.ini:35:7: '' of entry 'old' is no whole number: write digits alone, such as 2005"},
    {"SectionMisspelt", "[ACTION Q_A]", "[ACTON Q_A]",
     "bad.ini:42: section 'ACTON Q_A' is not known: write ACTION Q_A"},
    {"SectionInLowerCase", "[AVAILABILITY]", "[availability]",
     "bad.ini:7: section 'availability' is not known: write AVAILABILITY"},
    {"SectionOfASituationMisspelt", "[ACTION Q_A]", "[SITUATON Q_A]",
     "bad.ini:42: section 'SITUATON Q_A' is not known: write SITUATION Q_A"},
    {"FactorInLowerCase", "Gamf = 1.0\n", "gamf = 1.0\n",
     "bad.ini:26:1: entry 'gamf' is not known in section 'ACTION G': write Gamf"},
    {"KeyMisspelt", "superposition = COND", "superpostion = COND",
     "bad.ini:31: an action needs the entries 'category' and 'superposition': write 'category = Q' and "
     "'superposition = COND', or others\nbad.ini:34:1: entry 'superpostion' is not known in section 'ACTION "
     "Q': write superposition"},
    {"TitleInGermanTooLong", "title = Permanent load", "title[de] = " + std::string(34, 'x'),
     "bad.ini:21:13: the title has 34 units, at most 33 fit: shorten it"},
    {"BraceNotClosed", "Gamu = 1.35", "Gamu = 1.35 {Table A1.2(B), verified",
     "bad.ini:25:8: the brace in '1.35 {Table A1.2(B), verified' isn't closed: write {CLAUSE, STATE}"},
    {"CommaInAnAnnotatedNumber", "Gamu = 1.35", "Gamu = 1,35 {Table A1.2(B), verified}",
     "bad.ini:25:8: '1,35' of entry 'Gamu' is no number: write a point: 1.35"},
    {"CommaInACombination", "KFI = 1.1", "KFI = 1,1",
     "bad.ini:15:7: '1,1' of entry 'KFI' is no number: write a point: 1.1"},
    {"BaseThatIsNotThere", "label = Sample", "base = en1991\nlabel = Sample",
     "bad.ini:2:8: there is no design code 'en1991' to stand upon: put it beside this file or on the search "
     "path"},
    {"BaseWithAFolder", "label = Sample", "base = ../en1990\nlabel = Sample",
     "bad.ini:2:8: '../en1990' is no name of a base: write the name of a design code without folders, such "
     "as en1990"},
    {"BaseThatIsEmpty", "label = Sample", "base =\nlabel = Sample",
     "bad.ini:2:7: '' is no name of a base: write the name of a design code without folders, such as en1990"},
    {"RemovalWithoutABase", "category = G\n", "category = G\nremove = yes\n",
     "bad.ini:21:9: the base has no section 'ACTION G' to remove: leave the section out\nbad.ini:23:10: "
     "'remove' doesn't stand alone in its section with 'yes': write 'remove = yes' and nothing else there"},
    {"SuperpositionMisspelt", "PERM", "PREM",
     "bad.ini:23:17: 'PREM' of entry 'superposition' is none of PERM, COND, EXCL, UNSI, USEX, ALEX, EXEX, "
     "PERC: write PERM"},
    {"LetterOForZero", "Gamf = 1.0", "Gamf = 1.O",
     "bad.ini:26:8: '1.O' of entry 'Gamf' is no number: write digits with one point, such as 1.35"},
    {"PercentInsteadOfAFactor", "Psi0 = 0.7", "Psi0 = 70 %",
     "bad.ini:39:8: '70 %' of entry 'Psi0' is no number: write digits with one point, such as 1.35"},
    {"TwoNumbers", "Psi0 = 0.7", "Psi0 = 0.7 0.5",
     "bad.ini:39:8: '0.7 0.5' of entry 'Psi0' is no number: write digits with one point, such as 1.35"},
    {"CommentWithoutABlank", "Psi0 = 0.7", "Psi0 = 0.7;Table A1.1",
     "bad.ini:39:8: '0.7;Table A1.1' of entry 'Psi0' is no number: write digits with one point, such as "
     "1.35"},
    {"Utf16WithAMark", "[DESIGN CODE]", std::string("\xFF\xFE[\0D\0", 6),
     "bad.ini: the file is in UTF-16: save it in the encoding UTF-8"},
    {"Utf16OfTheOtherOrder", "[DESIGN CODE]", std::string("\xFE\xFF\0[\0D", 6),
     "bad.ini: the file is in UTF-16: save it in the encoding UTF-8"},
    {"Utf16WithoutAMark", "[DESIGN CODE]", std::string("[\0D\0", 4),
     "bad.ini: the file is in UTF-16: save it in the encoding UTF-8"},
    {"SeveralAtOnce", "Gamu = 1.35\nGamf = 1.0\n", "Gamu = 1,35\nGamff = 1.0\nPsi0 0.7\n",
     "bad.ini:25:8: '1,35' of entry 'Gamu' is no number: write a point: 1.35\nbad.ini:26:1: entry 'Gamff' is "
     "not known in section 'ACTION G': write Gamf\nbad.ini:27:1: the line is neither a section, an entry "
     "'name = value' nor a comment: write 'name = value', or ';' in front of a comment"},
    {"SeveralValuesAtOnce", "Gamu = 1.35\nGamf = 1.0\n", "Gamu = 1,35\nGamff = 1.0\n",
     "bad.ini:25:8: '1,35' of entry 'Gamu' is no number: write a point: 1.35\nbad.ini:26:1: entry 'Gamff' is "
     "not known in section 'ACTION G': write Gamf"},
};

} // namespace

TEST_P(MalformedCode, IsRefusedWithFileLineAndReason)
{
    EXPECT_EQ(errorOf(sampleWith(GetParam().from, GetParam().to)), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(Designcode, MalformedCode, testing::ValuesIn(SAMPLES),
                         [](const auto& sample) { return std::string(sample.param.name); });

TEST(MalformedFile, CarriageReturnsAloneAreNamed)
{
    std::string text = READER_SAMPLE;
    std::replace(text.begin(), text.end(), '\n', '\r');
    EXPECT_EQ(errorOf(text), "bad.ini: the lines end with carriage returns (CR) alone: save the file with "
                             "line feeds (LF or CRLF)");
}

TEST(MalformedFile, EmptyTextHasNoIdentity)
{
    EXPECT_EQ(errorOf(""), "bad.ini: section 'DESIGN CODE' is missing: write it, with label and year");
}

TEST(MalformedFile, ThousandthActionIsRefused)
{
    std::string text = "[DESIGN CODE]\nlabel=L\nntcode=0\nidcode=0\ncountry=0\nyear=0\n"; // 6 lines
    for (int number = 1000; number < 2000;
         ++number) { // 3 lines each: the last begins in line 6 + 999 * 3 + 1
        text += "[ACTION " + std::to_string(number) + "]\ncategory=Q\nsuperposition=COND\n";
    }
    EXPECT_EQ(errorOf(text), "bad.ini:3004: more than 999 actions: leave some out");
}

TEST(MalformedFile, MissingFileGivesTheSystemsReason)
{
    const auto result = mrl::designcode::read("/nowhere/none.ini");
    ASSERT_TRUE(std::holds_alternative<mrl::designcode::Errors>(result));
    EXPECT_EQ(std::get<mrl::designcode::Errors>(result).front().text(),
              "/nowhere/none.ini: No such file or directory");
}

TEST(MalformedFile, FolderIsNoFile)
{
    const auto result = mrl::designcode::read("/tmp");
    ASSERT_TRUE(std::holds_alternative<mrl::designcode::Errors>(result));
    EXPECT_EQ(std::get<mrl::designcode::Errors>(result).front().text(),
              "/tmp: is a folder: name a file in it");
}

TEST(MalformedFile, HugeFileIsNotReadIn)
{
    const std::string file = mrl::test::ownFolder() + "huge.ini";
    std::ofstream(file) << std::string((1 << 20) + 1, ';');
    const auto result = mrl::designcode::read(file);
    std::remove(file.c_str());
    ASSERT_TRUE(std::holds_alternative<mrl::designcode::Errors>(result));
    EXPECT_EQ(std::get<mrl::designcode::Errors>(result).front().reason,
              "is larger than 1 MiB and so no design-code file");
}

TEST(MalformedFile, GigabyteEndsAtOnceWithTheSameReason)
{
    const std::string file = mrl::test::ownFolder() + "gigabyte.ini";
    std::ofstream(file) << mrl::test::READER_SAMPLE;
    std::filesystem::resize_file(file, std::uintmax_t{1} << 30); // a hole, which takes no room
    const auto before = std::clock();
    const auto result = mrl::designcode::read(file);
    const auto used = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
    std::remove(file.c_str());
    ASSERT_TRUE(std::holds_alternative<mrl::designcode::Errors>(result));
    EXPECT_EQ(std::get<mrl::designcode::Errors>(result).front().reason,
              "is larger than 1 MiB and so no design-code file");
    EXPECT_LT(used, 1.0) << "a thousandth of it is read, whatever the machine";
}
