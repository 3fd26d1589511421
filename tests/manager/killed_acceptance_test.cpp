// A process that is killed while the dialog is accepted.
#include <QProcess>
#include <QTemporaryDir>

#include <fstream>
#include <random>
#include <thread>

#include "lcdata/values/packed_text.h"
#include "tests/support/project_test.h"

namespace mrl::test {

namespace {

constexpr int CASES = 60;
constexpr int ROUNDS = 15;

/// The title that all load cases of a file have; empty when they differ or one is missing.
QString commonTitle(const QString& file)
{
    const auto project = cdb::openReadOnly(file.toStdString());
    EXPECT_TRUE(static_cast<bool>(project)) << project.result.text;
    QString common;
    bool same = true;
    for (int number = 1; number <= CASES; ++number) {
        tagCDB_LC_CTRL record{};
        int length = sizeof record;
        same = same && mrl_cdb_get(project.db, LC_KWH_CASES, number, &record, &length, 0) == CD_OK;
        const QString title = lcm_title_text(record.title);
        same = same && (number == 1 || title == common);
        common = title;
    }
    cdb::close(project.db);
    return same ? common : QString();
}

void makeProject(const QString& file, const std::string& designCode)
{
    const auto project = cdb::create(file.toStdString());
    ASSERT_TRUE(static_cast<bool>(project)) << project.result.text;
    EXPECT_TRUE(static_cast<bool>(cdb::setFact(project.db, "designcode", designCode)));
    const tagCDB_LC_CTRL record = bareLoadCase().title(QStringLiteral("0"));
    const int length = sizeof record;
    for (int number = 1; number <= CASES; ++number) {
        mrl_cdb_put(project.db, LC_KWH_CASES, number, &record, &length, 0);
    }
    cdb::close(project.db);
}

} // namespace

TEST(KilledAcceptance, LeavesTheOldStateOrTheNewOne)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("killed.cdb"));
    const std::string code = folder.filePath(QStringLiteral("code.ini")).toStdString();
    std::ofstream(code) << smallCode();
    makeProject(file, code);
    std::mt19937 random(4711);
    std::uniform_int_distribution<int> microseconds(0, 60000);
    for (int round = 0; round < ROUNDS; ++round) {
        QProcess accepting;
        // Settings of its own: a lock file that a killed process left half-written holds up the next one.
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder.filePath(QString::number(round)));
        accepting.setProcessEnvironment(environment);
        accepting.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        accepting.start(QStringLiteral(MRL_ACCEPT_FOREVER), {file});
        ASSERT_TRUE(accepting.waitForReadyRead(120000)) << accepting.exitCode();
        // Not a wait for something: the moment of the killing is what varies.
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        accepting.kill();
        ASSERT_TRUE(accepting.waitForFinished());
        const int last = accepting.readAllStandardOutput().trimmed().split('\n').back().toInt();
        const int found = commonTitle(file).toInt();
        EXPECT_TRUE(found == last || found == last + 1) << found << " after " << last;
    }
}

} // namespace mrl::test
