// Import and export that are killed, or for which the disk has no room.
#include <gmock/gmock.h>

#include <QFile>
#include <QProcess>

#include <fstream>

#include "cli/run.h"

using namespace mrl::test;

namespace {

constexpr int ROWS = 20000;
constexpr int KILLS = 12;

class CliExchangeCrash : public CliTest
{
  protected:
    CliExchangeCrash() : csv(path("t.csv"))
    {
        makeProject();
        done({"case", "create", file, "1", "--action", "G"});
        std::ofstream out(csv, std::ios::binary);
        out << "number,title,action\n";
        for (int number = 1; number <= ROWS; ++number) {
            out << number << ",Row of a long table,Q\n";
        }
    }
    /// Runs the program and kills it after a while. @return whether it had finished
    static bool runAndKill(const QStringList& arguments, int milliseconds)
    {
        QProcess process;
        process.start(QStringLiteral(MRL_LC), arguments);
        const bool finished = process.waitForFinished(milliseconds);
        process.kill();
        process.waitForFinished();
        return finished;
    }
    int loadCases(const std::string& project) const
    {
        return done({"info", project, "--json"}).json()["loadCases"].get<int>();
    }

    const std::string csv;
};

TEST_F(CliExchangeCrash, KilledImportLeavesTheOldProjectOrTheNewOne)
{
    bool wasCut = false;
    for (int i = 0; i < KILLS; ++i) {
        const QString copy = QString::fromStdString(path("copy.cdb"));
        QFile::remove(copy);
        ASSERT_TRUE(QFile::copy(QString::fromStdString(file), copy));
        const bool finished = runAndKill({"import", copy, QString::fromStdString(csv)}, 20 + 40 * i);
        const int count = loadCases(copy.toStdString());
        EXPECT_TRUE(count == 1 || count == ROWS) << count;
        EXPECT_EQ(done({"verify", copy.toStdString()}).code, 0);
        wasCut = wasCut || !finished;
    }
    EXPECT_TRUE(wasCut) << "no run was killed before its end";
}

TEST_F(CliExchangeCrash, KilledExportLeavesTheOldFileOrTheNewOne)
{
    const std::string out = path("out.csv");
    done({"import", file, csv});
    done({"export", file, "-o", out});
    const std::string whole = contentOf(out);
    std::ofstream(out, std::ios::binary) << "old";
    for (int i = 0; i < KILLS; ++i) {
        runAndKill({"export", QString::fromStdString(file), "-o", QString::fromStdString(out)}, 10 + 10 * i);
        const std::string content = contentOf(out);
        EXPECT_TRUE(content == "old" || content == whole) << content.size();
    }
}

TEST_F(CliExchangeCrash, FullDiskLeavesTheProjectAsItWas)
{
    const std::string before = contentOf(file);
    const Outcome run = mrlLcWithin(static_cast<int>(before.size() / 1024) + 40, {"import", file, csv});
    EXPECT_EQ(run.code, 3) << run.err;
    EXPECT_EQ(loadCases(file), 1);
    EXPECT_EQ(done({"verify", file}).code, 0);
}

} // namespace
