#include <gmock/gmock.h>

#include <QPushButton>

#include "lcdata/values/packed_text.h"
#include "tests/loadcases/load_cases_fixture.h"
#include "tests/support/modal_answers.h"

namespace {

using namespace mrl::test;

class LoadcaseDelete : public testing::Test
{
  protected:
    LoadcaseDelete()
    {
        project.putAction(permanent());
        project.putAction(variable());
        for (int number = 1; number <= 6; ++number) {
            project.putLoadCase(number, following(codeOf(number % 2 == 1 ? "G" : "Q")));
        }
    }
    std::set<int> selected(const Tabs& tabs) const
    {
        std::set<int> numbers;
        tabs.lc->getSelectedLoadcases(numbers);
        return numbers;
    }
    LoadCaseProject project;
};

TEST_F(LoadcaseDelete, AsksForOneAndRemovesItsRow)
{
    const Tabs tabs(project);
    tabs.select({2});
    ModalAnswers answers;
    answers.click("Yes");
    tabs.lc->slot_deleteClicked();
    EXPECT_EQ(answers.boxes().at(0).title, "Delete loadcase(s)");
    EXPECT_EQ(answers.boxes().at(0).text,
              "Should the selected loadcase (including all loads) really be deleted?");
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(1, 3, 4, 5, 6));
    EXPECT_THAT(selected(tabs), testing::ElementsAre(3)) << "the row that followed";
    EXPECT_TRUE(tabs.lc->isModified());
    tabs.save();
    EXPECT_THAT(project.storedNumbers(), testing::ElementsAre(1, 3, 4, 5, 6));
}

TEST_F(LoadcaseDelete, AsksForSeveralByTheirCount)
{
    const Tabs tabs(project);
    tabs.select({2, 5, 6});
    ModalAnswers answers;
    answers.click("Yes");
    tabs.lc->slot_deleteClicked();
    EXPECT_EQ(answers.boxes().at(0).text,
              "Should 3 selected loadcases (including all loads) really be deleted?");
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(1, 3, 4));
    EXPECT_THAT(selected(tabs), testing::ElementsAre(3));
}

TEST_F(LoadcaseDelete, RefusalLeavesEverythingButModified)
{
    const Tabs tabs(project);
    tabs.select({2});
    ModalAnswers answers;
    answers.click("No");
    tabs.lc->slot_deleteClicked();
    EXPECT_EQ(tabs.table->rowCount(), 6);
    EXPECT_TRUE(tabs.lc->isModified());
}

TEST_F(LoadcaseDelete, NothingSelectedAsksNothingAndSetsModified)
{
    const Tabs tabs(project);
    tabs.table->clearSelection();
    tabs.lc->slot_deleteClicked();
    EXPECT_TRUE(tabs.lc->isModified());
    EXPECT_EQ(tabs.table->rowCount(), 6);
}

TEST_F(LoadcaseDelete, KeyAndButtonTakeTheSamePath)
{
    Tabs tabs(project);
    tabs.show();
    tabs.select({2});
    {
        ModalAnswers answers;
        answers.click("Yes");
        QTest::keyClick(tabs.table, Qt::Key_Delete);
        ASSERT_TRUE(answers.allAnswered());
    }
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(1, 3, 4, 5, 6));
    {
        ModalAnswers answers;
        answers.click("Yes");
        QTest::mouseClick(tabs.lc->findChild<QPushButton*>("button_delete"), Qt::LeftButton);
    }
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(1, 4, 5, 6));
    // The key works from anywhere on the tab.
    auto* box = tabs.lc->findChild<QWidget*>("check_deadload");
    QApplication::setActiveWindow(tabs.window());
    box->setFocus();
    ModalAnswers answers;
    answers.click("Yes");
    QTest::keyClick(box, Qt::Key_Delete);
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(1, 5, 6));
}

TEST_F(LoadcaseDelete, LastRowSelectsTheNewLastOne)
{
    const Tabs tabs(project);
    tabs.select({6});
    ModalAnswers answers;
    answers.click("Yes");
    tabs.lc->slot_deleteClicked();
    EXPECT_THAT(selected(tabs), testing::ElementsAre(5));
}

TEST_F(LoadcaseDelete, AllRowsLeaveAnEmptyTableWithoutSelection)
{
    const Tabs tabs(project);
    tabs.select({1, 2, 3, 4, 5, 6});
    ModalAnswers answers;
    answers.click("Yes");
    tabs.lc->slot_deleteClicked();
    EXPECT_EQ(tabs.table->rowCount(), 0);
    EXPECT_THAT(selected(tabs), testing::IsEmpty());
}

