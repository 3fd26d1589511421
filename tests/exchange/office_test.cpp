// An office program opens our workbooks, and we read what it writes.
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "exchange/decimals.h"
#include "tests/exchange/exchange_fixture.h"
#include "tests/support/project_test.h"

using namespace mrl::test;

namespace {

class Office : public ProjectTest
{
  protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable("soffice").isEmpty()) {
            GTEST_SKIP() << "LibreOffice is not installed (package libreoffice-calc-nogui)";
        }
        project.putAction(soundAction("G").title("Permanent"));
        project.putAction(soundAction("Q").psi0(0.7f).gamu(1.35f));
        project.putLoadCase(1, following("G").title("=1+1 \"<&>\" ψ").deadWeight(0, 0.1f, -1e-7f));
        project.putLoadCase(20, standalone().title("+ two\nlines").factors(0.5f));
        project.putLoadCase(999999, following("Q").title("_x0041_").factor(-2.5f));
    }
    /// A file as the office program writes it in another format.
    std::string converted(const std::string& bytes, const QString& suffix, const QString& filter) const
    {
        QFile file(folder.filePath("in." + suffix));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray::fromStdString(bytes));
        file.close();
        QProcess office;
        office.start("soffice",
                     {"-env:UserInstallation=file://" + folder.filePath("profile"), "--headless",
                      "--convert-to", filter, "--outdir", folder.filePath("out"), file.fileName()});
        constexpr int PATIENCE_MS = 120000;
        EXPECT_TRUE(office.waitForFinished(PATIENCE_MS));
        QFile out(folder.filePath("out/in." + filter.section(':', 0, 0)));
        EXPECT_TRUE(out.open(QIODevice::ReadOnly)) << office.readAll().toStdString();
        return out.readAll().toStdString();
    }
    /// Numbers as we write them: -1E-007 is -1e-07.
    static mrl::exchange::Cells plain(mrl::exchange::Cells cells)
    {
        for (std::string& cell : cells) {
            if (const auto number = mrl::exchange::numberOf(cell)) {
                cell = mrl::exchange::numberText(*number);
            }
        }
        return cells;
    }
    static std::vector<std::string> allRows(const mrl::exchange::ReadTables& read)
    {
        std::vector<std::string> rows;
        for (const auto& table : read.tables) {
            for (const auto& row : table.rows) {
                rows.push_back(joined(plain(row.cells)));
            }
        }
        return rows;
    }

    QTemporaryDir folder;
};

TEST_F(Office, OpensOurWorkbookAndWritesOneThatWeReadTheSame)
{
    const std::string ours = written("xlsx", {db, "p", {Sheet::Actions, Sheet::LoadCases}, true, {}});
    const auto expected = allRows(readAs("xlsx", ours));
    ASSERT_EQ(expected.size(), 5u);
    EXPECT_EQ(allRows(readAs("xlsx", converted(ours, "xlsx", "xlsx:Calc MS Excel 2007 XML"))), expected);
}

TEST_F(Office, WritesCsvOfOurWorkbookThatWeReadTheSame)
{
    const std::string ours = written("xlsx", {db, "p", {Sheet::LoadCases}, false, {}});
    // Comma, quotes, UTF-8, cells as they are and not as they are shown.
    const std::string csv =
        converted(ours, "xlsx", "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,false");
    EXPECT_EQ(allRows(readAs("csv", csv)), allRows(readAs("xlsx", ours)));
}

} // namespace
