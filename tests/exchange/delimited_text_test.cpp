#include "exchange/delimited_text.h"

#include "exchange/text_decoding.h"
#include "tests/exchange/exchange_fixture.h"
#include "tests/support/action_builder.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/memory_project.h"

using mrl::test::errorOf;
using mrl::test::following;
using mrl::test::MemoryProject;
using mrl::test::readAs;
using mrl::test::rowsOf;
using mrl::test::Sheet;
using mrl::test::soundAction;
using mrl::test::standalone;
using mrl::test::told;
using mrl::test::written;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::string utf16(const QString& text)
{
    return "\xFF\xFE" + std::string(reinterpret_cast<const char*>(text.utf16()),
                                    static_cast<std::size_t>(text.size()) * 2);
}

TEST(DelimitedText, WritesALineForEachLoadCaseUnderStableHeadings)
{
    const MemoryProject project;
    project.putLoadCase(1, following("Q").title("Wind, left"));
    project.putLoadCase(12, standalone().title("Own"));
    EXPECT_EQ(written("csv", project.db(), {Sheet::LoadCases}),
              "number,title,action,DLX,DLY,DLZ,factor,Gamu,Gamf,Gama,Psi0,Psi1,Psi2,Psi1s\n"
              "1,\"Wind, left\",Q,0,0,0,1,,,,,,,\n"
              "12,Own,,0,0,0,1,0,0,0,0,0,0,0\n");
}

TEST(DelimitedText, WritesActionsUnderStableHeadings)
{
    const MemoryProject project;
    project.putAction(soundAction("Q_1").partition(0x132).title("Offices"));
    EXPECT_EQ(written("tsv", project.db(), {Sheet::Actions}),
              "name\ttitle\tpartition\tsuperposition\tGamu\tGamf\tGama\tPsi0\tPsi1\tPsi2\tPsi1s\n"
              "Q_1\tOffices\tQ_1\tEXCL\t1.35\t1\t1\t0.5\t0.5\t0.5\t0.5\n");
}

TEST(DelimitedText, WritesTheSignsAndTheEncodingThatAreChosen)
{
    const MemoryProject project;
    project.putAction(soundAction("G").title("Ständig"));
    EXPECT_THAT(written("csv", project.db(), {Sheet::Actions}, told(';', ',', "Latin-1")),
                HasSubstr("G;St\xE4ndig;Q;EXCL;1,35;1;1;0,5"));
    EXPECT_THAT(written("csv", project.db(), {Sheet::Actions}, told(';', ',', "UTF-16")),
                testing::StartsWith("\xFF\xFEn"));
}

TEST(DelimitedText, TextThatBeginsAFormulaIsGuardedAndComesBack)
{
    for (const char* text : {"=1+1", "+x", "-x", "@x", "'=x", "''+x", "\tx"}) {
        EXPECT_EQ(mrl::exchange::guarded(text), std::string("'") + text);
        EXPECT_EQ(mrl::exchange::unguarded(mrl::exchange::guarded(text)), text);
    }
    for (const char* text : {"", "x=1", "'x", "'", "1"}) {
        EXPECT_EQ(mrl::exchange::guarded(text), text);
        EXPECT_EQ(mrl::exchange::unguarded(text), text);
    }
}

TEST(DelimitedText, HeadingsStandInAnyOrderInEnglishOrGerman)
{
    const auto read = readAs("csv", "Bezeichnung;Lastfall;Einwirkung;Unbekannt\nWind;3;W;x\n");
    EXPECT_THAT(rowsOf(read), ElementsAre("Wind|3|W"));
    EXPECT_EQ(read.tables[0].head.columns, (std::vector<int>{1, 0, 2}));
    EXPECT_EQ(read.tables[0].rows[0].line, 2);
    EXPECT_THAT(englishOf(read.notes), testing::Contains("column \"Unbekannt\" is passed over"));
}

TEST(DelimitedText, HeadingsAreToldByHandWhereTheyDoNotFit)
{
    const std::string file = "Kennung;Was;factor;Gamu\n7;Seven;2;1.5\n";
    mrl::exchange::FormatOptions options;
    EXPECT_EQ(errorOf("csv", file), "no column is headed \"number\"");
    options.columns = {{"Kennung", "number"}, {"Was", "title"}, {"Gamu", ""}};
    const auto read = readAs("csv", file, options);
    EXPECT_THAT(rowsOf(read), ElementsAre("7|Seven|2"));
    EXPECT_EQ(read.form.separator, ';');
    ASSERT_EQ(read.headings.size(), 1u);
    EXPECT_EQ(read.headings[0].second[1].text, "Was");
    EXPECT_EQ(read.headings[0].second[3].column, -1);
    options.columns["factor"] = "title";
    EXPECT_EQ(errorOf("csv", file, options), "line 1: two columns mean \"title\"");
}

TEST(DelimitedText, HeadingsTellActionsFromLoadCases)
{
    EXPECT_EQ(readAs("csv", "name,partition\nG,G\n").tables[0].head.sheet, Sheet::Actions);
    EXPECT_EQ(readAs("csv", "number,title\n1,x\n").tables[0].head.sheet, Sheet::LoadCases);
}

