#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "host/mrl_cdb.h"
#include "host/mrl_framework.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/ui/framework/project_document.h"

namespace {

namespace cdb = mrl::cdb;
using mrl::ui::OnConflict;
using mrl::ui::SaveOutcome;
using ::testing::HasSubstr;
using ::testing::SizeIs;

constexpr int CASES = 12;
constexpr int ACTIONS = 14;

void put(int db, int kwh, int kwl, int value)
{
    const int length = sizeof value;
    ASSERT_EQ(mrl_cdb_put(db, kwh, kwl, &value, &length, 0), CD_OK);
}

/// -1 for a key that is not there.
int get(int db, int kwh, int kwl)
{
    int value = -1;
    int length = sizeof value;
    mrl_cdb_get(db, kwh, kwl, &value, &length, 0);
    mrl_cdb_free_ex(db, kwh, kwl);
    return value;
}

/// A project file with the load cases 1 to 3 (values 10, 20, 30), a superposition key and an action; the
/// document on it; and another program that has the file open.
class Document : public ::testing::Test
{
  protected:
    Document() : path(folder.filePath("bridge.cdb"))
    {
        const auto made = cdb::create(path.toStdString());
        for (int lc = 1; lc <= 3; ++lc) {
            put(made.db, CASES, lc, 10 * lc);
        }
        put(made.db, ACTIONS, 70, 700);
        put(made.db, ACTIONS, 0x20202047, 35);
        EXPECT_TRUE(static_cast<bool>(cdb::setFact(made.db, "designcode", "EN1990.ini")));
        cdb::close(made.db);
        EXPECT_TRUE(static_cast<bool>(document.host().open(path)));
        other = cdb::open(path.toStdString()).db;
    }
    ~Document() override
    {
        document.host().close();
        cdb::close(other);
    }
    int db() const { return document.index(); }

    QTemporaryDir folder;
    QString path;
    MRL_H_ShadowDatabase document;
    int other = -1;
};

TEST_F(Document, HoldsEveryKeyOfItsProject)
{
    EXPECT_EQ(get(db(), CASES, 2), 20);
    EXPECT_EQ(get(db(), ACTIONS, 70), 700);
    EXPECT_EQ(cdb::fact(db(), "designcode"), "EN1990.ini");
    EXPECT_TRUE(document.host().hasFile());
    EXPECT_EQ(document.host().path(), path);
    EXPECT_FALSE(document.host().isReadOnly());
}

TEST_F(Document, WhatIsWrittenInItStaysOutOfTheFileUntilItIsSaved)
{
    put(db(), CASES, 1, 11);
    EXPECT_EQ(get(other, CASES, 1), 10);
    document.addSaveKwh(CASES);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_EQ(get(other, CASES, 1), 11);
}

TEST_F(Document, FactThatItChangedIsSavedAndOthersStayAsTheyAre)
{
    ASSERT_TRUE(static_cast<bool>(cdb::setFact(db(), "designcode", "own")));
    EXPECT_TRUE(document.host().hasChanges());
    EXPECT_EQ(cdb::fact(other, "designcode"), "EN1990.ini");
    ASSERT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_EQ(cdb::fact(other, "designcode"), "own");
    EXPECT_FALSE(document.host().hasChanges());
    ASSERT_TRUE(static_cast<bool>(cdb::setFact(other, "note", "of another program")));
    put(db(), CASES, 1, 11);
    document.addSaveKwh(CASES);
    ASSERT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_EQ(cdb::fact(other, "note"), "of another program");
}

TEST_F(Document, ReloadTakesTheFactsOfTheFile)
{
    ASSERT_TRUE(static_cast<bool>(cdb::setFact(db(), "designcode", "mine")));
    ASSERT_TRUE(static_cast<bool>(cdb::setFact(other, "designcode", "theirs")));
    ASSERT_TRUE(static_cast<bool>(document.host().reload()));
    EXPECT_EQ(cdb::fact(db(), "designcode"), "theirs");
    EXPECT_FALSE(document.host().hasChanges());
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Saved);
}

