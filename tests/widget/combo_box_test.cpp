#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QTest>

#include "host/mrl_widgets.h"

namespace {

TEST(ComboBox, TheCurrentIdIsThatOfTheCurrentItem)
{
    MRL_QT4_ComboBox combo;
    combo.addItem("G", 4);
    combo.addItem("Q", 9);
    EXPECT_EQ(combo.getCurrentId(), 4);
    combo.setCurrentIndex(1);
    EXPECT_EQ(combo.getCurrentId(), 9);
}

TEST(ComboBox, AnEmptyListHasTheIdMinusOne)
{
    const MRL_QT4_ComboBox combo;
    EXPECT_EQ(combo.getCurrentId(), -1);
}

TEST(ComboBox, AnIdThatNoItemHasLeavesTheCurrentItem)
{
    MRL_QT4_ComboBox combo;
    combo.addItem("A", 0);
    combo.addItem("B", 1);
    ASSERT_TRUE(combo.setCurrentId(1));
    EXPECT_FALSE(combo.setCurrentId(-1));
    EXPECT_EQ(combo.getCurrentId(), 1);
}

TEST(ComboBox, AnItemMayHaveTheIdMinusOne)
{
    MRL_QT4_ComboBox combo;
    combo.addItem("Standard", -1);
    combo.addItem("A", 0);
    combo.setCurrentId(0);
    EXPECT_TRUE(combo.setCurrentId(-1));
    EXPECT_EQ(combo.currentText(), "Standard");
}

TEST(ComboBox, TheListIsAsWideAsItsWidestText)
{
    MRL_QT4_ComboBox combo;
    combo.setWidthTextEnabled(true);
    const QString wide(30, 'W');
    combo.addItem("a", 0);
    combo.addItem(wide, 1);
    combo.setMaximumWidth(80);
    combo.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&combo));
    QTest::mouseClick(&combo, Qt::LeftButton);
    EXPECT_GE(combo.view()->width(), combo.fontMetrics().horizontalAdvance(wide));
    combo.hidePopup();
}

TEST(ComboBox, AKeyChoosesAnItemAndSaysSo)
{
    MRL_QT4_ComboBox combo;
    combo.addItem("A", 0);
    combo.addItem("B", 1);
    QString told;
    QObject::connect(&combo, &QComboBox::textActivated, [&](const QString& text) { told = text; });
    combo.show();
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(combo.getCurrentId(), 1);
    EXPECT_EQ(told, "B");
}

} // namespace
