#include <gtest/gtest.h>

#include <QPaintEvent>
#include <QTest>

#include "host/mrl_widgets.h"

namespace {

/// Counts the paintings of a window's children.
class PaintCounter : public QObject
{
  public:
    int count = 0;
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

TEST(BusyDialog, IsPaintedBeforeTheWorkBegins)
{
    MRL_QT_BusyDialog dialog("Checking loadcases");
    PaintCounter counter;
    dialog.findChild<QLabel*>()->installEventFilter(&counter);
    dialog.setText("The loadcases will be checked because of changed action values.");
    dialog.setModal(true);
    dialog.show();
    EXPECT_GT(counter.count, 0);
    dialog.hide();
}

TEST(BusyDialog, TheWindowBeneathIsPaintedOnceAfterTheWork)
{
    QWidget window;
    auto* label = new QLabel("before", &window); // child of the window
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    PaintCounter counter;
    label->installEventFilter(&counter);

    label->setText("half done");
    {
        MRL_QT_BusyDialog dialog("working", label);
        dialog.setModal(true);
        dialog.show();
        EXPECT_EQ(counter.count, 0);
        label->setText("done");
        dialog.hide();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.count, 1);
}

TEST(BusyDialog, ANewTextIsPaintedAtOnce)
{
    MRL_QT_BusyDialog dialog("first");
    dialog.show();
    PaintCounter counter;
    dialog.findChild<QLabel*>()->installEventFilter(&counter);
    dialog.setText("second");
    EXPECT_GT(counter.count, 0);
}

TEST(BusyDialog, TheUserCannotCloseIt)
{
    MRL_QT_BusyDialog dialog("working");
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    dialog.close();
    EXPECT_TRUE(dialog.isVisible());
    dialog.hide();
    EXPECT_FALSE(dialog.isVisible());
}

} // namespace