TEST_F(Document, FactThatAnotherProgramChangedTooIsAConflict)
{
    ASSERT_TRUE(static_cast<bool>(cdb::setFact(db(), "designcode", "mine")));
    ASSERT_TRUE(static_cast<bool>(cdb::setFact(other, "designcode", "theirs")));
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Conflict);
    EXPECT_EQ(cdb::fact(other, "designcode"), "theirs");
    EXPECT_EQ(document.host().save(mrl::ui::OnConflict::Overwrite).outcome, SaveOutcome::Saved);
    EXPECT_EQ(cdb::fact(other, "designcode"), "mine");
}

TEST_F(Document, SavingTakesKeysAwayThatAreGone)
{
    mrl_cdb_del(db(), CASES, 2);
    put(db(), CASES, 4, 40);
    document.addSaveKwh(CASES);
    ASSERT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_EQ(get(other, CASES, 2), -1);
    EXPECT_EQ(get(other, CASES, 3), 30);
    EXPECT_EQ(get(other, CASES, 4), 40);
}

TEST_F(Document, OnlyMarkedRangesAreSaved)
{
    put(db(), ACTIONS, 70, 701);
    put(db(), ACTIONS, 0x20202047, 36);
    document.addSaveKwh(ACTIONS, 0x20202020, 0x7a7a7a7a);
    ASSERT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_EQ(get(other, ACTIONS, 70), 700);
    EXPECT_EQ(get(other, ACTIONS, 0x20202047), 36);
    EXPECT_TRUE(document.host().hasChanges()); // of what nobody has marked
}

TEST_F(Document, ARangeMarkedTwiceIsMarkedOnce)
{
    document.addSaveKwh(CASES);
    document.addSaveKwh(CASES);
    EXPECT_THAT(document.host().marks(), SizeIs(1));
}

TEST_F(Document, ARefreshTakesWhatAnotherProgramWrote)
{
    put(other, CASES, 1, 99);
    mrl_cdb_del(other, CASES, 3);
    put(other, ACTIONS, 70, 999);
    EXPECT_EQ(get(db(), CASES, 1), 10);
    document.cdb2shadow(CASES, false);
    EXPECT_EQ(get(db(), CASES, 1), 99);
    EXPECT_EQ(get(db(), CASES, 3), -1);
    EXPECT_EQ(get(db(), ACTIONS, 70), 700); // another range
    EXPECT_FALSE(document.host().hasChanges());
    EXPECT_TRUE(static_cast<bool>(document.host().refreshFailure()));
}

TEST_F(Document, ARefreshGivesUpUnsavedChangesUnlessTheyAreToBeKept)
{
    put(other, CASES, 1, 99);
    put(db(), CASES, 2, 21);
    document.cdb2shadow(CASES, true);
    EXPECT_EQ(get(db(), CASES, 2), 21);
    document.cdb2shadow(CASES, false);
    EXPECT_EQ(get(db(), CASES, 2), 20);
    EXPECT_EQ(get(db(), CASES, 1), 99);
}

TEST_F(Document, ARefreshOfARangeKeepsSightOfUnsavedChangesBesideIt)
{
    put(db(), ACTIONS, 70, 701);
    put(other, ACTIONS, 0x20202047, 36);
    document.cdb2shadow(ACTIONS, 0x20202020, 0x7a7a7a7a, false);
    EXPECT_EQ(get(db(), ACTIONS, 0x20202047), 36);
    EXPECT_EQ(get(db(), ACTIONS, 70), 701);
    EXPECT_TRUE(document.host().hasChanges());
}

