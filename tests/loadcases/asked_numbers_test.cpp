// What the user answers in the number dialog, and what becomes of it.

#include <gmock/gmock.h>

#include <QLineEdit>
#include <QPushButton>

#include "host/mrl_widgets.h"
#include "tests/loadcases/numbered_cases.h"
#include "tests/support/modal_answers.h"

namespace {

using namespace mrl::test;
using testing::ElementsAre;

class AskedNumbers : public NumberedCases
{
  protected:
    static void press(const Tabs& tabs, const char* button)
    {
        QTest::mouseClick(tabs.lc->findChild<QPushButton*>(button), Qt::LeftButton);
    }
    static void askForEach(const Tabs& tabs)
    {
        tabs.lc->findChild<MRL_QT_CheckBox*>("check_increaselc")->setChecked(false);
    }
    /// Types a number, which stands selected when the dialog opens, and presses Return.
    static void answer(QWidget* dialog, int number)
    {
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
        QTest::keyClicks(dialog->focusWidget(), QString::number(number));
        QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
    }
};

TEST_F(AskedNumbers, ChosenNumberStandsInTheNoteOfTheCopy)
{
    fill({1, 2});
    Tabs tabs(project);
    tabs.show();
    tabs.select({1});
    ModalAnswers answers;
    answers.then([](QWidget* dialog) {
        EXPECT_TRUE(dialog->isModal());
        answer(dialog, 20);
    });
    press(tabs, "button_copy");
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 20));
    ASSERT_EQ(tabs.lc->getCopies().size(), 1u);
    EXPECT_EQ(tabs.lc->getCopies()[0].source, 1);
    EXPECT_EQ(tabs.lc->getCopies()[0].target, 20);
}

TEST_F(AskedNumbers, NextDialogGoesOnBehindTheNumberChosenLast)
{
    for (const char* button : {"button_new", "button_copy"}) {
        fill({1, 2, 21});
        Tabs tabs(project);
        askForEach(tabs);
        tabs.show();
        tabs.select({1, 2});
        ModalAnswers answers;
        answers.then([](QWidget* dialog) { answer(dialog, 20); }).then([](QWidget* dialog) {
            EXPECT_EQ(proposalOf(dialog), 22) << "21 is taken";
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
        });
        press(tabs, button);
        EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 20, 21, 22)) << button;
    }
}

TEST_F(AskedNumbers, NumbersOfOtherModulesAreTaken)
{
    fill({1, 2});
    tagCDB_LC_CTRL foreign{};
    foreign.kind = 5;
    project.putLoadCase(7, foreign);
    Tabs tabs(project);
    tabs.show();
    tabs.select({1});
    ModalAnswers answers;
    answers.then([](QWidget* dialog) { answer(dialog, 7); }).click("Yes");
    press(tabs, "button_copy");
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_EQ(answers.boxes()[0].text,
              "Number 7 is already in use. Next free number is 8. Should the next free number be used?");
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 8));
    EXPECT_EQ(tabs.lc->getCopies().at(0).target, 8);
}

TEST_F(AskedNumbers, NumberOfARowMadeInThisDialogIsTaken)
{
    fill({1, 2});
    Tabs tabs(project);
    tabs.show();
    tabs.select({2});
    press(tabs, "button_new"); // 3
    tabs.select({1});
    ModalAnswers answers;
    answers
        .then([](QWidget* dialog) {
            answer(dialog, 3); // comes back with the answer below, and the dialog still open
            EXPECT_TRUE(dialog->isVisible());
            EXPECT_EQ(proposalOf(dialog), 4);
            QTest::keyClick(dialog, Qt::Key_Escape);
        })
        .click("No");
    press(tabs, "button_copy");
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 3));
    EXPECT_TRUE(tabs.lc->getCopies().empty());
}

TEST_F(AskedNumbers, CopyAsksWhateverTheBoxSaysAndNewOnlyWithoutIt)
{
    fill({1, 2});
    Tabs tabs(project);
    tabs.show();
    for (const bool increment : {true, false}) {
        tabs.lc->findChild<MRL_QT_CheckBox*>("check_increaselc")->setChecked(increment);
        tabs.select({1});
        int dialogs = 0;
        ModalAnswers answers;
        const auto givesUp = [&dialogs](QWidget* dialog) {
            ++dialogs;
            QTest::keyClick(dialog, Qt::Key_Escape);
        };
        answers.then(givesUp);
        if (!increment) {
            answers.then(givesUp);
        }
        press(tabs, "button_copy");
        press(tabs, "button_new");
        EXPECT_EQ(dialogs, increment ? 1 : 2);
    }
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 3)) << "the one without a dialog";
}

TEST_F(AskedNumbers, HighestNumberIsFree)
{
    fill({1, 2});
    Tabs tabs(project);
    tabs.show();
    tabs.select({1});
    for (const int number : {999999, 5}) {
        ModalAnswers answers;
        answers.then([number](QWidget* dialog) { answer(dialog, number); });
        press(tabs, "button_copy"); // the second time the highest one is selected
    }
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 5, 999999));
}

/// What the first copy of a process offers; the process ends with 0 when it is a factor of 1.
[[noreturn]] void copyInANewProcess()
{
    const LoadCaseProject project;
    project.putAction(variable());
    project.putLoadCase(1, following("Q"));
    const Tabs tabs(project);
    tabs.select({1});
    bool one = false;
    {
        ModalAnswers answers;
        answers.then([&one](QWidget* dialog) {
            one = dialog->findChild<MRL_H_LineEdit*>("m_pFac")->getVal() == 1.0;
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        tabs.lc->slot_copyClicked();
    }
    std::_Exit(one && !testing::Test::HasFailure() ? 0 : 1);
}

TEST(FirstCopyDeathTest, OffersAFactorOfOne)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe"; // a process of its own, from the start
    EXPECT_EXIT(copyInANewProcess(), testing::ExitedWithCode(0), "");
}

class NewRows : public AskedNumbers
{
};

TEST_F(NewRows, AreSelectedInTheSecondColumnFromTheFirstToTheLast)
{
    fill({1, 2, 5});
    Tabs tabs(project);
    tabs.show();
    tabs.select({1, 2, 5});
    press(tabs, "button_new"); // 3, 4, 6
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 3, 4, 5, 6));
    std::set<int> selected;
    tabs.lc->getSelectedLoadcases(selected);
    EXPECT_THAT(selected, ElementsAre(3, 4, 6));
    for (const QTableWidgetSelectionRange& range : tabs.table->selectedRanges()) {
        EXPECT_EQ(range.leftColumn(), 1);
        EXPECT_EQ(range.rightColumn(), 1);
    }
}

TEST_F(NewRows, LastOneIsScrolledTo)
{
    fill({1});
    for (int number = 2; number <= 200; ++number) {
        if (number != 150) {
            project.putLoadCase(number, following("Q"));
        }
    }
    Tabs tabs(project);
    tabs.show();
    tabs.select({1});
    const auto isSeen = [&tabs](int number) {
        return tabs.table->viewport()->rect().contains(
            tabs.table->visualItemRect(tabs.cell(number, LC_COL_NUMBER)));
    };
    ASSERT_TRUE(isSeen(1));
    press(tabs, "button_new");
    EXPECT_TRUE(isSeen(150));
    EXPECT_FALSE(isSeen(1));
}

} // namespace
