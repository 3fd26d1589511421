#include <gtest/gtest.h>

#include <QTimer>

#include <new>

#include "host/mrl_widgets.h"

namespace {

TEST(ApplicationDeathTest, WithoutMemoryItEndsWithAMessageAndStatusThree)
{
    EXPECT_EXIT(
        {
            QTimer::singleShot(0, qApp, [] { throw std::bad_alloc(); });
            for (;;) {
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
        },
        ::testing::ExitedWithCode(3), "There is no memory left");
}

} // namespace