TEST_F(Document, ARangeThatWasNeverReadByItselfAsksWhenBothSidesHaveChangedItsGroup)
{
    put(db(), ACTIONS, 70, 701);
    put(other, ACTIONS, 71, 711);
    document.addSaveKwh(ACTIONS, 0x20202020, 0x7a7a7a7a);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Conflict); // better once too often
    EXPECT_EQ(document.host().save(OnConflict::Overwrite).outcome, SaveOutcome::Saved);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_EQ(get(other, ACTIONS, 71), 711);
}

TEST_F(Document, ARangeReadByItselfIsToldApartFromTheRestOfItsGroup)
{
    document.cdb2shadow(ACTIONS, 0x20202020, 0x7a7a7a7a, false);
    put(db(), ACTIONS, 70, 701);
    put(db(), ACTIONS, 0x20202047, 36);
    put(other, ACTIONS, 71, 711);
    document.addSaveKwh(ACTIONS, 0x20202020, 0x7a7a7a7a);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_EQ(get(other, ACTIONS, 0x20202047), 36);
    EXPECT_TRUE(document.host().hasChanges()); // key 70
    put(db(), ACTIONS, 70, 700);
    EXPECT_FALSE(document.host().hasChanges());
}

TEST_F(Document, ChangesAreSeenFromTheDatabaseItself)
{
    EXPECT_FALSE(document.host().hasChanges());
    put(db(), CASES, 1, 11);
    EXPECT_TRUE(document.host().hasChanges());
    put(db(), CASES, 1, 10);
    EXPECT_FALSE(document.host().hasChanges());
    put(db(), 99, 1, 1);
    EXPECT_TRUE(document.host().hasChanges());
    mrl_cdb_del(db(), 99, 1);
    EXPECT_FALSE(document.host().hasChanges());
}

TEST_F(Document, AfterSavingThereAreNoChanges)
{
    put(db(), CASES, 1, 11);
    document.addSaveKwh(CASES);
    ASSERT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_FALSE(document.host().hasChanges());
    put(db(), CASES, 1, 12);
    ASSERT_EQ(document.host().save().outcome, SaveOutcome::Saved); // its own save is no conflict
    EXPECT_EQ(get(other, CASES, 1), 12);
}

TEST_F(Document, WhatAnotherProgramChangedInAMarkedRangeIsReportedAndNothingIsWritten)
{
    put(other, CASES, 3, 33);
    put(db(), CASES, 1, 11);
    put(db(), ACTIONS, 70, 701);
    document.addSaveKwh(ACTIONS);
    document.addSaveKwh(CASES);
    const auto saved = document.host().save();
    EXPECT_EQ(saved.outcome, SaveOutcome::Conflict);
    ASSERT_THAT(saved.changed, SizeIs(1));
    EXPECT_EQ(saved.changed[0].kwh, CASES);
    EXPECT_EQ(get(other, CASES, 1), 10);
    EXPECT_EQ(get(other, ACTIONS, 70), 700);
}

TEST_F(Document, TheUserCanOverwriteWhatAnotherProgramChanged)
{
    put(other, CASES, 3, 33);
    put(db(), CASES, 1, 11);
    document.addSaveKwh(CASES);
    ASSERT_EQ(document.host().save(OnConflict::Overwrite).outcome, SaveOutcome::Saved);
    EXPECT_EQ(get(other, CASES, 1), 11);
    EXPECT_EQ(get(other, CASES, 3), 30);
    EXPECT_FALSE(document.host().hasChanges());
}

TEST_F(Document, WhatAnotherProgramChangedElsewhereIsNoConflictAndStays)
{
    put(other, ACTIONS, 70, 999);
    put(db(), CASES, 1, 11);
    document.addSaveKwh(CASES);
    document.addSaveKwh(ACTIONS, 0x20202020, 0x7a7a7a7a);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_EQ(get(other, ACTIONS, 70), 999);
}

