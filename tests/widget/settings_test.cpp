#include <gtest/gtest.h>

#include <QSettings>

#include "host/mrl_widgets.h"
#include "hostlib/ui/widget/application.h"

namespace {

MRL_QT_Application& application() { return *dynamic_cast<MRL_QT_Application*>(QCoreApplication::instance()); }

TEST(ApplicationSettings, AnAbsentKeyGivesTheDefault)
{
    int value = 7;
    EXPECT_FALSE(application().getAppSettings("LF_Manager", "absent", value, 3));
    EXPECT_EQ(value, 3);
}

TEST(ApplicationSettings, AStoredNumberComesBack)
{
    ASSERT_TRUE(application().setAppSettings("LF_Manager", "checkIncrement", 0));
    int value = 1;
    EXPECT_TRUE(application().getAppSettings("LF_Manager", "checkIncrement", value, 1));
    EXPECT_EQ(value, 0);
}

TEST(ApplicationSettings, AStoredNumberIsOnTheDiskAtOnce)
{
    ASSERT_TRUE(application().setAppSettings("LF_Manager", "checkDeadload", 1));
    const QString file = QSettings("mrl-tests", "mrl-tests").fileName();
    EXPECT_EQ(QSettings(file, QSettings::IniFormat).value("LF_Manager/checkDeadload").toInt(), 1);
}

TEST(ApplicationSettings, AnEntryThatIsNoNumberGivesTheDefault)
{
    QSettings("mrl-tests", "mrl-tests").setValue("LF_Manager/broken", "yes");
    int value = 7;
    EXPECT_FALSE(application().getAppSettings("LF_Manager", "broken", value, 1));
    EXPECT_EQ(value, 1);
}

TEST(ApplicationSettings, ExperimentalFunctionsAreOffUntilTheyAreSwitchedOn)
{
    EXPECT_FALSE(MRL_QT_ApplicationInterface::experimentalOn());
    mrl::ui::setExperimental(true);
    EXPECT_TRUE(MRL_QT_ApplicationInterface::experimentalOn());
    mrl::ui::setExperimental(false);
    EXPECT_FALSE(MRL_QT_ApplicationInterface::experimentalOn());
}

TEST(ApplicationSettings, TheEnvironmentSwitchesExperimentalFunctionsForOneRun)
{
    qputenv("MRL_EXPERIMENTAL", "1");
    EXPECT_TRUE(MRL_QT_ApplicationInterface::experimentalOn());
    qputenv("MRL_EXPERIMENTAL", "0");
    EXPECT_FALSE(MRL_QT_ApplicationInterface::experimentalOn());
    qunsetenv("MRL_EXPERIMENTAL");
}

} // namespace
