// The main of window tests: an application on the offscreen platform, with settings of its own in a
// temporary folder, so that no test reads or changes what a person or another test has stored.
#include <gmock/gmock.h>

#include <QTemporaryDir>

#include "host/mrl_widgets.h"

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", home.path().toLocal8Bit());
    qputenv("XDG_STATE_HOME", (home.path() + QStringLiteral("/state")).toLocal8Bit());
    ::testing::InitGoogleMock(&argc, argv);
    if (::testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS(); // no window is needed for that
    }
    MRL_QT_Application application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("mrl-tests"));
    QApplication::setApplicationName(QStringLiteral("mrl-tests"));
    return RUN_ALL_TESTS();
}