TEST_F(Document, AChangeThatWasReadAgainIsNoConflict)
{
    put(other, CASES, 3, 33);
    document.cdb2shadow(CASES, false);
    put(db(), CASES, 1, 11);
    document.addSaveKwh(CASES);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    EXPECT_EQ(get(other, CASES, 3), 33);
}

/// A checksum that is linear would take both edits for none.
TEST_F(Document, EqualEditsOfTwoLoadCasesAreAConflict)
{
    put(other, CASES, 1, 10 ^ 0x55);
    put(other, CASES, 2, 20 ^ 0x55);
    put(db(), CASES, 3, 33);
    EXPECT_TRUE(document.host().hasChanges());
    document.addSaveKwh(CASES);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Conflict);
}

TEST_F(Document, EqualEditsOfItsOwnCountAsChanges)
{
    put(db(), CASES, 1, 10 ^ 0x55);
    put(db(), CASES, 2, 20 ^ 0x55);
    EXPECT_TRUE(document.host().hasChanges());
}

/// Both sides have raised their version by as much, but not by the same edits.
TEST_F(Document, AnotherLineOfTheProjectWithTheSameVersionIsAConflict)
{
    cdb::close(other);
    other = -1;
    const QString line = folder.filePath("line.cdb");
    ASSERT_TRUE(QFile::copy(path, line));
    put(db(), CASES, 1, 11);
    document.addSaveKwh(CASES);
    ASSERT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    const int there = cdb::open(line.toStdString()).db;
    put(there, CASES, 2, 22);
    EXPECT_EQ(cdb::versionOf(there)->number, cdb::versionOf(document.host().file())->number);
    EXPECT_NE(cdb::versionOf(there), cdb::versionOf(document.host().file()));
    cdb::close(there);
    ASSERT_TRUE(QFile::remove(path) && QFile::rename(line, path));
    put(db(), CASES, 3, 33);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Conflict);
}

/// The versions spare the comparison, and the second save of each side must see the other's one.
TEST_F(Document, SavesInTurnWithAnotherProgramSeeEachOther)
{
    document.addSaveKwh(CASES);
    for (int round = 1; round <= 3; ++round) {
        put(db(), CASES, 1, 100 + round);
        ASSERT_EQ(document.host().save().outcome, SaveOutcome::Saved);
        put(other, CASES, 2, 200 + round);
        put(db(), CASES, 1, 300 + round);
        ASSERT_EQ(document.host().save().outcome, SaveOutcome::Conflict);
        document.cdb2shadow(CASES, false);
        EXPECT_EQ(get(db(), CASES, 2), 200 + round);
        EXPECT_FALSE(document.host().hasChanges());
    }
}

TEST_F(Document, AFileThatAnotherProgramHoldsFailsWithItsName)
{
    cdb::setLockWait(document.host().file(), 0);
    put(db(), CASES, 1, 11);
    document.addSaveKwh(CASES);
    {
        const cdb::Transaction held(other);
        const auto saved = document.host().save();
        EXPECT_EQ(saved.outcome, SaveOutcome::Failed);
        EXPECT_EQ(saved.failure.code, cdb::Code::Locked);
        EXPECT_THAT(saved.failure.text, HasSubstr("bridge.cdb"));
    }
    EXPECT_TRUE(document.host().hasChanges());
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Saved);
}

TEST_F(Document, AFileThatAnotherOneHasReplacedIsReadAnew)
{
    const QString replacement = folder.filePath("new.cdb");
    const auto made = cdb::create(replacement.toStdString());
    put(made.db, CASES, 1, 77);
    cdb::close(made.db);
    cdb::close(other);
    other = -1;
    ASSERT_TRUE(QFile::remove(path));
    for (const char* suffix : {"-wal", "-shm"}) {
        QFile::remove(path + suffix);
    }
    ASSERT_TRUE(QFile::rename(replacement, path));

    put(db(), CASES, 2, 21);
    document.addSaveKwh(CASES);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Conflict);
    EXPECT_EQ(document.host().save(OnConflict::Overwrite).outcome, SaveOutcome::Saved);
    other = cdb::open(path.toStdString()).db;
    EXPECT_EQ(get(other, CASES, 2), 21);
    EXPECT_EQ(get(other, CASES, 1), 10);
}

