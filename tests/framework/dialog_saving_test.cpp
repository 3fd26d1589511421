// Acceptance as one transaction: what goes wrong leaves the project as it was and the dialog open.
#include <gmock/gmock.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <stdexcept>

#include <sqlite3.h>
#include <sys/resource.h>

#include "framework/sample_dialog.h"
#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"
#include "tests/support/modal_answers.h"

namespace {

namespace cdb = mrl::cdb;
using mrl::test::ModalAnswers;
using mrl::test::SampleDialog;
using ::testing::HasSubstr;
using ::testing::SizeIs;

constexpr int GROUP = 12;

/// While it lives, no file of this process can grow, as on a full disk.
class FullDisk
{
  public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit none{0, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit m_before{};
};

/// A dialog straight on a project file that holds the load case 1 with the value 10.
class DialogSaving : public ::testing::Test
{
  protected:
    DialogSaving() : path(folder.filePath("bridge.cdb")), database(cdb::create(path.toStdString()))
    {
        put(1, 10);
        document.attach(database.db);
        parameter.document = &document;
        cdb::setLockWait(database.db, 0);
    }
    ~DialogSaving() override { cdb::close(database.db); }

    bool put(int key, int value) const
    {
        const int length = sizeof value;
        return mrl_cdb_put(database.db, GROUP, key, &value, &length, 0) == CD_OK;
    }
    int get(int key) const
    {
        int value = -1;
        int length = sizeof value;
        mrl_cdb_get(database.db, GROUP, key, &value, &length, 0);
        mrl_cdb_free_ex(database.db, GROUP, key);
        return value;
    }
    std::unique_ptr<SampleDialog> open(std::function<void()> save)
    {
        auto dialog = std::make_unique<SampleDialog>(&parameter);
        dialog->onSave = std::move(save);
        dialog->initDialog();
        dialog->show();
        return dialog;
    }
    void corrupt(int key) const
    {
        sqlite3* raw = nullptr;
        ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &raw), SQLITE_OK);
        const QByteArray statement =
            "UPDATE record SET bytes = x'00112233' WHERE kwh = 12 AND kwl = " + QByteArray::number(key);
        EXPECT_EQ(sqlite3_exec(raw, statement.constData(), nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(raw);
        EXPECT_EQ(sqlite3_changes(raw), 1);
        sqlite3_close(raw);
    }

    QTemporaryDir folder;
    QString path;
    cdb::Opened database;
    MRL_H_ShadowDatabase document;
    MRL_H_PluginParameter parameter;
};

TEST_F(DialogSaving, AnAcceptanceIsInTheFile)
{
    auto dialog = open([&] { put(1, 11); });
    dialog->accept();
    EXPECT_EQ(dialog->result(), 1);
    const auto other = cdb::openReadOnly(path.toStdString());
    int value = 0;
    int length = sizeof value;
    EXPECT_EQ(mrl_cdb_get(other.db, GROUP, 1, &value, &length, 0), CD_OK);
    EXPECT_EQ(value, 11);
    cdb::close(other.db);
}

TEST_F(DialogSaving, OnAFullDiskTheUserIsToldAndAllIsAsBefore)
{
    auto dialog = open([&] {
        put(1, 11);
        for (int key = 2; key < 2000; ++key) {
            put(key, key);
        }
    });
    ModalAnswers answers;
    answers.click("OK");
    {
        const FullDisk full;
        dialog->accept();
    }
    ASSERT_THAT(answers.boxes(), SizeIs(1));
    EXPECT_EQ(answers.boxes()[0].title, "Not saved");
    EXPECT_THAT(answers.boxes()[0].text.toStdString(), HasSubstr("bridge.cdb"));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(get(1), 10);
    EXPECT_EQ(get(2), -1);
}

TEST_F(DialogSaving, AfterAFailureTheNextOkSaves)
{
    auto dialog = open([&] { put(1, 11); });
    ModalAnswers answers;
    answers.click("OK");
    {
        const FullDisk full;
        dialog->accept();
    }
    EXPECT_EQ(get(1), 10);
    dialog->accept();
    EXPECT_EQ(dialog->result(), 1);
    EXPECT_EQ(get(1), 11);
}

TEST_F(DialogSaving, AFileThatAnotherProgramHoldsIsToldAndTheDialogStays)
{
    const auto other = cdb::open(path.toStdString());
    auto dialog = open([&] { put(1, 11); });
    ModalAnswers answers;
    answers.click("OK");
    {
        const cdb::Transaction held(other.db);
        dialog->accept();
    }
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_FALSE(dialog->calls.contains("save"));
    dialog->accept();
    EXPECT_EQ(dialog->result(), 1);
    EXPECT_EQ(get(1), 11);
    cdb::close(other.db);
}

TEST_F(DialogSaving, AnExceptionTakesEverythingBack)
{
    bool fails = true;
    auto dialog = open([&] {
        put(1, 11);
        if (fails) {
            throw std::runtime_error("out of paper");
        }
    });
    ModalAnswers answers;
    answers.click("OK");
    dialog->accept();
    EXPECT_THAT(answers.boxes().at(0).text.toStdString(), HasSubstr("out of paper"));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(get(1), 10);
    fails = false;
    dialog->accept();
    EXPECT_EQ(get(1), 11);
}

TEST_F(DialogSaving, WithoutMemoryTheUserIsToldInWordsAndAllIsAsBefore)
{
    auto dialog = open([&] {
        put(1, 11);
        throw std::bad_alloc();
    });
    ModalAnswers answers;
    answers.click("OK");
    dialog->accept();
    EXPECT_THAT(answers.boxes().at(0).text.toStdString(), HasSubstr("There is no memory left."));
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(get(1), 10);
}

TEST_F(DialogSaving, WhatCouldNotBeReadWhileTheDialogWasBuiltKeepsItFromSaving)
{
    put(2, 20);
    corrupt(2);
    SampleDialog dialog(&parameter);
    dialog.onInit = [&] { EXPECT_EQ(get(2), -1); };
    dialog.onSave = [&] { mrl_cdb_del(database.db, GROUP, 2); };
    dialog.initDialog();
    dialog.show();
    ModalAnswers answers;
    answers.click("OK").click("OK");
    dialog.accept();
    dialog.accept(); // it stays so: the record was never on the screen
    EXPECT_FALSE(dialog.calls.contains("save"));
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(DialogSaving, AReadErrorOfAnEarlierDialogIsNotItsBusiness)
{
    put(2, 20);
    corrupt(2);
    EXPECT_EQ(get(2), -1);
    ASSERT_FALSE(cdb::stickyError(database.db));
    auto dialog = open([&] { put(1, 11); });
    dialog->accept();
    EXPECT_EQ(dialog->result(), 1);
}

TEST_F(DialogSaving, WhatCannotBeReadDuringTheSavingTakesItBack)
{
    put(2, 20);
    auto dialog = open([&] {
        put(1, 11);
        get(2);
    });
    corrupt(2);
    ModalAnswers answers;
    answers.click("OK");
    dialog->accept();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(get(1), 10);
}

TEST_F(DialogSaving, WhileAMessageWaitsAnotherProgramCanWrite)
{
    const auto other = cdb::open(path.toStdString());
    cdb::setLockWait(other.db, 0);
    auto dialog = open([&] {
        put(1, 11);
        MRL_QT_MessageBox::information(nullptr, "Action modified", "Please check.");
        put(2, 22);
    });
    ModalAnswers answers;
    answers.then([&](QWidget* box) {
        const int value = 33;
        const int length = sizeof value;
        EXPECT_EQ(mrl_cdb_put(other.db, GROUP, 3, &value, &length, 0), CD_OK);
        QTest::keyClick(box, Qt::Key_Return);
    });
    dialog->accept();
    EXPECT_EQ(dialog->result(), 1);
    EXPECT_EQ(get(1), 11);
    EXPECT_EQ(get(2), 22);
    EXPECT_EQ(get(3), 33);
    cdb::close(other.db);
}

TEST_F(DialogSaving, ADialogWithoutADatabaseSaysThatItCannotSave)
{
    MRL_H_PluginParameter empty;
    SampleDialog dialog(&empty);
    dialog.initDialog();
    dialog.show();
    ModalAnswers answers;
    answers.click("OK");
    dialog.accept();
    EXPECT_TRUE(dialog.isVisible());
}

} // namespace
