#include <gmock/gmock.h>

#include <QPushButton>
#include <QScreen>
#include <QTest>

#include "host/mrl_widgets.h"
#include "tests/support/modal_answers.h"

namespace {

using mrl::test::ModalAnswers;
using ::testing::SizeIs;

int warnWithYesAndNo(int defaultButton, int escapeButton)
{
    return MRL_QT_MessageBox::warning(nullptr, "Already assigned", "Use it?", "Yes", "No", QString(),
                                      defaultButton, escapeButton);
}

TEST(MessageBox, NoButtonTextsGiveTheStandardButton)
{
    ModalAnswers answers;
    answers.click("OK");
    EXPECT_EQ(MRL_QT_MessageBox::information(nullptr, "Action modified", "Please check."), 0);
    ASSERT_THAT(answers.boxes(), SizeIs(1));
    EXPECT_EQ(answers.boxes()[0].title, "Action modified");
    EXPECT_EQ(answers.boxes()[0].text, "Please check.");
    EXPECT_EQ(answers.boxes()[0].buttons, QStringList{"OK"});
}

TEST(MessageBox, TheStandardButtonAloneAlsoGoesWithEsc)
{
    ModalAnswers answers;
    answers.key(Qt::Key_Escape);
    EXPECT_EQ(MRL_QT_MessageBox::critical(nullptr, "Error!", "Select one!"), 0);
}

TEST(MessageBox, TheResultIsTheIndexOfTheButtonPressed)
{
    ModalAnswers answers;
    answers.click("Yes").click("No");
    EXPECT_EQ(warnWithYesAndNo(0, -1), 0);
    EXPECT_EQ(warnWithYesAndNo(0, -1), 1);
}

TEST(MessageBox, AnEmptyTextGivesNoButtonAndTheOthersKeepTheirIndex)
{
    ModalAnswers answers;
    answers.click("Cancel");
    EXPECT_EQ(MRL_QT_MessageBox::warning(nullptr, "t", "x", "Delete", QString(), "Cancel", 0, -1), 2);
    EXPECT_EQ(answers.boxes().at(0).buttons, (QStringList{"Delete", "Cancel"}));
}

TEST(MessageBox, EnterPressesTheDefaultButton)
{
    ModalAnswers answers;
    answers.key(Qt::Key_Return).key(Qt::Key_Return);
    EXPECT_EQ(warnWithYesAndNo(0, -1), 0);
    EXPECT_EQ(warnWithYesAndNo(1, -1), 1);
}

TEST(MessageBox, EscAndTheCloseButtonDoNothingWithTwoButtonsAndNoEscapeButton)
{
    ModalAnswers answers;
    answers.then([](QWidget* box) {
        QTest::keyClick(box, Qt::Key_Escape);
        EXPECT_TRUE(box->isVisible());
        box->close();
        EXPECT_TRUE(box->isVisible());
        QTest::mouseClick(ModalAnswers::buttonOf(box, "No"), Qt::LeftButton);
    });
    EXPECT_EQ(warnWithYesAndNo(0, -1), 1);
}

TEST(MessageBox, EscPressesTheEscapeButton)
{
    ModalAnswers answers;
    answers.key(Qt::Key_Escape);
    EXPECT_EQ(warnWithYesAndNo(0, 1), 1);
}

TEST(MessageBox, AQuestionGivesTheStandardButtonPressed)
{
    ModalAnswers answers;
    answers.click("Yes").click("No");
    const auto ask = [] {
        return MRL_QT_MessageBox::question(nullptr, "Delete loadcase(s)", "Really?", QMessageBox::Yes,
                                           QMessageBox::No);
    };
    EXPECT_EQ(ask(), QMessageBox::Yes);
    EXPECT_EQ(ask(), QMessageBox::No);
    EXPECT_EQ(answers.boxes().at(0).buttons.size(), 2);
}

TEST(MessageBox, EscAnswersAQuestionWithNo)
{
    ModalAnswers answers;
    answers.key(Qt::Key_Escape);
    EXPECT_EQ(MRL_QT_MessageBox::question(nullptr, "t", "x", QMessageBox::Yes, QMessageBox::No),
              QMessageBox::No);
}

TEST(MessageBox, NamesThatLookLikeMarkupAreShownAsTheyStand)
{
    ModalAnswers answers;
    answers.then([](QWidget* box) {
        EXPECT_EQ(qobject_cast<QMessageBox*>(box)->textFormat(), Qt::PlainText);
        QTest::keyClick(box, Qt::Key_Return);
    });
    MRL_QT_MessageBox::information(nullptr, "t", "<b>G</b> dead load");
    EXPECT_EQ(answers.boxes().at(0).text, "<b>G</b> dead load");
}

TEST(MessageBox, AListOfHundredsOfNamesLeavesTheButtonsOnTheScreen)
{
    QString text("The actions are:\n");
    for (int i = 0; i < 400; ++i) {
        text += QString("Q_%1 an action with a name\n").arg(i);
    }
    ModalAnswers answers;
    answers.then([](QWidget* box) {
        const int screen = QGuiApplication::primaryScreen()->availableSize().height();
        EXPECT_LE(box->height(), screen);
        auto* button = ModalAnswers::buttonOf(box, "Cancel");
        EXPECT_LE(button->mapTo(box, button->rect().bottomLeft()).y(), screen);
        QTest::mouseClick(button, Qt::LeftButton);
    });
    EXPECT_EQ(MRL_QT_MessageBox::warning(nullptr, "Action used!", text, "Delete", "Cancel", QString(), 0, -1),
              1);
    EXPECT_EQ(answers.boxes().at(0).text, text);
}

} // namespace