TEST_F(LoadcaseDelete, DeletedNumberIsFreeAgain)
{
    const Tabs tabs(project);
    tabs.select({3});
    {
        ModalAnswers answers;
        answers.click("Yes");
        tabs.lc->slot_deleteClicked();
    }
    tabs.select({2});
    tabs.lc->slot_newClicked();
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(LoadcaseDelete, CopyDeletedAgainLeavesNoNote)
{
    const Tabs tabs(project);
    tabs.select({1, 2});
    {
        ModalAnswers answers;
        answers.key(Qt::Key_Return).key(Qt::Key_Return);
        tabs.lc->slot_copyClicked();
    }
    ASSERT_EQ(tabs.lc->getCopies().size(), 2u);
    EXPECT_EQ(tabs.lc->getCopies()[0].target, 7);
    tabs.select({7});
    ModalAnswers answers;
    answers.click("Yes");
    tabs.lc->slot_deleteClicked();
    ASSERT_EQ(tabs.lc->getCopies().size(), 1u);
    EXPECT_EQ(tabs.lc->getCopies()[0].target, 8);
    EXPECT_FALSE(tabs.lc->isActionUsed(bareAction("X")));
}

TEST_F(LoadcaseDelete, LoadCasesOfADeletedActionGoWithoutAQuestionAndLeaveTheirNotes)
{
    const Tabs tabs(project);
    tabs.select({1});
    {
        ModalAnswers answers;
        answers.key(Qt::Key_Return);
        tabs.lc->slot_copyClicked();
    }
    EXPECT_TRUE(tabs.lc->isActionUsed(permanent()));
    tabs.lc->removeActionLoadcases(permanent());
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(2, 4, 6));
    EXPECT_FALSE(tabs.lc->isActionUsed(permanent()));
    EXPECT_EQ(tabs.lc->getCopies().size(), 1u);
    tabs.select({2});
    tabs.lc->slot_newClicked(); // 3 was taken out of the used numbers
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(2, 3, 4, 6));
}

TEST_F(LoadcaseDelete, EachDeletedRowTakesOneNoteWithIt)
{
    const Tabs tabs(project);
    const auto copyOf1 = [&tabs] {
        tabs.select({1});
        ModalAnswers answers;
        answers.key(Qt::Key_Return);
        tabs.lc->slot_copyClicked();
    };
    copyOf1(); // 7, which goes with its action and leaves its note
    tabs.lc->removeActionLoadcases(permanent());
    tabs.select({2});
    for (const int expected : {3, 5}) {
        tabs.lc->slot_newClicked();
        ASSERT_GE(tabs.row(expected), 0);
        tabs.select({2});
    }
    tabs.select({6});
    {
        ModalAnswers answers;
        answers.key(Qt::Key_Return);
        tabs.lc->slot_copyClicked(); // 7 again
    }
    ASSERT_EQ(tabs.lc->getCopies().size(), 2u);
    EXPECT_EQ(tabs.lc->getCopies()[0].target, 7);
    EXPECT_EQ(tabs.lc->getCopies()[1].target, 7);
    tabs.select({7});
    ModalAnswers answers;
    answers.click("Yes");
    tabs.lc->slot_deleteClicked();
    ASSERT_EQ(tabs.lc->getCopies().size(), 1u);
    EXPECT_EQ(tabs.lc->getCopies()[0].source, 6) << "the first note with the number went";
}

