#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QTableWidget>
#include <QTest>

#include "host/mrl_widgets.h"

namespace {

/// A page as the tabs have it: a table, and a button that takes no focus when it is clicked.
class PushButton : public ::testing::Test
{
  protected:
    PushButton() : table(2, 2, &page), button("&New", &page, "button_new")
    {
        auto* layout = new QHBoxLayout(&page); // owned by the page
        layout->addWidget(&table);
        layout->addWidget(&button);
        button.setFocusPolicy(Qt::TabFocus);
        table.setItem(0, 0, new QTableWidgetItem("old")); // owned by the table
        QObject::connect(&button, &QPushButton::clicked, [this] { seen = table.item(0, 0)->text(); });
        page.show();
        page.activateWindow();
    }
    void SetUp() override
    {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
        table.setCurrentCell(0, 0);
        table.editItem(table.item(0, 0));
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClicks(QApplication::focusWidget(), "typed");
    }

    QWidget page;
    QTableWidget table;
    MRL_QT_PushButton button;
    QString seen;
};

TEST_F(PushButton, AClickCommitsTheOpenCellEditorFirst)
{
    ASSERT_NE(table.item(0, 0)->text(), "typed");
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(seen, "typed");
}

TEST_F(PushButton, TheFocusStaysWithTheTable)
{
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(table.hasFocus());
}

TEST_F(PushButton, TheMnemonicCommitsTheOpenCellEditorToo)
{
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_N, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !seen.isEmpty(); }));
    EXPECT_EQ(seen, "typed");
}

TEST_F(PushButton, ADisabledButtonLeavesTheEditorOpen)
{
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_NE(table.item(0, 0)->text(), "typed");
}

} // namespace
