#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>

#include "host/mrl_widgets.h"
#include "lcdata/values/packed_text.h"
#include "tests/loadcases/numbered_cases.h"
#include "tests/support/modal_answers.h"

namespace {

using namespace mrl::test;
using testing::ElementsAre;

std::set<int> selected(const Tabs& tabs)
{
    std::set<int> numbers;
    tabs.lc->getSelectedLoadcases(numbers);
    return numbers;
}
double factorOf(QWidget* dialog) { return dialog->findChild<MRL_H_LineEdit*>("m_pFac")->getVal(); }
void accept(QWidget* dialog) { dialog->findChild<MRL_QT_Ok*>("buttons")->cmdOk()->click(); }
void cancel(QWidget* dialog) { dialog->findChild<MRL_QT_Ok*>("buttons")->cmdCancel()->click(); }
MRL_QT_CheckBox* increment(const Tabs& tabs)
{
    return tabs.lc->findChild<MRL_QT_CheckBox*>("check_increaselc");
}

class LoadcaseCreate : public NumberedCases
{
};

TEST_F(LoadcaseCreate, EmptyProjectGrowsByTheDefaultActions)
{
    project.putAction(permanent());
    project.putAction(variable());
    const Tabs tabs(project);
    tabs.lc->slot_newClicked();
    EXPECT_THAT(tabs.numbers(), ElementsAre(1));
    EXPECT_EQ(tabs.text(1, LC_COL_TITLE), "Loadcase 1");
    EXPECT_EQ(tabs.actionId(1), codeOf("G"));
    EXPECT_THAT(selected(tabs), ElementsAre(1));
    tabs.table->clearSelection();
    tabs.lc->slot_newClicked();
    EXPECT_EQ(tabs.actionId(2), codeOf("Q"));
    EXPECT_EQ(tabs.text(2, LC_COL_TITLE), "Loadcase 2");
    tabs.table->clearSelection();
    tabs.lc->slot_newClicked();
    EXPECT_EQ(tabs.actionId(3), codeOf("Q"));
    EXPECT_TRUE(tabs.isValid(3));
    EXPECT_EQ(tabs.read(3).record.factor, 1.0f);
}

TEST_F(LoadcaseCreate, NewPressedAgainAndAgainCarriesTheTitleOfTheSelectedRow)
{
    fill({});
    const Tabs tabs(project);
    for (int i = 0; i < 4; ++i) {
        tabs.lc->slot_newClicked();
    }
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 3, 4));
    for (int number = 1; number <= 4; ++number) {
        EXPECT_EQ(tabs.text(number, LC_COL_TITLE), "Loadcase 1");
    }
    EXPECT_EQ(tabs.actionId(1), codeOf("G"));
    EXPECT_EQ(tabs.actionId(2), codeOf("Q"));
    EXPECT_EQ(tabs.actionId(4), codeOf("Q"));
    EXPECT_THAT(selected(tabs), ElementsAre(4));
}

TEST_F(LoadcaseCreate, DefaultActionThatTheProjectLacksLeavesNone)
{
    project.putAction(bareAction("W").title("Wind").factors(1.0f).partition(0x31));
    const Tabs tabs(project);
    tabs.lc->slot_newClicked();
    EXPECT_EQ(tabs.actionId(1), 0);
    EXPECT_TRUE(tabs.isEditable(1, LC_COL_GAMU));
    const Tabs alone(project, Tabs::LoadcasesAlone);
    alone.lc->slot_newClicked();
    EXPECT_EQ(alone.lc->workingModel()->actions.size() > 0, true);
    LCM_LoadcaseEntry entry;
    alone.lc->readRow(0, entry);
    EXPECT_EQ(entry.record.action, codeOf("G")) << "without an actions tab nobody is asked";
}

TEST_F(LoadcaseCreate, NewOnASelectedRowCopiesItsRecordWithoutANote)
{
    fill({4, 5, 7});
    const Tabs tabs(project);
    tabs.select({4});
    tabs.lc->slot_newClicked();
    EXPECT_THAT(tabs.numbers(), ElementsAre(4, 5, 6, 7));
    EXPECT_TRUE(sameBytes(tabs.read(6).record, tabs.read(4).record));
    EXPECT_EQ(tabs.text(6, LC_COL_TITLE), "Case 4");
    EXPECT_THAT(selected(tabs), ElementsAre(6));
    EXPECT_TRUE(tabs.lc->getCopies().empty());
    EXPECT_TRUE(tabs.lc->isModified());
}

