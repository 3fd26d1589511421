#include "loadcases/number_dialog.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>

#include "host/mrl_table.h"
#include "loadcases/number_slider.h"
#include "tests/support/modal_answers.h"

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
    /// Drags the handle from the left end to the middle of the slider.
    void drag()
    {
        auto* handle = slider()->findChild<QSlider*>();
        QStyleOptionSlider look;
        look.initFrom(handle);
        look.orientation = Qt::Horizontal;
        look.minimum = handle->minimum();
        look.maximum = handle->maximum();
        look.sliderPosition = look.sliderValue = handle->value();
        const QPoint from = handle->style()
                                ->subControlRect(QStyle::CC_Slider, &look, QStyle::SC_SliderHandle, handle)
                                .center();
        const QPoint to(handle->width() / 2, from.y());
        QTest::mousePress(handle, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, handle->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(handle, &move);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, to);
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
    EXPECT_TRUE(dialog().isModal());
    EXPECT_EQ(dialog().number(), 3);
    EXPECT_EQ(dialog().factor(), 1.0);
    EXPECT_EQ(dialog().findChild<QLabel*>("lblCopyFrom")->text(), "Copy from: 2");
    EXPECT_TRUE(slider()->isAncestorOf(focus()));
    EXPECT_FALSE(slider()->isCorrected());
    std::vector<QString> labels;
    for (const QLabel* label : dialog().findChildren<QLabel*>()) {
        labels.push_back(label->text());
    }
    EXPECT_THAT(labels, testing::IsSupersetOf({QString("Target loadcase:"), QString("Factor:")}));
    QTest::keyClicks(focus(), "41");
    EXPECT_EQ(dialog().number(), 41) << "what is typed replaces the proposal, which stands selected";
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

TEST_F(NumberDialog, FreeNumberAfterATakenOneIsAcceptedWithoutAQuestion)
{
    open({1, 2, 5}, false, proposal(3));
    type("5");
    QTest::keyClick(focus(), Qt::Key_Tab); // the number counts when it is left
    EXPECT_EQ(dialog().number(), 6);
    EXPECT_TRUE(slider()->isCorrected());
    slider()->setLineEditFocus();
    type("9");
    QTest::keyClick(focus(), Qt::Key_Return);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().number(), 9);
}

TEST_F(NumberDialog, EscapeDoesNotAnswerTheQuestion)
{
    open({1, 2, 5}, false, proposal(3));
    type("5");
    ModalAnswers answers;
    answers.then([](QWidget* box) {
        QTest::keyClick(box, Qt::Key_Escape);
        EXPECT_TRUE(box->isVisible());
        QTest::mouseClick(ModalAnswers::buttonOf(box, "Yes"), Qt::LeftButton);
    });
    QTest::keyClick(focus(), Qt::Key_Return);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().number(), 6);
}

TEST_F(NumberDialog, NumbersRunFromOneTo999999)
{
    open({}, false, proposal(3));
    slider()->setDisplayValue(0);
    EXPECT_EQ(dialog().number(), 1);
    slider()->setDisplayValue(1000000);
    EXPECT_EQ(dialog().number(), 999999);
}

TEST_F(NumberDialog, WiderDialogGivesItsRoomToTheSlider)
{
    open({}, false, proposal(3));
    const auto* input = slider()->findChild<QAbstractSpinBox*>();
    const int width = input->width();
    dialog().resize(dialog().width() + 400, dialog().height());
    QTRY_VERIFY(slider()->width() > 400);
    EXPECT_EQ(input->width(), width);
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
    for (int i = 0; i < 4 && focus() != factor; ++i) {
        QTest::keyClick(focus(), Qt::Key_Tab);
    }
    ASSERT_EQ(focus(), factor);
    type("0.5");
    auto* ok = dialog().findChild<MRL_QT_Ok*>("buttons")->cmdOk();
    for (int i = 0; i < 3 && focus() != ok; ++i) {
        QTest::keyClick(focus(), Qt::Key_Tab);
    }
    ASSERT_EQ(focus(), ok);
    QTest::keyClick(focus(), Qt::Key_Space);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().number(), 8);
    EXPECT_EQ(dialog().factor(), 0.5);
}

TEST_F(NumberDialog, FactorTakesAnyNumber)
{
    open({1}, true, proposal(2, 1));
    auto* factor = dialog().findChild<MRL_H_LineEdit*>("m_pFac");
    EXPECT_EQ(factor->getStrLineEdit().format, -3);
    EXPECT_EQ(factor->getStrLineEdit().precision, -1);
    factor->setFocus();
    for (const auto& [text, number] :
         {std::pair{"-12345.5", -12345.5}, std::pair{"1e6", 1e6}, std::pair{"0", 0.0}}) {
        type(text);
        EXPECT_EQ(dialog().factor(), number) << text;
    }
}

TEST(NumberDialogMethods, AreTheSlotsThatTheButtonsAndTheSliderCall)
{
    const auto ownMethods = [](const QMetaObject& meta) {
        std::vector<std::string> signatures;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            signatures.push_back(meta.method(i).methodSignature().toStdString());
        }
        return signatures;
    };
    EXPECT_STREQ(LCM_LoadcaseNumberDialog::staticMetaObject.className(), "LCM_LoadcaseNumberDialog");
    EXPECT_THAT(ownMethods(LCM_LoadcaseNumberDialog::staticMetaObject),
                testing::ElementsAre("slot_accept()"));
    EXPECT_STREQ(MySlider::staticMetaObject.className(), "MySlider");
    EXPECT_THAT(ownMethods(MySlider::staticMetaObject),
                testing::ElementsAre("slot_valueAboutToChange(double)"));
}

TEST_F(NumberDialog, EscapeGivesUp)
{
    open({1}, true, proposal(2, 1));
    QTest::keyClick(focus(), Qt::Key_Escape);
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(dialog().result(), QDialog::Rejected);
}

TEST_F(NumberDialog, NumberDraggedWithTheMouseIsTaken)
{
    open({}, false, proposal(1));
    drag();
    const int dragged = dialog().number();
    EXPECT_GT(dragged, 100000);
    EXPECT_EQ(slider()->wantedNumber(), dragged);

    open({dragged, dragged + 1}, true, proposal(1, 1));
    drag();
    EXPECT_EQ(dialog().number(), dragged + 2);
    EXPECT_TRUE(slider()->isCorrected());
    {
        ModalAnswers answers;
        answers.click("No");
        QTest::mouseClick(dialog().findChild<MRL_QT_Ok*>("buttons")->cmdOk(), Qt::LeftButton);
        ASSERT_EQ(answers.boxes().size(), 1u);
        EXPECT_EQ(answers.boxes()[0].text,
                  QString("Number %1 is already in use. Next free number is %2. Should the next free number "
                          "be used?")
                      .arg(dragged)
                      .arg(dragged + 2));
    }
    EXPECT_TRUE(dialog().isVisible());
    QTest::mouseClick(dialog().findChild<MRL_QT_Ok*>("buttons")->cmdCancel(), Qt::LeftButton);
    EXPECT_EQ(dialog().result(), QDialog::Rejected);
}

TEST_F(NumberDialog, ArrowKeysOnTheSliderPassOverTakenNumbers)
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