TEST_F(Document, AFileThatIsGoneFailsAndKeepsTheDocument)
{
    cdb::close(other);
    other = -1;
    ASSERT_TRUE(QFile::remove(path));
    put(db(), CASES, 1, 11);
    document.addSaveKwh(CASES);
    const auto saved = document.host().save();
    EXPECT_EQ(saved.outcome, SaveOutcome::Failed);
    EXPECT_THAT(saved.failure.text, HasSubstr("bridge.cdb"));
    EXPECT_EQ(get(db(), CASES, 1), 11);
}

TEST_F(Document, SaveAsMakesAFileOfTheWholeDocumentAndGoesOnWithIt)
{
    put(db(), CASES, 1, 11);
    document.addSaveKwh(CASES);
    const QString copy = folder.filePath("copy.cdb");
    ASSERT_TRUE(static_cast<bool>(document.host().saveAs(copy)));
    EXPECT_EQ(document.host().path(), copy);
    EXPECT_FALSE(document.host().hasChanges());
    EXPECT_EQ(get(other, CASES, 1), 10); // the former file is as it was
    put(db(), CASES, 2, 22);
    ASSERT_EQ(document.host().save().outcome, SaveOutcome::Saved);
    const auto written = cdb::openReadOnly(copy.toStdString());
    EXPECT_EQ(get(written.db, CASES, 1), 11);
    EXPECT_EQ(get(written.db, CASES, 2), 22);
    EXPECT_EQ(get(written.db, ACTIONS, 70), 700);
    EXPECT_EQ(cdb::fact(written.db, "designcode"), "EN1990.ini");
    cdb::close(written.db);
}

TEST_F(Document, SaveAsReplacesAProjectThatIsThere)
{
    const QString copy = folder.filePath("copy.cdb");
    const auto made = cdb::create(copy.toStdString());
    put(made.db, CASES, 500, 1);
    put(made.db, 55, 5, 1);
    ASSERT_TRUE(cdb::setFact(made.db, "author", "somebody else"));
    cdb::close(made.db);
    ASSERT_TRUE(static_cast<bool>(document.host().saveAs(copy)));
    const auto written = cdb::openReadOnly(copy.toStdString());
    EXPECT_EQ(get(written.db, CASES, 500), -1);
    EXPECT_EQ(get(written.db, 55, 5), -1);
    EXPECT_EQ(cdb::fact(written.db, "author"), "");
    EXPECT_EQ(get(written.db, CASES, 1), 10);
    cdb::close(written.db);
}

TEST_F(Document, SaveAsCarriesEveryRecordAndFactWhoeverOwnsIt)
{
    // Several records of a key, the ends of the order, a record longer than any of ours, a fact of others.
    const std::string longer(100000, 'x');
    int length = static_cast<int>(longer.size());
    for (const cdb::Key key : {cdb::Key{INT32_MIN, INT32_MIN}, {-7, -1}, {55, 0}, {INT32_MAX, INT32_MAX}}) {
        ASSERT_EQ(mrl_cdb_put(db(), key.kwh, key.kwl, longer.data(), &length, 0), CD_OK);
        for (const int word : {1, 2, 1}) {
            ASSERT_TRUE(cdb::append(db(), key.kwh, key.kwl, &word, sizeof word));
        }
    }
    ASSERT_TRUE(cdb::setFact(db(), "author", "J. Müller"));
    ASSERT_TRUE(document.host().saveAs(folder.filePath("copy.cdb")));

    const auto written = cdb::openReadOnly(folder.filePath("copy.cdb").toStdString());
    std::vector<cdb::Key> here;
    std::vector<cdb::Key> there;
    ASSERT_TRUE(cdb::keys(db(), here));
    ASSERT_TRUE(cdb::keys(written.db, there));
    EXPECT_EQ(here, there);
    for (const cdb::Key& key : here) {
        bool equal = false;
        EXPECT_TRUE(cdb::rangesEqual(db(), written.db, {key.kwh}, equal));
        EXPECT_TRUE(equal) << key.kwh;
    }
    EXPECT_EQ(cdb::fact(written.db, "author"), "J. Müller");
    EXPECT_EQ(cdb::fact(written.db, "designcode"), "EN1990.ini");
    EXPECT_TRUE(cdb::integrityCheck(written.db));
    cdb::close(written.db);
}

