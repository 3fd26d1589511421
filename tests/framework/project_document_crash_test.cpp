#include <gtest/gtest.h>

#include <QProcess>
#include <QTemporaryDir>

#include <random>
#include <thread>

#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"

namespace {

namespace cdb = mrl::cdb;

constexpr int CASES = 12;
constexpr int COUNT = 400;
constexpr int ROUNDS = 40;

int get(int db, int lc)
{
    int value = 0;
    int length = sizeof value;
    const auto result = mrl_cdb_get(db, CASES, lc, &value, &length, 0);
    mrl_cdb_free_ex(db, CASES, lc);
    return result == CD_OK ? value : 0;
}

/// The state that the whole file is in, -1 when it is in none.
int stateOf(const QString& path)
{
    const auto project = cdb::openReadOnly(path.toStdString());
    EXPECT_TRUE(static_cast<bool>(project)) << project.result.text;
    const int state = get(project.db, 1);
    bool whole = true;
    for (int lc = 2; lc <= COUNT; ++lc) {
        const bool gone = state % 2 == 0 && lc > COUNT / 2;
        whole = whole && get(project.db, lc) == (gone ? 0 : state);
    }
    cdb::close(project.db);
    return whole ? state : -1;
}

TEST(DocumentCrash, AProcessKilledWhileSavingLeavesTheOldStateOrTheNewOne)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("killed.cdb");
    cdb::close(cdb::create(path.toStdString()).db);
    std::mt19937 random(4711);
    std::uniform_int_distribution<int> microseconds(0, 12000);
    for (int round = 0; round < ROUNDS; ++round) {
        QProcess saver;
        saver.start(QStringLiteral(MRL_DOCUMENT_SAVER), {path});
        ASSERT_TRUE(saver.waitForReadyRead());
        // Not a wait for something: the moment of the killing is what varies.
        std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
        saver.kill();
        ASSERT_TRUE(saver.waitForFinished());
        const auto told = saver.readAllStandardOutput().trimmed().split('\n');
        const int last = told.back().toInt();
        const int found = stateOf(path);
        EXPECT_TRUE(found == last || found == last + 1) << found << " after " << last;
    }
}

} // namespace
