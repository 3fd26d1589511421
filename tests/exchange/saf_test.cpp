#include "exchange/saf_format.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "exchange/apply_plan.h"
#include "exchange/sheet_walk.h"
#include "exchange/xlsx_workbook.h"
#include "exchange/xlsx_writer.h"
#include "tests/exchange/exchange_fixture.h"
#include "tests/support/project_test.h"

using namespace mrl::test;
using mrl::exchange::Outcome;
using mrl::exchange::Workbook;
using mrl::exchange::WorkbookRow;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::string sheetText(const std::string& file, const std::string& name)
{
    const Workbook book(file);
    std::string text;
    for (const auto& sheet : book.sheets()) {
        if (sheet.name == name) {
            book.readRows(sheet, [&](WorkbookRow& row) {
                text += joined(row.cells) + "\n";
                return true;
            });
        }
    }
    return text;
}

std::string sinkOf(mrl::exchange::WorkbookWriter& writer)
{
    std::string file;
    EXPECT_FALSE(writer.finish([&](std::string_view bytes) {
        file += bytes;
        return true;
    }));
    return file;
}

class Saf : public ProjectTest
{
  protected:
    mrl::exchange::Source source() const { return {db, "bridge", {}, true, {{"designcode", "en1990"}}}; }
    std::string file() const { return written("saf", source()); }
    void fillProject() const
    {
        project.putAction(soundAction("G").partition(0x10));
        project.putAction(soundAction("Q_1").partition(0x131));
        project.putAction(soundAction("W"));
        project.putLoadCase(1, following("G").title("Dead").deadWeight(0, 0, -1));
        project.putLoadCase(2, following("G").title("Finishes"));
        project.putLoadCase(11, following("W").title("Wind +X"));
        project.putLoadCase(12, following(LC_ACTION_IMPERFECTION).title("Sway"));
        project.putLoadCase(13, standalone().title("Alone"));
    }
};

TEST_F(Saf, WritesGroupsAndCasesInItsWords)
{
    fillProject();
    project.setSystem(0, -3);
    const std::string groups = sheetText(file(), "StructuralLoadGroup");
    EXPECT_THAT(groups, HasSubstr("G|Permanent|Together||"));
    EXPECT_THAT(groups, HasSubstr("Q_1|Variable|Standard|Others|"));
    EXPECT_THAT(groups, HasSubstr("W|Variable|Exclusive|Wind|"));
    EXPECT_THAT(groups, HasSubstr("IMP|Variable|Standard|Others|"));
    const std::string cases = sheetText(file(), "StructuralLoadCase");
    EXPECT_THAT(cases, HasSubstr("Name|Description|Action type|Load group|Load type|Duration|Id\n"));
    EXPECT_THAT(cases, HasSubstr("LC1|Dead|Permanent|G|Self weight||"));
    EXPECT_THAT(cases, HasSubstr("LC2|Finishes|Permanent|G|Others||"));
    EXPECT_THAT(cases, HasSubstr("LC11|Wind +X|Variable|W|Wind|Short|"));
    EXPECT_THAT(cases, HasSubstr("LC13|Alone|Variable|NONE|Others|Medium|"));
    const std::string model = sheetText(file(), "Model");
    EXPECT_THAT(model, HasSubstr("SAF Version|2.2.0\nGlobal coordinate system|Z vertical\n"));
    EXPECT_THAT(model, HasSubstr("National code|EC-Standard-EN\n"));
}

TEST_F(Saf, IdsStayTheSameSoThatASecondWritingUpdates)
{
    fillProject();
    const std::string before = sheetText(file(), "StructuralLoadCase");
    EXPECT_THAT(before, testing::ContainsRegex(
                            "[0-9a-f]{8}-[0-9a-f]{4}-5[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}"));
    EXPECT_EQ(sheetText(file(), "StructuralLoadCase"), before);
    project.putLoadCase(14, standalone());
    EXPECT_THAT(sheetText(file(), "StructuralLoadCase"), testing::StartsWith(before));
}

TEST_F(Saf, LossesAreListedBesideAndInTheFile)
{
    fillProject();
    project.putAction(soundAction("A").partition(0x36));
    const auto losses = englishOf(mrl::exchange::formatOfName("saf")->losses(source()));
    EXPECT_THAT(losses, Contains("action G: all factors"));
    EXPECT_THAT(
        losses,
        Contains("action A: the superposition EXEX is written as Exclusive and would be read as EXCL"));
    EXPECT_THAT(losses, Contains("action Q_1: the partition Q_1 would be read as Q"));
    EXPECT_THAT(losses, Contains("load case 1: the amounts of dead weight"));
    const std::string notes = sheetText(file(), "MrlNotes");
    for (const std::string& loss : losses) {
        EXPECT_THAT(notes, HasSubstr(loss + "\n"));
    }
}