TEST_F(Document, SaveAsOnItsOwnFileIsASave)
{
    put(db(), CASES, 1, 11);
    ASSERT_TRUE(static_cast<bool>(document.host().saveAs(path)));
    EXPECT_EQ(get(other, CASES, 1), 11);
    EXPECT_FALSE(document.host().hasChanges());
}

TEST_F(Document, SaveAsRefusesAFileThatIsNoProject)
{
    const QString letter = folder.filePath("letter.cdb");
    QFile file(letter);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("Dear Sirs");
    file.close();
    EXPECT_FALSE(static_cast<bool>(document.host().saveAs(letter)));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "Dear Sirs");
    EXPECT_EQ(document.host().path(), path);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Saved);
}

TEST_F(Document, SaveAsIntoAFolderThatIsNotThereFailsAndLeavesTheDocument)
{
    EXPECT_FALSE(static_cast<bool>(document.host().saveAs(folder.filePath("no/such/folder.cdb"))));
    EXPECT_EQ(document.host().path(), path);
    EXPECT_EQ(get(db(), CASES, 1), 10);
}

TEST_F(Document, AFileThatCannotBeOpenedLeavesTheDocumentThatIsOpen)
{
    EXPECT_FALSE(static_cast<bool>(document.host().open(folder.filePath("missing.cdb"))));
    EXPECT_EQ(get(db(), CASES, 1), 10);
}

TEST_F(Document, ClosingUnbindsIt)
{
    document.host().close();
    EXPECT_EQ(document.index(), -1);
    EXPECT_FALSE(document.host().hasChanges());
    EXPECT_FALSE(document.host().hasFile());
}

TEST(NewDocument, HasNoFileUntilItIsSavedAs)
{
    const QTemporaryDir folder;
    MRL_H_ShadowDatabase document;
    ASSERT_TRUE(static_cast<bool>(document.host().create()));
    EXPECT_FALSE(document.host().hasFile());
    put(document.index(), CASES, 1, 10);
    EXPECT_TRUE(document.host().hasChanges());
    document.cdb2shadow(CASES, false); // there is nothing to refresh from
    EXPECT_EQ(get(document.index(), CASES, 1), 10);
    EXPECT_EQ(document.host().save().outcome, SaveOutcome::Failed);
    ASSERT_TRUE(static_cast<bool>(document.host().saveAs(folder.filePath("new.cdb"))));
    EXPECT_TRUE(document.host().hasFile());
    EXPECT_FALSE(document.host().hasChanges());
}

TEST(AttachedDocument, IsTheDatabaseAsItStands)
{
    const auto database = cdb::openMemory();
    put(database.db, CASES, 1, 10);
    {
        MRL_H_ShadowDatabase document;
        document.attach(database.db);
        document.cdb2shadow(CASES, false);
        document.cdb2shadow(ACTIONS, 0x20202020, 0x7a7a7a7a, false);
        document.addSaveKwh(CASES);
        EXPECT_EQ(get(document.index(), CASES, 1), 10);
        EXPECT_EQ(document.host().save().outcome, SaveOutcome::Failed);
    }
    EXPECT_TRUE(cdb::isOpen(database.db)); // it isn't owned
    cdb::close(database.db);
}

} // namespace