TEST_F(LoadcaseCreate, NewOnSeveralRowsMakesOneForEach)
{
    fill({1, 2, 5});
    const Tabs tabs(project);
    tabs.select({1, 5});
    tabs.lc->slot_newClicked();
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_EQ(tabs.text(3, LC_COL_TITLE), "Case 1");
    EXPECT_EQ(tabs.text(4, LC_COL_TITLE), "Case 5");
    EXPECT_THAT(selected(tabs), ElementsAre(3, 4));
}

TEST_F(LoadcaseCreate, NumbersOfOtherModulesAreTaken)
{
    fill({1, 2});
    tagCDB_LC_CTRL foreign{};
    foreign.kind = 5;
    project.putLoadCase(3, foreign);
    const Tabs tabs(project);
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2));
    tabs.select({2});
    tabs.lc->slot_newClicked();
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 4));
    tabs.save();
    EXPECT_EQ(project.storedLoadCase(3).kind, 5);
}

TEST_F(LoadcaseCreate, WithoutIncrementNewAsksForTheNumberAndNoFactor)
{
    fill({1, 2});
    const Tabs tabs(project);
    increment(tabs)->setChecked(false);
    tabs.select({1});
    ModalAnswers answers;
    answers.then([](QWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), "Target loadcase number");
        EXPECT_EQ(dialog->findChild<QLabel*>("lblCopyFrom")->text(), "Copy from: 1");
        EXPECT_EQ(dialog->findChild<MRL_H_LineEdit*>("m_pFac"), nullptr);
        EXPECT_EQ(proposalOf(dialog), 3);
        accept(dialog);
    });
    tabs.lc->slot_newClicked();
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 3));
    EXPECT_TRUE(tabs.lc->getCopies().empty());
}

TEST_F(LoadcaseCreate, NewWithoutASelectionNamesNoSource)
{
    fill({1, 2});
    const Tabs tabs(project);
    increment(tabs)->setChecked(false);
    tabs.table->clearSelection();
    ModalAnswers answers;
    answers.then([](QWidget* dialog) {
        EXPECT_EQ(dialog->findChild<QLabel*>("lblCopyFrom"), nullptr);
        cancel(dialog);
    });
    tabs.lc->slot_newClicked();
    EXPECT_EQ(tabs.table->rowCount(), 2);
    EXPECT_TRUE(tabs.lc->isModified());
}

TEST_F(LoadcaseCreate, CopyLeavesANoteWithItsFactorAndTheNextOneOffersIt)
{
    fill({1, 2, 10});
    const Tabs tabs(project);
    tabs.select({1, 2, 10});
    ModalAnswers answers;
    answers
        .then([](QWidget* dialog) {
            EXPECT_EQ(proposalOf(dialog), 3);
            dialog->findChild<MRL_H_LineEdit*>("m_pFac")->setVal(0.5);
            accept(dialog);
        })
        .then([](QWidget* dialog) {
            EXPECT_EQ(proposalOf(dialog), 4);
            EXPECT_EQ(factorOf(dialog), 0.5);
            dialog->findChild<MRL_H_LineEdit*>("m_pFac")->setVal(0.25);
            accept(dialog);
        })
        .then([](QWidget* dialog) {
            EXPECT_EQ(proposalOf(dialog), 5);
            EXPECT_EQ(factorOf(dialog), 0.25);
            accept(dialog);
        });
    tabs.lc->slot_copyClicked();
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 3, 4, 5, 10));
    const auto copies = tabs.lc->getCopies();
    ASSERT_EQ(copies.size(), 3u);
    EXPECT_EQ(copies[0].source, 1);
    EXPECT_EQ(copies[0].target, 3);
    EXPECT_EQ(copies[0].factor, 0.5);
    EXPECT_EQ(copies[1].source, 2);
    EXPECT_EQ(copies[1].factor, 0.25);
    EXPECT_EQ(copies[2].source, 10);
    EXPECT_EQ(copies[2].target, 5);
    EXPECT_EQ(tabs.text(5, LC_COL_TITLE), "Case 10");
    EXPECT_THAT(selected(tabs), ElementsAre(3, 4, 5));
}

