#include <QDir>
#include <QFile>
#include <QProcess>

#include <zip.h>

#include "exchange/xlsx_workbook.h"
#include "tests/exchange/exchange_fixture.h"
#include "tests/support/action_builder.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/memory_project.h"

using namespace mrl::test;
using mrl::exchange::Workbook;
using mrl::exchange::WorkbookRow;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr auto TYPES =
    R"(<?xml version="1.0"?><Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types"/>)";
constexpr auto RELATIONS =
    R"(<Relationships><Relationship Id="r1" Type="x/worksheet" Target="worksheets/s.xml"/>
<Relationship Id="r2" Type="x/sharedStrings" Target="/xl/strings.xml"/><Relationship Id="r3" Type="x/styles" Target="styles.xml"/></Relationships>)";
constexpr auto SHEETS =
    R"(<workbook xmlns:r="x"><sheets><sheet name="Any" sheetId="1" r:id="r1"/></sheets></workbook>)";

using Entries = std::map<std::string, std::string>;

/// A zip file with these entries.
std::string zipped(const Entries& entries)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("t.zip");
    zip_t* zip = zip_open(path.toStdString().c_str(), ZIP_CREATE, nullptr);
    for (const auto& [name, text] : entries) {
        zip_file_add(zip, name.c_str(), zip_source_buffer(zip, text.data(), text.size(), 0),
                     ZIP_FL_ENC_UTF_8);
    }
    EXPECT_EQ(zip_close(zip), 0);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll().toStdString();
}

/// A workbook of one sheet with this data.
std::string workbook(const std::string& rows, const std::string& strings = {}, const std::string& styles = {})
{
    Entries entries{{"[Content_Types].xml", TYPES},
                    {"xl/_rels/workbook.xml.rels", RELATIONS},
                    {"xl/workbook.xml", SHEETS},
                    {"xl/worksheets/s.xml", "<worksheet><sheetData>" + rows + "</sheetData></worksheet>"}};
    if (!strings.empty()) {
        entries["xl/strings.xml"] = "<sst>" + strings + "</sst>";
    }
    if (!styles.empty()) {
        entries["xl/styles.xml"] = "<styleSheet>" + styles + "</styleSheet>";
    }
    return zipped(entries);
}

/// A heading with the columns number, title and DLZ.
const std::string HEADING = R"(<row r="1"><c r="A1" t="inlineStr"><is><t>number</t></is></c>)"
                            R"(<c r="B1" t="inlineStr"><is><t>title</t></is></c>)"
                            R"(<c r="C1" t="inlineStr"><is><t>DLZ</t></is></c></row>)";

std::string fileOf(int db)
{
    return written("xlsx", {db, "p", {Sheet::Actions, Sheet::LoadCases}, true, {{"designcode", "en1990"}}});
}

MemoryProject& someProject()
{
    static MemoryProject project(SAMPLE_CODE);
    project.putAction(soundAction("G"));
    project.putAction(soundAction("Q").gamf(2.0f));
    project.putLoadCase(1, following("G").title("=1+1 \"<&>\" _x0041_\r\n  ψ ").deadWeight(0, 0.1f, -1e-7f));
    project.putLoadCase(20, standalone().title("Own").factors(0.5f));
    return project;
}

TEST(Xlsx, OwnWorkbookReadsBackAsItWasWritten)
{
    const int db = someProject().db();
    const auto read = readAs("xlsx", fileOf(db));
    ASSERT_EQ(read.tables.size(), 2u);
    EXPECT_EQ(read.tables[0].head.sheet, Sheet::Actions);
    EXPECT_EQ(read.tables[1].rows[0].cells[1], "=1+1 \"<&>\" _x0041_\r\n  ψ ");
    EXPECT_EQ(read.tables[1].rows[0].cells[4], "0.1");
    EXPECT_EQ(read.tables[1].rows[0].cells[7], "") << "a factor that follows";
    EXPECT_EQ(read.tables[1].rows[1].cells[0], "20");
}

TEST(Xlsx, FileDependsOnTheContentAlone)
{
    EXPECT_EQ(fileOf(someProject().db()), fileOf(someProject().db()));
}

TEST(Xlsx, SheetsOfActionsLoadCasesDesignCodeAndFindings)
{
    const std::string file = fileOf(someProject().db());
    const Workbook book(file);
    std::vector<std::string> names;
    for (const auto& sheet : book.sheets()) {
        names.push_back(sheet.name);
    }
    EXPECT_THAT(names, ElementsAre("actions", "loadcases", "design code", "findings"));
    std::string findings;
    book.readRows(book.sheets()[3], [&](WorkbookRow& row) {
        findings += joined(row.cells) + "\n";
        return true;
    });
    EXPECT_THAT(findings, HasSubstr("action|Q|gamf-not-between-0-and-gamu|"));
}

TEST(Xlsx, ForeignProgramReadsOurWorkbook)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("t.xlsx");
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray::fromStdString(fileOf(someProject().db())));
    file.close();
    QProcess python;
    python.start(MRL_PYTHON, {MRL_SOURCE "/tests/exchange/read_workbook.py", path});
    ASSERT_TRUE(python.waitForFinished());
    const std::string said = python.readAllStandardOutput().toStdString();
    ASSERT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    EXPECT_THAT(said, HasSubstr("sheets actions loadcases design code findings\n"));
    EXPECT_THAT(said, HasSubstr("loadcases A2 int 1\n"));
    EXPECT_THAT(said, HasSubstr("loadcases E2 float 0.1\n"));
    EXPECT_THAT(said, HasSubstr("loadcases C2 str 'G'\n"));
    EXPECT_THAT(said, HasSubstr("loadcases frozen A2 filter A1:N3 offers C2:C1048576 =actions!$A$2:$A$3\n"));
}