TEST(DelimitedText, EncodingIsFoundOutAndTold)
{
    const QString text = QStringLiteral("number;title\n1;Größe\n");
    const std::pair<std::string, const char*> files[] = {{text.toStdString(), "UTF-8"},
                                                         {"\xEF\xBB\xBF" + text.toStdString(), "UTF-8"},
                                                         {text.toLatin1().toStdString(), "Latin-1"},
                                                         {utf16(text), "UTF-16LE"},
                                                         {utf16(text).substr(2), "UTF-16LE"}};
    for (const auto& [bytes, encoding] : files) {
        const auto read = readAs("csv", bytes);
        EXPECT_THAT(rowsOf(read), ElementsAre("1|Größe")) << encoding;
        EXPECT_EQ(read.notes.at(0).english(),
                  std::string("read as ") + encoding + ", separator \";\", decimal sign \".\"");
    }
}

TEST(DelimitedText, PairOfUnitsBetweenTwoPiecesOfAFileIsReadWhole)
{
    const std::string MOON = "\xF0\x9F\x8C\x99"; // two units of UTF-16
    for (int shift = 0; shift < 4; ++shift) {
        std::string text = "number,title\n1," + std::string(static_cast<std::size_t>(shift), 'x');
        for (int i = 0; i < 20; ++i) {
            text += MOON;
        }
        text += "\n";
        const std::string row = text.substr(text.find("1,"));
        while (text.size() < 1100000) {
            text += row;
        }
        const std::string utf16 = *mrl::exchange::encoded(text, "UTF-16", true);
        const auto read = readAs("csv", utf16);
        for (const auto& one : read.tables.at(0).rows) {
            ASSERT_EQ(one.cells[1] + "\n", row.substr(2)) << one.line;
        }
    }
}

TEST(DelimitedText, DecimalSignIsFoundInTheWholeFile)
{
    EXPECT_THAT(rowsOf(readAs("csv", "number;DLZ;DLX\n1;1,234;2\n2;0,5;3\n")),
                ElementsAre("1|1.234|2", "2|0.5|3"));
    EXPECT_THAT(rowsOf(readAs("csv", "number;DLZ\n1;1.234\n2;1.5\n")), ElementsAre("1|1.234", "2|1.5"));
    EXPECT_THAT(rowsOf(readAs("csv", "number,DLZ\n1,1.234\n")), ElementsAre("1|1.234"));
}

TEST(DelimitedText, OpenDecimalSignIsRefusedUnlessTold)
{
    const std::string open = "number;DLZ\n1;1,234\n";
    EXPECT_EQ(errorOf("csv", open), "numbers like 1,234 leave the decimal sign open; say which it is");
    EXPECT_THAT(rowsOf(readAs("csv", open, told(0, ','))), ElementsAre("1|1.234"));
    EXPECT_EQ(errorOf("csv", "number;DLZ\n1;0,5\n2;0.5\n"),
              "some numbers have a decimal point and others a decimal comma; say which holds");
}

TEST(DelimitedText, QuotesHoldSeparatorsQuotesAndLines)
{
    const auto read = readAs("csv", "number,title\r\n1,\"a \"\"b\"\", c\r\nd\"\r\n\r\n2,e\r\n");
    EXPECT_THAT(rowsOf(read), ElementsAre("1|a \"b\", c\r\nd", "2|e"));
    EXPECT_EQ(read.tables[0].rows[1].line, 5);
}

TEST(DelimitedText, WhatIsNoTableIsRefusedWithItsLine)
{
    const std::pair<std::string, const char*> files[] = {
        {"", "the file is empty"},
        {"title\nx\n", "no column is headed \"number\""},
        {"number,title\n1,\"x\n", "line 2: a quote is not closed"},
        {"number,title\n1,\"x\"y\n", "line 2: text stands behind a closing quote"},
        {"number,title\n1\n", "line 2 has 1 fields, the heading 2"},
        {"number,nr\n1,2\n", "line 1: two columns mean \"number\""},
        {std::string("number,title\n1,a\0b\n", 18), "line 2: a zero character"},
        {"number" + std::string(2000, ','), "line 1: more than 1000 fields"},
        {"number,title\n1," + std::string(200000, 'x'), "line 2: a field is longer than 100000 bytes"}};
    for (const auto& [bytes, error] : files) {
        EXPECT_EQ(errorOf("csv", bytes), error);
    }
}

TEST(DelimitedText, NumberWithAPointAmongDecimalCommasIsKeptAsNoNumber)
{
    EXPECT_THAT(rowsOf(readAs("csv", "number;DLZ\n1;1.000,5\n", told(0, ','))), ElementsAre("1|?1.000.5"));
}

TEST(DelimitedText, EncodingThatCannotHoldATitleIsRefused)
{
    const MemoryProject project;
    project.putLoadCase(1, standalone().title("ψ"));
    const auto error = mrl::exchange::formatOfName("csv")->write(
        {project.db(), "p", {Sheet::LoadCases}, false, {}}, told(0, 0, "Latin-1"),
        [](std::string_view) { return true; });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->message.english(), "Latin-1 can't hold all characters of the titles");
}

} // namespace
