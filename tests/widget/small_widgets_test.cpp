#include <gtest/gtest.h>

#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include "host/mrl_widgets.h"

namespace {

TEST(Ok, TheBitsChooseTheButtons)
{
    const MRL_QT_Ok both(nullptr, 3);
    EXPECT_NE(both.cmdOk(), nullptr);
    EXPECT_NE(both.cmdCancel(), nullptr);
    const MRL_QT_Ok one(nullptr, 1);
    EXPECT_NE(one.cmdOk(), nullptr);
    EXPECT_EQ(one.cmdCancel(), nullptr);
}

TEST(Ok, EnterInADialogPressesOk)
{
    QDialog dialog;
    auto* layout = new MRL_QT_VBoxLayout; // taken over by the dialog
    dialog.setLayout(layout);
    auto* edit = new QLineEdit(&dialog); // child of the dialog
    MRL_QT_Ok buttons(&dialog, 3, "buttons");
    layout->addWidget(edit);
    layout->addWidget(&buttons);
    bool pressed = false;
    QObject::connect(buttons.cmdOk(), &QPushButton::clicked, [&] { pressed = true; });
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_TRUE(pressed);
}

TEST(InfoText, ShowsItsTextAsItStands)
{
    MRL_QT_InfoText info("EN 1990\nKFI = 1.1");
    EXPECT_EQ(info.text(), "EN 1990\nKFI = 1.1");
    info.setText("a < b & c");
    EXPECT_EQ(info.text(), "a < b & c");
}

TEST(Action, CarriesTextShortcutParentAndName)
{
    QWidget parent;
    const MRL_QT_Action action("entf-action", QKeySequence(Qt::Key_Delete), &parent, "delete");
    EXPECT_EQ(action.text(), "entf-action");
    EXPECT_EQ(action.shortcut(), QKeySequence(Qt::Key_Delete));
    EXPECT_EQ(action.parent(), &parent);
    EXPECT_EQ(action.objectName(), "delete");
}

TEST(Action, TheShortFormHasNoShortcut)
{
    const MRL_QT_Action action("Reinit all actions", nullptr, "reinit action");
    EXPECT_TRUE(action.shortcut().isEmpty());
    EXPECT_EQ(action.objectName(), "reinit action");
}

TEST(Layout, StandsOnItsWidgetUnderItsName)
{
    QWidget page;
    const auto* box = new MRL_QT_HBoxLayout(&page, "row"); // owned by the page
    EXPECT_EQ(page.layout(), box);
    EXPECT_EQ(box->objectName(), "row");
}

TEST(Menu, GivesTheActionChosen)
{
    MRL_QT_Menu menu;
    menu.addAction("Copy");
    QAction* paste = menu.addAction("Paste");
    QTimer::singleShot(0, &menu, [&] {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    EXPECT_EQ(menu.exec(QPoint(10, 10)), paste);
}

TEST(Menu, GivesNothingAfterEsc)
{
    MRL_QT_Menu menu;
    menu.addAction("Copy");
    QTimer::singleShot(0, &menu, [&] { QTest::keyClick(&menu, Qt::Key_Escape); });
    EXPECT_EQ(menu.exec(QPoint(10, 10)), nullptr);
}

} // namespace
