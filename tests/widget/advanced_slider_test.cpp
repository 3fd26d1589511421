#include <gmock/gmock.h>

#include <QLineEdit>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

#include "host/mrl_widgets.h"

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Opens what a derived class sees.
class Slider : public MRL_QT_AdvancedSlider
{
  public:
    explicit Slider(const std::set<int>& excluded) : MRL_QT_AdvancedSlider(nullptr, 1, "slider", excluded) {}
    using MRL_QT_AdvancedSlider::checkValidValue;
};

/// The numbers 1 to 20, of which 3, 4, 5 and 19, 20 are taken; it shows 2. As in a dialog, a number counts
/// when its editing ends.
class AdvancedSlider : public ::testing::Test
{
  protected:
    AdvancedSlider() : slider({3, 4, 5, 19, 20})
    {
        slider.setKeyboardTracking(false);
        const QSignalBlocker blocker(&slider);
        slider.setRange(1, 20, 1);
        slider.setDisplayValue(2);
        slider.adjustGUIElements(true);
    }
    void SetUp() override
    {
        // As a derived class does it: what the input will take is asked while it is being told.
        QObject::connect(&slider, &MRL_QT_AdvancedSlider::valueAboutToChange, [this](double value) {
            told.push_back(value);
            announced = slider.checkValidValue(value);
        });
        slider.show();
        slider.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&slider));
        slider.setLineEditFocus();
    }
    QSpinBox* input() { return slider.findChild<QSpinBox*>(); }
    QSlider* handle() { return slider.findChild<QSlider*>(); }
    void type(const QString& number)
    {
        slider.setLineEditFocus();
        QTest::keyClicks(QApplication::focusWidget(), number);
    }
    void typeAndLeave(const QString& number)
    {
        type(number);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }

    Slider slider;
    std::vector<double> told;
    double announced = 0;
};

TEST_F(AdvancedSlider, AFreeNumberTypedIsTaken)
{
    typeAndLeave("12");
    EXPECT_EQ(slider.getDisplayValue(), 12);
    EXPECT_THAT(told, ElementsAre(12));
    EXPECT_EQ(handle()->value(), 12);
}

TEST_F(AdvancedSlider, ATakenNumberTypedIsToldFirstAndThenBecomesTheNextFreeOne)
{
    typeAndLeave("4");
    EXPECT_THAT(told, ElementsAre(4)); // the correction itself isn't told
    EXPECT_EQ(slider.getDisplayValue(), 6);
    EXPECT_EQ(announced, 6);
    EXPECT_EQ(input()->value(), 6);
    EXPECT_EQ(handle()->value(), 6);
}

TEST_F(AdvancedSlider, WithNoFreeNumberAboveTheNextOneBelowIsTaken)
{
    typeAndLeave("20");
    EXPECT_EQ(slider.getDisplayValue(), 18);
    EXPECT_EQ(announced, 18);
}

TEST_F(AdvancedSlider, ANumberThatIsStillBeingTypedIsNotTold)
{
    type("12");
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(AdvancedSlider, EnterEndsTheTyping)
{
    type("12");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_THAT(told, ElementsAre(12));
}

TEST_F(AdvancedSlider, ANumberThatWasTypedButNotLeftCountsWhenAskedFor)
{
    type("4");
    EXPECT_EQ(slider.getDisplayValue(), 6);
    EXPECT_THAT(told, ElementsAre(4));
}

TEST_F(AdvancedSlider, WithTrackingEachKeyCounts)
{
    slider.setKeyboardTracking(true);
    type("12");
    EXPECT_THAT(told, ElementsAre(1, 12));
}

TEST_F(AdvancedSlider, SetWithBlockedSignalsATakenNumberIsNotCorrected)
{
    {
        const QSignalBlocker blocker(&slider);
        slider.setDisplayValue(4);
    }
    EXPECT_EQ(slider.getDisplayValue(), 4);
    EXPECT_EQ(input()->value(), 4);
    EXPECT_THAT(told, IsEmpty());
    slider.setLineEditFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab); // leaving it untouched changes nothing
    EXPECT_EQ(slider.getDisplayValue(), 4);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(AdvancedSlider, SetWithoutABlockATakenNumberIsToldAndCorrected)
{
    slider.setDisplayValue(4);
    EXPECT_EQ(slider.getDisplayValue(), 6);
    EXPECT_THAT(told, ElementsAre(4));
}

TEST_F(AdvancedSlider, TheArrowKeysPassOverTakenNumbersInBothDirections)
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    EXPECT_EQ(slider.getDisplayValue(), 6);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_EQ(slider.getDisplayValue(), 2);
    EXPECT_THAT(told, ElementsAre(6, 2)); // never a number that then is corrected
}

TEST_F(AdvancedSlider, AStepWithNoFreeNumberBeyondStays)
{
    typeAndLeave("18");
    slider.setLineEditFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    EXPECT_EQ(slider.getDisplayValue(), 18);
}

TEST_F(AdvancedSlider, TheHandleMovesByKeysToo)
{
    handle()->setFocus();
    QTest::keyClick(handle(), Qt::Key_Right);
    EXPECT_EQ(slider.getDisplayValue(), 6);
    QTest::keyClick(handle(), Qt::Key_Left);
    EXPECT_EQ(slider.getDisplayValue(), 2);
    QTest::keyClick(handle(), Qt::Key_End);
    EXPECT_EQ(slider.getDisplayValue(), 2); // 19 and 20 are taken: nothing free at that end or beyond
}

TEST_F(AdvancedSlider, DraggingOntoATakenNumberIsToldAndCorrected)
{
    handle()->setSliderDown(true);
    handle()->setSliderPosition(4);
    EXPECT_EQ(slider.getDisplayValue(), 6);
    EXPECT_THAT(told, ElementsAre(4));
    handle()->setSliderDown(false);
    EXPECT_EQ(slider.getDisplayValue(), 6);
}

TEST_F(AdvancedSlider, ANumberBeyondTheRangeComesBackIntoIt)
{
    const QSignalBlocker blocker(&slider);
    slider.setDisplayValue(1e12);
    EXPECT_EQ(slider.getDisplayValue(), 20);
    slider.setDisplayValue(-1e12);
    EXPECT_EQ(slider.getDisplayValue(), 1);
}

TEST_F(AdvancedSlider, ANumberIsCutToAWholeOne) { EXPECT_EQ(slider.checkValidValue(7.9), 7); }

TEST_F(AdvancedSlider, WhereAllIsTakenTheNumberStays)
{
    Slider full({1, 2, 3});
    full.setRange(1, 3, 1);
    EXPECT_EQ(full.checkValidValue(2), 2);
}

TEST_F(AdvancedSlider, TheInputHoldsTheLongestNumberOfTheRange)
{
    slider.setRange(1, 999999, 1);
    slider.adjustGUIElements(true);
    slider.adjustSize();
    const QSignalBlocker blocker(&slider);
    slider.setDisplayValue(999999);
    auto* edit = input()->findChild<QLineEdit*>();
    EXPECT_GE(edit->width(), edit->fontMetrics().horizontalAdvance("999999"));
    EXPECT_EQ(input()->text(), "999999"); // no thousands separators
}

} // namespace
