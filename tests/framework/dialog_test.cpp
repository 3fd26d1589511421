#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>

#include "framework/sample_dialog.h"
#include "hostlib/data/cdb/project.h"
#include "tests/support/modal_answers.h"

namespace {

namespace cdb = mrl::cdb;
using mrl::test::ModalAnswers;
using mrl::test::SampleDialog;

/// A dialog on a project in memory.
class ManagerDialog : public ::testing::Test
{
  protected:
    ManagerDialog() : database(cdb::openMemory())
    {
        document.attach(database.db);
        parameter.document = &document;
    }
    ~ManagerDialog() override { cdb::close(database.db); }

    static QPushButton* button(SampleDialog& dialog, const char* name)
    {
        return dialog.findChild<QPushButton*>(name);
    }
    static void show(SampleDialog& dialog)
    {
        dialog.initDialog();
        dialog.show();
        dialog.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    }

    cdb::Opened database;
    MRL_H_ShadowDatabase document;
    MRL_H_PluginParameter parameter;
};

TEST_F(ManagerDialog, BuildsItsContentsAndThenFillsThem)
{
    SampleDialog dialog(&parameter);
    EXPECT_EQ(dialog.initDialog(), 17);
    EXPECT_EQ(dialog.calls, (QStringList{"create", "init"}));
    EXPECT_EQ(dialog.parameter(), &parameter);
}

TEST_F(ManagerDialog, TheButtonsStandWhenTheContentsAreFilled)
{
    SampleDialog dialog(&parameter);
    dialog.onInit = [&] { EXPECT_NE(button(dialog, "button_ok"), nullptr); };
    dialog.initDialog();
}

TEST_F(ManagerDialog, OkChecksSavesAndClosesWithOne)
{
    SampleDialog dialog(&parameter);
    dialog.initDialog();
    ModalAnswers answers;
    answers.then([&](QWidget*) { QTest::mouseClick(button(dialog, "button_ok"), Qt::LeftButton); });
    EXPECT_EQ(dialog.exec(), 1);
    EXPECT_EQ(dialog.calls, (QStringList{"create", "init", "check", "save"}));
}

TEST_F(ManagerDialog, EnterSavesAndClosesAsOkDoes)
{
    SampleDialog dialog(&parameter);
    show(dialog);
    QTest::keyClick(dialog.edit, Qt::Key_Return);
    EXPECT_TRUE(dialog.calls.contains("save"));
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), 1);
}

TEST_F(ManagerDialog, WhatDoesNotPassTheCheckIsNotSavedAndStays)
{
    SampleDialog dialog(&parameter);
    dialog.valid = false;
    show(dialog);
    QTest::mouseClick(button(dialog, "button_ok"), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_FALSE(dialog.calls.contains("save"));
}

TEST_F(ManagerDialog, CancelSavesNothingAndClosesWithZero)
{
    SampleDialog dialog(&parameter);
    show(dialog);
    QTest::mouseClick(button(dialog, "button_cancel"), Qt::LeftButton);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.result(), 0);
    EXPECT_EQ(dialog.calls, (QStringList{"create", "init", "noop"}));
}

TEST_F(ManagerDialog, EscAndTheCloseButtonAreCancel)
{
    SampleDialog dialog(&parameter);
    show(dialog);
    QTest::keyClick(dialog.edit, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    dialog.show();
    dialog.close();
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_FALSE(dialog.calls.contains("save"));
}

TEST_F(ManagerDialog, ASecondEnterDoesNotSaveAgain)
{
    SampleDialog dialog(&parameter);
    show(dialog);
    dialog.onSave = [&] { dialog.accept(); };
    dialog.onCheck = [&] { dialog.accept(); };
    dialog.accept();
    dialog.accept();
    EXPECT_EQ(dialog.calls.count("save"), 1);
    EXPECT_EQ(dialog.calls.count("check"), 1);
}

TEST_F(ManagerDialog, ADialogThatIsShownAgainSavesAgain)
{
    SampleDialog dialog(&parameter);
    show(dialog);
    dialog.accept();
    dialog.show();
    dialog.accept();
    EXPECT_EQ(dialog.calls.count("save"), 2);
}

TEST_F(ManagerDialog, AMessageDuringTheCheckKeepsEscFromClosingTheDialog)
{
    SampleDialog dialog(&parameter);
    dialog.valid = false;
    dialog.onCheck = [&] { MRL_QT_MessageBox::critical(&dialog, "Error!", "Please select one!"); };
    show(dialog);
    ModalAnswers answers;
    answers.key(Qt::Key_Escape);
    QTest::mouseClick(button(dialog, "button_ok"), Qt::LeftButton);
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(ManagerDialog, HelpComesWithTheButtonAndWithF1)
{
    SampleDialog dialog(&parameter);
    show(dialog);
    QTest::mouseClick(button(dialog, "button_help"), Qt::LeftButton);
    EXPECT_EQ(dialog.calls.count("help"), 1);
    QTest::keyClick(dialog.edit, Qt::Key_F1);
    EXPECT_EQ(dialog.calls.count("help"), 2);
}

TEST_F(ManagerDialog, WithoutHelpThereIsNoButtonAndNoF1)
{
    SampleDialog dialog(&parameter, false);
    show(dialog);
    EXPECT_EQ(button(dialog, "button_help"), nullptr);
    QTest::keyClick(dialog.edit, Qt::Key_F1);
    EXPECT_FALSE(dialog.calls.contains("help"));
}

TEST_F(ManagerDialog, KeepsItsSizeUnderItsNameAndGroup)
{
    {
        SampleDialog dialog(&parameter);
        dialog.setObjectName("any");
        dialog.restoreGeometry(500, 300);
        show(dialog);
        dialog.resize(640, 420);
        dialog.reject();
    }
    SampleDialog dialog(&parameter);
    dialog.setObjectName("another");
    dialog.restoreGeometry(500, 300);
    EXPECT_EQ(dialog.size(), QSize(640, 420));
}

TEST_F(ManagerDialog, StandsWhereItIsTold)
{
    SampleDialog dialog(&parameter, true, QRect(40, 30, 300, 200));
    dialog.initDialog();
    EXPECT_EQ(dialog.geometry(), QRect(40, 30, 300, 200));
}

TEST_F(ManagerDialog, BelongsToTheParametersWindow)
{
    QWidget parent;
    parameter.parentWidget = &parent;
    const SampleDialog dialog(&parameter);
    EXPECT_EQ(dialog.parentWidget(), &parent);
}

} // namespace
