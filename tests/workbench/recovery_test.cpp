// What a crash leaves, and what the next start makes of it.
#include <QDir>
#include <QSignalSpy>
#include <QTest>

#include <gmock/gmock.h>

#include "lcdata/load_cases.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "tests/workbench/table_typing.h"
#include "workbench/document_history.h"
#include "workbench/main_window.h"
#include "workbench/recovery/recovery.h"
#include "workbench/recovery/recovery_offer.h"
#include "workbench/state_folder.h"
#include "workbench/wanted_extras.h"

namespace mrl::test {

namespace {

using workbench::Fit;
using workbench::MainWindow;
using workbench::Manager;
using workbench::Recovery;
using workbench::Snapshot;

class Recovering : public ::testing::Test
{
  protected:
    Recovering()
    {
        qputenv("XDG_STATE_HOME", state.path().toLocal8Bit());
        workbench::storeExtras(true);
        const OtherProgram other(project.path());
        other.put(LC_KWH_CASES, 1, following("G").title("One").record());
        other.put(LC_KWH_CASES, 2, following("G").title("Two").record());
    }
    ~Recovering() override { workbench::storeExtras(false); }

    void open()
    {
        window.emplace();
        window->show();
        ASSERT_TRUE(window->openProject(project.path()));
    }
    Recovery& recovery() const { return *window->findChild<Recovery*>(); }
    workbench::Document& document() const { return *window->findChild<workbench::Document*>(); }
    int db() const { return window->document().database(); }
    void removeInStep(int number)
    {
        document().runStep("Deletion", [=] { mrl_lc_remove(db(), number); });
    }
    /// Looks until a snapshot is written, as the timer does.
    void takeSnapshot() const
    {
        QSignalSpy written(&recovery(), &Recovery::written);
        recovery().look();
        ASSERT_TRUE(written.count() > 0 || written.wait(10000));
        EXPECT_TRUE(written.at(0).at(0).toBool());
    }
    /// What a run leaves that is killed now: a copy of its snapshot, without the lock.
    QString killed() const
    {
        const QString left = state.path() + "/mrl-workbench/recovery/killed.snapshot";
        QFile::remove(left);
        EXPECT_TRUE(QFile::copy(recovery().file(), left));
        return left;
    }
    QStringList leftFiles() const
    {
        return QDir(state.path() + "/mrl-workbench/recovery").entryList(QDir::Files, QDir::Name);
    }
    bool has(int number) const
    {
        tagCDB_LC_CTRL record{};
        return mrl_lc_get(db(), number, record);
    }
    static QString titleOf(const tagCDB_LC_CTRL& record) { return lcm_title_text(record.title); }
    QString title(int number) const
    {
        tagCDB_LC_CTRL record{};
        return mrl_lc_get(db(), number, record) ? titleOf(record) : QString();
    }
    QTemporaryDir state;
    ProjectFile project{QStringLiteral("en1990"), true};
    ModalAnswers answers;
    std::optional<MainWindow> window;
};

TEST_F(Recovering, AnUnsavedDocumentComesBackAsOneStep)
{
    open();
    removeInStep(2);
    takeSnapshot();
    const QString left = killed();
    window.reset();
    window.emplace();
    EXPECT_EQ(Recovery::abandoned(), QStringList{left});
    answers.click("Recover");
    EXPECT_TRUE(window->offerRecovery());
    EXPECT_FALSE(has(2));
    EXPECT_TRUE(document().isModified());
    EXPECT_EQ(document().history().steps().size(), 1u);
    EXPECT_EQ(document().history().undo(), QString());
    EXPECT_TRUE(has(2));
    EXPECT_FALSE(document().isModified());
    recovery().look();
    EXPECT_FALSE(QFile::exists(left)) << "nothing is unsaved any more";
}

TEST_F(Recovering, VeryManyRecordsAreReadBitByBitAndAnewAfterAChange)
{
    constexpr int MANY = 12000;
    open();
    document().runStep("Import", [this] {
        cdb::Transaction transaction(db());
        for (int number = 1; number <= MANY; ++number) {
            tagCDB_LC_CTRL record = following("G").title("New").record();
            mrl_lc_put(db(), number, record);
        }
        EXPECT_TRUE(transaction.commit());
    });
    QSignalSpy written(&recovery(), &Recovery::written);
    recovery().look();
    removeInStep(1); // which the first bit has seen
    EXPECT_EQ(written.count(), 0);
    ASSERT_TRUE(written.wait(10000));
    const auto snapshot = workbench::readSnapshot(killed());
    ASSERT_TRUE(snapshot.has_value());
    EXPECT_EQ(snapshot->document.keyCount(), static_cast<std::size_t>(MANY));
    snapshot->document.forEach([](const cdb::RecordImage::Entry& entry) {
        EXPECT_EQ(entry.records.empty(), entry.key.kwl == 1) << entry.key.kwl;
        return entry.key.kwl < 3;
    });
}

TEST_F(Recovering, RowsOfAnOpenManagerComeBack)
{
    open();
    QString left;
    answers.then([&](QWidget* dialog) {
        typeOver(frontTable(dialog), 0, 1, "Unfinished");
        takeSnapshot();
        left = killed();
        qobject_cast<QDialog*>(dialog)->reject();
    });
    window->openManager(Manager::LoadCases);
    EXPECT_EQ(title(1), "One");
    const auto snapshot = workbench::readSnapshot(left);
    ASSERT_TRUE(snapshot.has_value());
    EXPECT_TRUE(snapshot->document.isEmpty());
    EXPECT_EQ(snapshot->rows.loadCases.size(), 2u);
    window.reset();
    window.emplace();
    answers.click("Recover");
    EXPECT_TRUE(window->offerRecovery());
    EXPECT_EQ(title(1), "Unfinished");
    EXPECT_EQ(title(2), "Two");
    EXPECT_EQ(document().history().undo(), QString());
    EXPECT_EQ(title(1), "One");
}

TEST_F(Recovering, RowsThatWereDeletedInAnOpenManagerStayDeleted)
{
    open();
    Snapshot snapshot{project.path(), workbench::fileStateOf(db(), project.path()), {}, {}, {}};
    snapshot.rows.state = 1;
    snapshot.rows.hasLoadCases = true;
    snapshot.rows.loadCases = {{2, following("G").title("Two").record()},
                               {7, following("G").title("New").record()}};
    ASSERT_TRUE(workbench::applySnapshot(db(), snapshot));
    EXPECT_FALSE(has(1));
    EXPECT_TRUE(has(2) && has(7));
}

TEST_F(Recovering, NothingIsRecoveredUnasked)
{
    open();
    removeInStep(2);
    takeSnapshot();
    const QString left = killed();
    window.reset();
    window.emplace();
    answers.click("Later");
    EXPECT_FALSE(window->offerRecovery());
    EXPECT_TRUE(QFile::exists(left)) << "it is offered again by the next start";
    answers.key(Qt::Key_Escape);
    EXPECT_FALSE(window->offerRecovery());
    EXPECT_TRUE(QFile::exists(left));
    answers.click("Delete the snapshot");
    EXPECT_FALSE(window->offerRecovery());
    EXPECT_FALSE(QFile::exists(left));
}

TEST_F(Recovering, ASnapshotOlderThanTheFileIsToldAndLeftAlone)
{
    open();
    removeInStep(2);
    takeSnapshot();
    const QString left = killed();
    window.reset();
    OtherProgram(project.path()).put(LC_KWH_CASES, 3, following("G").record());
    window.emplace();
    answers.click("OK");
    EXPECT_FALSE(window->offerRecovery());
    EXPECT_THAT(answers.boxes().back().text.toStdString(), testing::HasSubstr("older than the file"));
    EXPECT_EQ(leftFiles(), QStringList{"killed.snapshot.left"});
    EXPECT_FALSE(window->offerRecovery()) << "told once";
}

TEST_F(Recovering, ASnapshotThatFitsNoProjectIsToldAndLeftAlone)
{
    open();
    removeInStep(2);
    takeSnapshot();
    Snapshot snapshot = *workbench::readSnapshot(killed());
    EXPECT_EQ(workbench::fitOf(snapshot), Fit::Fits);
    window.reset();
    ++snapshot.file.project;
    EXPECT_EQ(workbench::fitOf(snapshot), Fit::NoProject) << "another project under the same name";
    --snapshot.file.project;
    QFile::remove(project.path());
    EXPECT_EQ(workbench::fitOf(snapshot), Fit::NoProject);
    window.emplace();
    answers.click("OK");
    EXPECT_FALSE(window->offerRecovery());
    EXPECT_THAT(answers.boxes().back().text.toStdString(), testing::HasSubstr("fit no project"));
    EXPECT_EQ(leftFiles(), QStringList{"killed.snapshot.left"});
}

TEST_F(Recovering, ADamagedSnapshotIsToldAndLeftAlone)
{
    open();
    removeInStep(2);
    takeSnapshot();
    const QString left = killed();
    window.reset();
    QFile file(left);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    QByteArray bytes = file.readAll();
    for (int at = 0; at < bytes.size(); at += 7) {
        QByteArray damaged = bytes;
        damaged[at] = static_cast<char>(damaged[at] ^ 1);
        file.seek(0);
        file.write(damaged);
        file.flush();
        EXPECT_FALSE(workbench::readSnapshot(left).has_value()) << at;
    }
    file.close();
    window.emplace();
    answers.click("OK");
    EXPECT_FALSE(window->offerRecovery());
    EXPECT_EQ(leftFiles(), QStringList{"killed.snapshot.left"});
}

TEST_F(Recovering, NothingStaysBehindOnceAllIsSavedOrGivenUp)
{
    open();
    removeInStep(2);
    takeSnapshot();
    EXPECT_TRUE(QFile::exists(recovery().file()));
    EXPECT_EQ(Recovery::abandoned(), QStringList()) << "it belongs to a run that lives";
    EXPECT_TRUE(window->slot_save());
    recovery().look();
    EXPECT_FALSE(QFile::exists(recovery().file()));
    removeInStep(1);
    takeSnapshot();
    window.reset();
    EXPECT_EQ(leftFiles(), QStringList());
}

TEST_F(Recovering, WithoutTheExtrasThereAreNoSnapshots)
{
    workbench::storeExtras(false);
    open();
    removeInStep(2);
    recovery().look();
    QTest::qWait(50);
    EXPECT_EQ(leftFiles(), QStringList());
}

} // namespace

} // namespace mrl::test