TEST(Xlsx, ForeignWorkbookIsRead)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("t.xlsx");
    QProcess python;
    python.start(MRL_PYTHON, {MRL_SOURCE "/tests/exchange/write_workbook.py", path});
    ASSERT_TRUE(python.waitForFinished());
    ASSERT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const auto read = readAs("xlsx", file.readAll().toStdString());
    EXPECT_THAT(rowsOf(read), ElementsAre("7|Schnee|S|0.25", "8|Größe|W|date 45000", "9|rich text||1e-07"));
    EXPECT_EQ(read.tables[0].rows[0].line, 3);
    EXPECT_THAT(englishOf(read.notes), testing::Contains("read sheet \"Lasten\""));
}

TEST(Xlsx, SharedInlineAndFormulaValuesAreRead)
{
    const auto read = readAs(
        "xlsx",
        workbook(
            HEADING +
                R"(<row r="5"><c r="A5"><v>7</v></c><c r="B5" t="s"><v>1</v></c>)"
                R"(<c r="C5"><f>1/4</f><v>0.25</v></c></row>)"
                R"(<row><c><v>8</v></c><c t="str"><f>A()</f><v>a_x000D_b</v></c><c t="e"><v>#DIV/0!</v></c></row>)",
            "<si><t>no</t></si><si><r><t>Sn</t></r><r><t>ow</t></r><rPh><t>hint</t></rPh></si>"));
    EXPECT_THAT(rowsOf(read), ElementsAre("7|Snow|0.25", "8|a\rb|#DIV/0!"));
    EXPECT_EQ(read.tables[0].rows[1].line, 6);
}

TEST(Xlsx, DatesAreNoNumbersInAnyFormatThatShowsThem)
{
    const auto cells = [](const std::string& style) {
        return rowsOf(readAs(
            "xlsx",
            workbook(HEADING + R"(<row r="2"><c r="A2"><v>7</v></c><c r="C2" s="1"><v>45000</v></c></row>)",
                     "", style)));
    };
    const std::string xfs = R"(<cellXfs><xf numFmtId="0"/><xf numFmtId="%"/></cellXfs>)";
    const auto styled = [&](const std::string& id, const std::string& formats = {}) {
        return formats + std::string(xfs).replace(xfs.find('%'), 1, id);
    };
    EXPECT_THAT(cells(styled("14")), ElementsAre("7||date 45000"));
    EXPECT_THAT(cells(styled("165", R"(<numFmts><numFmt numFmtId="165" formatCode="dd\.mm"/></numFmts>)")),
                ElementsAre("7||date 45000"));
    EXPECT_THAT(
        cells(styled("165",
                     R"(<numFmts><numFmt numFmtId="165" formatCode="[Red]0.0&quot; d&quot;"/></numFmts>)")),
        ElementsAre("7||45000"));
    EXPECT_THAT(cells(styled("2")), ElementsAre("7||45000"));
}

TEST(Xlsx, HostileFilesAreRefusedWithTheReason)
{
    EXPECT_THAT(errorOf("xlsx", "PK\x03\x04 nonsense"), HasSubstr("the zip file can't be read"));
    EXPECT_THAT(errorOf("xlsx", zipped({{"a", "b"}})), "the workbook lacks xl/_rels/workbook.xml.rels");
    EXPECT_THAT(errorOf("xlsx", workbook("")), HasSubstr("no sheet has a column"));
    EXPECT_THAT(errorOf("xlsx", workbook(HEADING + R"(<row r="2"><c r="A2" t="s"><v>3</v></c></row>)")),
                "sheet \"Any\": row 2: there is no shared string 3");
    EXPECT_THAT(errorOf("xlsx", workbook(HEADING + R"(<row r="2"><c r="ZZZZZ2"><v>3</v></c></row>)")),
                HasSubstr("more than 16384 columns"));
    EXPECT_THAT(errorOf("xlsx", workbook(HEADING + R"(<row r="9999999"><c><v>3</v></c></row>)")),
                HasSubstr("a sheet has rows 1 to 1048576"));
    EXPECT_THAT(errorOf("xlsx", workbook(HEADING + "<row>")), HasSubstr("can't be read"));
    EXPECT_THAT(errorOf("xlsx", workbook(HEADING + "<row r=\"2\"><c><v>&e;</v></c></row>")),
                HasSubstr("can't be read"));
    Entries bomb{{"xl/_rels/workbook.xml.rels", RELATIONS}, {"xl/workbook.xml", SHEETS}};
    bomb["xl/worksheets/s.xml"] = std::string(20 * 1024 * 1024, ' ');
    EXPECT_THAT(errorOf("xlsx", zipped(bomb)), HasSubstr("inflates to 20971520 bytes, which is refused"));
    Entries entities{{"xl/_rels/workbook.xml.rels", RELATIONS}, {"xl/workbook.xml", SHEETS}};
    entities["xl/worksheets/s.xml"] =
        "<!DOCTYPE w [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;\">]><worksheet>&b;</worksheet>";
    EXPECT_THAT(errorOf("xlsx", zipped(entities)), HasSubstr("no sheet has a column"));
    entities["xl/worksheets/s.xml"] = "<worksheet/>";
    entities["xl/workbook.xml"] = "<!DOCTYPE w [<!ENTITY a \"aaaa\">]>" + std::string(SHEETS);
    EXPECT_THAT(errorOf("xlsx", zipped(entities)), HasSubstr("a document type"));
}

TEST(Xlsx, CutFileIsRefusedWhereverItIsCut)
{
    const std::string file = fileOf(someProject().db());
    for (std::size_t size = 0; size < file.size(); size += 97) {
        EXPECT_NE(errorOf("xlsx", file.substr(0, size)), "readable") << size;
    }
}

} // namespace
