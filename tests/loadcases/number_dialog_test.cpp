#include "loadcases/number_dialog.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include "host/mrl_table.h"
#include "loadcases/my_slider.h"
#include "support/modal_answers.h"

namespace {

using mrl::test::ModalAnswers;

/// The dialog, shown and driven by keys.
class NumberDialog : public testing::Test
{
  protected:
    void open(std::set<int> taken, bool copy, LCM_LoadcaseCopy info)
    {
        m_dialog = std::make_unique<LCM_LoadcaseNumberDialog>(nullptr, taken, copy, info);
        m_dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
    }
    LCM_LoadcaseNumberDialog& dialog() { return *m_dialog; }
    QWidget* focus() { return m_dialog->focusWidget(); }
    /// Replaces the number by what is typed, with keys alone.
    void type(const QString& text)
    {
        QTest::keyClick(focus(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(focus(), text);
    }
    MySlider* slider() { return m_dialog->findChild<MySlider*>("slider lc number"); }

  private:
    std::unique_ptr<LCM_LoadcaseNumberDialog> m_dialog;
};

LCM_LoadcaseCopy proposal(int target, int source = -99999)
{
    LCM_LoadcaseCopy info;
    info.target = target;
    info.source = source;
    return info;
}

TEST_F(NumberDialog, OffersTheProposalWithTheFocusOnIt)
{
    open({1, 2}, true, proposal(3, 2));
    EXPECT_EQ(dialog().windowTitle(), "Target loadcase number");
    EXPECT_EQ(dialog().objectName(), "lc number input");
    EXPECT_EQ(dialog().number(), 3);
    EXPECT_EQ(dialog().factor(), 1.0);
    EXPECT_EQ(dialog().findChild<QLabel*>("lblCopyFrom")->text(), "Copy from: 2");
    EXPECT_TRUE(slider()->isAncestorOf(focus()));
    EXPECT_FALSE(slider()->isCorrected());
}

TEST_F(NumberDialog, FreeNumberIsAcceptedByReturn)
{
    open({1, 2}, false, proposal(3));
    EXPECT_EQ(dialog().findChild<QLabel*>("lblCopyFrom"), nullptr);
    EXPECT_EQ(dialog().findChild<MRL_H_LineEdit*>("m_pFac"), nullptr);
    EXPECT_EQ(dialog().factor(), -99999.0);
    type("17");
    QTest::keyClick(focus(), Qt::Key_Return);
    EXPECT_EQ(dialog().result(), QDialog::Accepted);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().number(), 17);
}

TEST_F(NumberDialog, TakenNumberIsMovedAndYesTakesTheNextFreeOne)
{
    open({1, 2, 5, 6}, false, proposal(3));
    type("5");
    ModalAnswers answers;
    answers.key(Qt::Key_Return); // "Yes" is the default
    QTest::keyClick(focus(), Qt::Key_Return);
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(answers.boxes()[0].title, "Already assigned");
    EXPECT_EQ(answers.boxes()[0].text,
              "Number 5 is already in use. Next free number is 7. Should the next free number be used?");
    EXPECT_EQ(answers.boxes()[0].buttons, (QStringList{"Yes", "No"}));
    EXPECT_EQ(answers.boxes()[0].defaultButton, "Yes");
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().number(), 7);
}

TEST_F(NumberDialog, NoKeepsTheDialogOpenWithTheFreeNumberAndAsksNoMore)
{
    open({1, 2, 5, 6}, false, proposal(3));
    type("5");
    {
        ModalAnswers answers;
        answers.click("No");
        QTest::keyClick(focus(), Qt::Key_Return);
    }
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(dialog().number(), 7);
    QTest::keyClick(focus(), Qt::Key_Return);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().number(), 7);
}

TEST_F(NumberDialog, TakenProposalIsRefused)
{
    open({999999}, false, proposal(999999));
    EXPECT_EQ(dialog().number(), 999999);
    ModalAnswers answers;
    answers.key(Qt::Key_Return);
    QTest::keyClick(focus(), Qt::Key_Return);
    EXPECT_EQ(answers.boxes().at(0).title, "Already assigned");
    EXPECT_EQ(answers.boxes().at(0).text,
              "This number is already assigned to a loadcase! Please choose another one.");
    EXPECT_TRUE(dialog().isVisible());
}

TEST_F(NumberDialog, FactorAndButtonsAreReachedByTabAlone)
{
    open({1}, true, proposal(2, 1));
    type("8");
    auto* factor = dialog().findChild<MRL_H_LineEdit*>("m_pFac");
    for (int i = 0; i < 4 && focus() != factor; ++i)
        QTest::keyClick(focus(), Qt::Key_Tab);
    ASSERT_EQ(focus(), factor);
    type("0.5");
    auto* ok = dialog().findChild<MRL_QT_Ok*>("buttons")->cmdOk();
    for (int i = 0; i < 3 && focus() != ok; ++i)
        QTest::keyClick(focus(), Qt::Key_Tab);
    ASSERT_EQ(focus(), ok);
    QTest::keyClick(focus(), Qt::Key_Space);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().number(), 8);
    EXPECT_EQ(dialog().factor(), 0.5);
}

TEST_F(NumberDialog, EscapeGivesUp)
{
    open({1}, true, proposal(2, 1));
    QTest::keyClick(focus(), Qt::Key_Escape);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().result(), QDialog::Rejected);
}

TEST_F(NumberDialog, DraggingPassesOverTakenNumbers)
{
    open({1, 2, 4, 5}, false, proposal(3));
    auto* handle = slider()->findChild<QSlider*>();
    handle->setFocus();
    QTest::keyClick(handle, Qt::Key_Right);
    EXPECT_EQ(dialog().number(), 6);
    QTest::keyClick(handle, Qt::Key_Left);
    EXPECT_EQ(dialog().number(), 3);
}

} // namespace