/// The words of all superpositions and categories through a file.
TEST_F(Saf, LosesExactlyWhatTheListSays)
{
    const char* names[] = {"G", "P", "Q", "A", "E"};
    for (int superposition : {0, 1, 2, 3, 4, 5, 6, 8}) {
        const MemoryProject from(smallCode());
        for (int category = 1; category <= 5; ++category) {
            from.putAction(soundAction(names[category - 1]).partition(category * 16 + superposition));
            from.putLoadCase(category,
                             following(names[category - 1]).title(QString("Title %1").arg(category)));
        }
        const mrl::exchange::Source fromSource{from.db(), "p", {}, true, {}};
        const auto losses = englishOf(mrl::exchange::formatOfName("saf")->losses(fromSource));
        const auto state = mrl::exchange::stateOf(db);
        const auto plan = mrl::exchange::planOf(state, readAs("saf", written("saf", fromSource)).tables);
        ASSERT_EQ(plan.rows.size(), 10u);
        for (const auto& row : plan.rows) {
            EXPECT_EQ(row.outcome, Outcome::Added) << row.name << row.reasons.size();
            if (row.sheet == Sheet::LoadCases) {
                EXPECT_EQ(lcm_title_text(row.loadCase.title), QString("Title %1").arg(row.id));
                EXPECT_EQ(row.loadCase.action, from.storedLoadCase(row.id).action);
                continue;
            }
            const int before = from.storedAction(QString::fromStdString(row.name)).partition;
            bool isListed = false;
            for (const std::string& loss : losses) {
                isListed = isListed || loss.find("action " + row.name + ": the") == 0;
            }
            EXPECT_EQ(row.action->wanted.partition != before, isListed) << row.name << " " << superposition;
        }
    }
}

TEST_F(Saf, NamesBecomeNumbersAndTitlesAndFaultsAreTold)
{
    mrl::exchange::WorkbookWriter writer;
    writer.beginSheet("Model", {{"Name"}, {"x"}}, false);
    writer.addRow({"SAF Version", "2.1.0"});
    writer.beginSheet("StructuralLoadGroup", {{"name"}, {"Load-group type"}, {"Relation [-]"}, {"Load type"}},
                      false);
    writer.addRow({"LG1", "Permanent", "", ""});
    writer.addRow({"Seismic loads", "Seismic", "Together", ""});
    writer.addRow({"Wind", "Variable", "Exclusive", "Wind"});
    writer.beginSheet(
        "StructuralLoadCase",
        {{"Name"}, {"Description"}, {"Action type"}, {"Load group"}, {"Load type"}, {"Duration"}, {"Id"}},
        false);
    writer.addRow({"LC2", "", "Variable", "LG1", "Standard", "", "1"});
    writer.addRow({"WND - LO", "Wind from the left", "Variable", "Wind", "Static", "Short", "1"});
    writer.addRow({"A name that is far longer than thirty-three units", "", "Variable", "Wind", "Static",
                   "Short", "1"});
    const auto read = readAs("saf", sinkOf(writer));
    EXPECT_THAT(englishOf(read.notes), ElementsAre("SAF version 2.1.0", "the model has no national code"));
    const auto plan = mrl::exchange::planOf(mrl::exchange::stateOf(db), read.tables);
    std::string notes;
    for (const auto& row : plan.rows) {
        EXPECT_EQ(row.outcome, Outcome::Added) << row.name;
        for (const std::string& note : englishOf(row.notes)) {
            notes += note + "\n";
        }
    }
    EXPECT_THAT(notes, HasSubstr("load group LG1: the relation \"\" is read as Together\n"));
    EXPECT_THAT(notes, HasSubstr("load group \"Seismic loads\" becomes the action L1\n"));
    EXPECT_THAT(notes, HasSubstr("Together, which is for permanent loads only"));
    EXPECT_THAT(notes, HasSubstr("load case LC2: its action type is Variable, that of its group Permanent"));
    EXPECT_THAT(notes, HasSubstr("load case WND - LO: the description \"Wind from the left\" is dropped\n"));
    EXPECT_THAT(notes, HasSubstr("the title loses \"irty-three units\"")) << notes;
    ASSERT_EQ(plan.rows.size(), 6u);
    EXPECT_EQ(plan.rows[3].id, 2);
    EXPECT_EQ(plan.rows[4].id, 3);
    EXPECT_EQ(plan.rows[5].id, 4);
    EXPECT_EQ(lcm_title_text(plan.rows[4].loadCase.title), "WND - LO");
    EXPECT_EQ(plan.rows[4].loadCase.action, codeOf("WIND"));
    EXPECT_EQ(plan.rows[2].action->wanted.psi0, 0.6f) << "as the wind of the design code";
}