TEST_F(LoadcaseDelete, UseOfAnActionIsToldAsItIsAfterEachCommand)
{
    project.putLoadCase(9, following("X"));
    LCM_LoadcaseWidget unfilled(project.db(), nullptr, "loadcasewidget");
    EXPECT_FALSE(unfilled.isActionUsed(permanent()));
    unfilled.fillTable();
    EXPECT_TRUE(unfilled.isActionUsed(permanent()));

    // One question after the other, without a turn of the event loop between them.
    const Tabs tabs(project);
    EXPECT_FALSE(tabs.lc->isActionUsed(bareAction("W")));
    tabs.actions->slot_addAllClicked();
    EXPECT_FALSE(tabs.lc->isActionUsed(bareAction("W")));
    tabs.chooseAction(2, codeOf("W"));
    EXPECT_TRUE(tabs.lc->isActionUsed(bareAction("W")));
    LCM_LoadcaseEntry entry;
    entry.number = 2;
    entry.record = following(70);
    tabs.lc->fillRow(tabs.row(2), entry);
    EXPECT_FALSE(tabs.lc->isActionUsed(bareAction("W")));
    tabs.select({4, 6});
    EXPECT_TRUE(tabs.lc->isActionUsed(variable()));
    {
        ModalAnswers answers;
        answers.then([&tabs](QWidget* box) {
            EXPECT_TRUE(tabs.lc->isActionUsed(variable()));
            QTest::mouseClick(ModalAnswers::buttonOf(box, "Yes"), Qt::LeftButton);
        });
        tabs.lc->slot_deleteClicked();
    }
    EXPECT_FALSE(tabs.lc->isActionUsed(variable()));
    tabs.lc->removeActionLoadcases(permanent());
    EXPECT_FALSE(tabs.lc->isActionUsed(permanent()));
}

TEST_F(LoadcaseDelete, UseOfAnActionIsLookedUpAnewForEachCommand)
{
    const Tabs tabs(project);
    EXPECT_TRUE(tabs.lc->isActionUsed(permanent()));
    {
        const QSignalBlocker quiet(tabs.table); // cells that somebody else changes report nothing
        for (const int number : {1, 3, 5}) {
            tabs.chooseAction(number, codeOf("Q"));
        }
    }
    QCoreApplication::processEvents();
    EXPECT_FALSE(tabs.lc->isActionUsed(permanent()));
}

TEST_F(LoadcaseDelete, EmptyTableUsesNoAction)
{
    const LoadCaseProject empty;
    const Tabs tabs(empty);
    for (const tagCDB_LC_ACT& any :
         {tagCDB_LC_ACT(permanent()), tagCDB_LC_ACT(variable()), tagCDB_LC_ACT{}}) {
        EXPECT_FALSE(tabs.lc->isActionUsed(any));
    }
}

TEST_F(LoadcaseDelete, SeveralActionsGoAsIfOneWentAfterTheOther)
{
    // Rows that stay before, between and behind those that go.
    for (const int number : {1, 2, 7, 8}) {
        project.putLoadCase(number, standalone());
    }
    const auto afterBoth = [&](bool together, const tagCDB_LC_ACT& first, const tagCDB_LC_ACT& second) {
        const Tabs tabs(project);
        if (together) {
            tabs.lc->removeLoadCasesOf({first, second});
        } else {
            tabs.lc->removeActionLoadcases(first);
            tabs.lc->removeActionLoadcases(second);
        }
        return std::make_pair(tabs.numbers(), selected(tabs));
    };
    EXPECT_EQ(afterBoth(true, permanent(), variable()), afterBoth(false, permanent(), variable()));
    EXPECT_EQ(afterBoth(true, variable(), permanent()), afterBoth(false, variable(), permanent()));
    EXPECT_EQ(afterBoth(true, variable(), bareAction("X")), afterBoth(false, variable(), bareAction("X")));
    EXPECT_EQ(afterBoth(true, permanent(), variable()).second, std::set<int>{7});
    for (const int number : {7, 8}) {
        project.putLoadCase(number, following("Q")); // the last rows go
    }
    EXPECT_EQ(afterBoth(true, permanent(), variable()), afterBoth(false, permanent(), variable()));
    EXPECT_EQ(afterBoth(true, permanent(), variable()).second, std::set<int>{2});
    // The one that goes first stands above rows that stay, the other one below them all.
    project.putLoadCase(2, following("G"));
    for (const int number : {3, 4}) {
        project.putLoadCase(number, standalone());
    }
    project.putLoadCase(5, following("Q"));
    EXPECT_EQ(afterBoth(true, permanent(), variable()), afterBoth(false, permanent(), variable()));
    EXPECT_EQ(afterBoth(true, permanent(), variable()).second, std::set<int>{4});
}

TEST_F(LoadcaseDelete, ActionsTabDeletesAnActionWithItsLoadCases)
{
    const Tabs tabs(project);
    tabs.selectAction(codeOf("G"));
    ModalAnswers answers;
    answers.click("Delete");
    tabs.actions->slot_deleteClicked();
    EXPECT_THAT(tabs.numbers(), testing::ElementsAre(2, 4, 6));
    EXPECT_TRUE(tabs.lc->isValid());
    EXPECT_FALSE(tabs.lc->isModified());
}

} // namespace