TEST_F(LoadcaseCreate, LastFactorOutlivesTheDialog)
{
    fill({1, 2});
    for (const double factor : {0.75, 1.5}) {
        const Tabs tabs(project);
        tabs.select({1});
        ModalAnswers answers;
        answers.then([&](QWidget* dialog) {
            if (factor == 1.5) {
                EXPECT_EQ(factorOf(dialog), 0.75);
            }
            dialog->findChild<MRL_H_LineEdit*>("m_pFac")->setVal(factor);
            accept(dialog);
        });
        tabs.lc->slot_copyClicked();
    }
}

TEST_F(LoadcaseCreate, CancelInTheMiddleKeepsTheRowsMadeSoFarAndTheSelection)
{
    fill({1, 2, 3});
    const Tabs tabs(project);
    tabs.select({1, 2, 3});
    ModalAnswers answers;
    answers.then(accept).then(cancel);
    tabs.lc->slot_copyClicked();
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(tabs.lc->getCopies().size(), 1u);
    EXPECT_THAT(selected(tabs), ElementsAre(1, 2, 3));
}

TEST_F(LoadcaseCreate, CopyOfTheOnlyLoadCaseGetsTheDefaultLiveAction)
{
    project.putAction(permanent());
    project.putAction(variable());
    project.putLoadCase(1, following(70).title("Imperfect"));
    const Tabs tabs(project);
    tabs.select({1});
    ModalAnswers answers;
    answers.then(accept);
    tabs.lc->slot_copyClicked();
    EXPECT_EQ(tabs.actionId(2), codeOf("Q"));
    EXPECT_EQ(tabs.text(2, LC_COL_TITLE), "Imperfect");
}

TEST_F(LoadcaseCreate, NumberAboveTheHighestIsRefused)
{
    fill({999998, 999999});
    const Tabs tabs(project);
    tabs.select({999999});
    ModalAnswers answers;
    answers.key(Qt::Key_Return);
    tabs.lc->slot_newClicked();
    EXPECT_EQ(answers.boxes().at(0).title, "Loadcase number");
    EXPECT_EQ(answers.boxes().at(0).text, "The maximum loadcase number is 999999");
    EXPECT_EQ(tabs.table->rowCount(), 2);
}

TEST_F(LoadcaseCreate, SelectedNumberAboveTheHighestStopsTheRest)
{
    fill({1, 1000000, 1000001});
    const Tabs tabs(project);
    tabs.select({1, 1000000, 1000001});
    ModalAnswers answers;
    answers.key(Qt::Key_Return);
    tabs.lc->slot_newClicked();
    EXPECT_EQ(answers.boxes().at(0).text,
              "The maximum loadcase number is 999999, selected loadcase number is to high!");
    EXPECT_THAT(tabs.numbers(), ElementsAre(1, 2, 1000000, 1000001));
}

TEST_F(LoadcaseCreate, TakenHighestNumberStaysTheProposal)
{
    fill({1, 999998, 999999});
    const Tabs tabs(project);
    const std::map<int, int> proposals{{999999, 999999}, {5, 5}, {1, 2}};
    for (const auto& [target, proposed] : proposals) {
        LCM_LoadcaseCopy info;
        info.target = target;
        ModalAnswers answers;
        answers.then([proposed = proposed](QWidget* dialog) {
            EXPECT_EQ(proposalOf(dialog), proposed);
            cancel(dialog);
        });
        EXPECT_EQ(tabs.lc->askNumber(true, info), -99999);
        EXPECT_EQ(info.target, proposed);
    }
}

TEST_F(LoadcaseCreate, EmptyTableProposesOneEvenWhereItIsUsed)
{
    tagCDB_LC_CTRL foreign{};
    foreign.kind = 5;
    project.putLoadCase(1, foreign);
    const Tabs tabs(project);
    EXPECT_EQ(tabs.lc->nextNumber(), 1);
}

TEST_F(LoadcaseCreate, CopyOfARowWithAMissingActionKeepsItsWord)
{
    fill({1, 2});
    project.putLoadCase(3, following("Gone"));
    const Tabs tabs(project);
    tabs.select({3});
    tabs.lc->slot_newClicked();
    EXPECT_EQ(tabs.text(4, LC_COL_ACTION), "*** Action Gone is missing ***");
    EXPECT_EQ(tabs.read(4).record.action, codeOf("Gone"));
}

} // namespace