/// The examples that are published with the format state no licence, so they aren't kept here: MRL_SAF_EXAMPLES names
/// the folder in which they lie.
class SafExamples : public Saf
{
  protected:
    void SetUp() override
    {
        if (!qEnvironmentVariableIsSet("MRL_SAF_EXAMPLES")) {
            GTEST_SKIP() << "MRL_SAF_EXAMPLES names no folder with the format's example workbooks";
        }
    }
    /// The plan of the example whose file has a word in its name, and all that was told.
    mrl::exchange::Plan planOf(const QString& word)
    {
        const QDir examples(qEnvironmentVariable("MRL_SAF_EXAMPLES"));
        const QStringList names = examples.entryList({"*" + word + "*.xlsx"});
        EXPECT_EQ(names.size(), 1) << word.toStdString();
        QFile workbook(examples.filePath(names.value(0)));
        EXPECT_TRUE(workbook.open(QIODevice::ReadOnly));
        const std::string bytes = workbook.readAll().toStdString();
        EXPECT_EQ(mrl::exchange::formatOfFile("x.xlsx", bytes)->name(), "saf");
        const auto read = readAs("saf", bytes);
        told = englishOf(read.notes);
        auto plan = mrl::exchange::planOf(mrl::exchange::stateOf(db), read.tables);
        for (const auto& row : plan.rows) {
            EXPECT_EQ(row.outcome, Outcome::Added) << row.name;
            const auto notes = englishOf(row.notes);
            told.insert(told.end(), notes.begin(), notes.end());
        }
        return plan;
    }

    std::vector<std::string> told;
};

TEST_F(SafExamples, HouseIsReadWholeAndItsFaultsAreTold)
{
    const auto plan = planOf("HOUSE");
    ASSERT_EQ(plan.rows.size(), 10u);
    EXPECT_EQ(plan.rows[9].id, 3);
    EXPECT_THAT(told, Contains("SAF version 2.2.0"));
    EXPECT_THAT(told,
                Contains("load group LG7: Together, which is for permanent loads only, is read as PERM"));
    EXPECT_THAT(told, Contains("load case LC3: no id"));
    EXPECT_THAT(told, Contains("load case LC3: its action type is Variable, that of its group Permanent; the "
                               "group counts"));
    EXPECT_THAT(told, Contains("combinations are passed over"));
}

TEST_F(SafExamples, SteelHallIsReadWholeWithNumbersForItsNames)
{
    const auto plan = planOf("STEEL_HALL");
    ASSERT_EQ(plan.rows.size(), 11u);
    EXPECT_EQ(plan.rows[6].id, 3);
    EXPECT_EQ(lcm_title_text(plan.rows[6].loadCase.title), "WND - LO");
    EXPECT_EQ(plan.rows[6].loadCase.action, codeOf("WIND"));
    EXPECT_EQ(lcm_title_text(plan.rows[10].loadCase.title), "SN");
    EXPECT_THAT(told,
                Contains("load case WND - LO: the description \"Wind from the left  - overpressure\" is "
                         "dropped"));
    EXPECT_THAT(told, Contains("SAF version 2.1.0"));
}

TEST_F(Saf, IsToldFromOtherWorkbooksByItsSheets)
{
    fillProject();
    EXPECT_EQ(mrl::exchange::formatOfFile("x.xlsx", file())->name(), "saf");
    EXPECT_EQ(mrl::exchange::formatOfFile("x.xlsx", written("xlsx", source()))->name(), "xlsx");
    EXPECT_EQ(mrl::exchange::formatOfFile("x.xlsx", {})->name(), "xlsx");
    EXPECT_EQ(errorOf("saf", written("xlsx", db, {Sheet::LoadCases})),
              "the workbook has no sheet StructuralLoadGroup or StructuralLoadCase");
}

} // namespace
