#include <gtest/gtest.h>

#include <QScreen>
#include <QStyle>
#include <QTest>

#include "host/mrl_widgets.h"

namespace {

void showAndClose(MRL_QT_Dialog& dialog, const QSize& size)
{
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    dialog.resize(size);
    dialog.close();
}

TEST(Dialog, TheCaptionIsTheWindowTitle)
{
    MRL_QT_Dialog dialog(nullptr, "captioned");
    dialog.setCaption("New action");
    EXPECT_EQ(dialog.windowTitle(), "New action");
    EXPECT_EQ(dialog.objectName(), "captioned");
}

TEST(Dialog, TheFirstTimeItTakesTheGivenSize)
{
    MRL_QT_Dialog dialog(nullptr, "first time");
    dialog.restoreGeometry(500, 300);
    EXPECT_EQ(dialog.size(), QSize(500, 300));
}

TEST(Dialog, ItComesBackInTheSizeThatItWasLeftIn)
{
    {
        MRL_QT_Dialog dialog(nullptr, "left large");
        dialog.restoreGeometry(400, 300);
        showAndClose(dialog, QSize(620, 410));
    }
    MRL_QT_Dialog dialog(nullptr, "left large");
    dialog.restoreGeometry(400, 300);
    EXPECT_EQ(dialog.size(), QSize(620, 410));
}

TEST(Dialog, DialogsOfOtherNamesKeepTheirOwnSize)
{
    {
        MRL_QT_Dialog dialog(nullptr, "one of two");
        dialog.restoreGeometry(400, 300);
        showAndClose(dialog, QSize(610, 400));
    }
    MRL_QT_Dialog other(nullptr, "two of two");
    other.restoreGeometry(400, 300);
    EXPECT_EQ(other.size(), QSize(400, 300));
}

TEST(Dialog, ADialogThatAskedForNoGeometryStoresNone)
{
    {
        MRL_QT_Dialog dialog(nullptr, "careless");
        showAndClose(dialog, QSize(600, 400));
    }
    MRL_QT_Dialog dialog(nullptr, "careless");
    dialog.restoreGeometry(400, 300);
    EXPECT_EQ(dialog.size(), QSize(400, 300));
}

TEST(Dialog, ASizeBeyondTheScreenIsCutSoThatTheFrameFitsToo)
{
    MRL_QT_Dialog dialog(nullptr, "too large");
    dialog.restoreGeometry(100000, 100000);
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const int titleBar = dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    EXPECT_LT(dialog.width(), screen.width());
    EXPECT_LE(dialog.height(), screen.height() - titleBar);
}

TEST(Dialog, APlaceFromALargerScreenComesBackWhereAllOfItIsSeen)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    {
        MRL_QT_Dialog dialog(nullptr, "from a larger screen");
        dialog.restoreGeometry(400, 300);
        dialog.move(screen.center());
        showAndClose(dialog, screen.size());
    }
    MRL_QT_Dialog dialog(nullptr, "from a larger screen");
    dialog.restoreGeometry(400, 300);
    const int titleBar = dialog.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    EXPECT_LE(dialog.height(), screen.height() - titleBar);
    EXPECT_TRUE(screen.contains(QRect(dialog.pos(), dialog.size())))
        << dialog.x() << ' ' << dialog.y() << ' ' << dialog.width() << ' ' << dialog.height();
}

} // namespace
