#include <gtest/gtest.h>

#include <QPushButton>
#include <QTabWidget>

#include "host/mrl_widgets.h"

namespace {

constexpr auto AUTO = static_cast<Qt::ConnectionType>(0);

TEST(Connect, SignaturesAsQtWritesThemConnect)
{
    QPushButton sender;
    QPushButton receiver;
    receiver.setCheckable(true);
    ASSERT_TRUE(mrl_connect(&sender, SIGNAL(clicked()), &receiver, SLOT(toggle()), AUTO));
    sender.click();
    EXPECT_TRUE(receiver.isChecked());
}

TEST(Connect, BlanksInASignatureDoNotMatter)
{
    QTabWidget tabs;
    QPushButton receiver;
    ASSERT_TRUE(mrl_connect(&tabs, "2currentChanged ( int )", &receiver, "1deleteLater( )", AUTO));
    QPushButton first;
    QPushButton second;
    second.setCheckable(true);
    ASSERT_TRUE(mrl_connect(&first, "2toggled( bool )", &second, "1setChecked( bool )", AUTO));
    first.setCheckable(true);
    first.click();
    EXPECT_TRUE(second.isChecked());
}

TEST(Connect, ASignalCanTakeASignal)
{
    QPushButton first;
    QPushButton second;
    QPushButton counted;
    counted.setCheckable(true);
    ASSERT_TRUE(mrl_connect(&first, "2clicked( )", &second, "2clicked( )", AUTO));
    ASSERT_TRUE(mrl_connect(&second, "2clicked( )", &counted, "1toggle( )", AUTO));
    first.click();
    EXPECT_TRUE(counted.isChecked());
}

// Ends the process in builds with assertions, and with a critical message made fatal in the others.
void connectWrongly(const char* signal, const char* slot)
{
    qputenv("QT_FATAL_CRITICALS", "1");
    QPushButton sender;
    QPushButton receiver;
    mrl_connect(&sender, signal, &receiver, slot, AUTO);
}

TEST(ConnectDeathTest, ASignalThatDoesNotExistIsNoticedAtOnce)
{
    EXPECT_DEATH(connectWrongly("2clickd( )", "1toggle( )"), "no signal QPushButton::clickd");
}

TEST(ConnectDeathTest, ASlotThatDoesNotExistIsNoticedAtOnce)
{
    EXPECT_DEATH(connectWrongly("2clicked( )", "1slot_missing( )"), "no slot QPushButton::slot_missing");
}

TEST(ConnectDeathTest, ASlotThatWantsMoreThanTheSignalGivesIsNoticedAtOnce)
{
    EXPECT_DEATH(connectWrongly("2pressed( )", "1setChecked( bool )"), "do not fit");
}

TEST(ConnectDeathTest, ASlotInThePlaceOfTheSignalIsNoticedAtOnce)
{
    EXPECT_DEATH(connectWrongly("1toggle( )", "1toggle( )"), "no signal");
}

} // namespace
