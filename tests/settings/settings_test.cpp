#include "hostlib/data/settings/settings.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include "host/mrl_alib.h"
#include "host/mrl_lib.h"

namespace {

/// The user's own settings stay out of the tests.
class Settings : public testing::Test
{
  protected:
    Settings() { QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path()); }

    QTemporaryDir folder;
};

} // namespace

TEST_F(Settings, BeginWithEnglishAndNothingElse)
{
    EXPECT_EQ(mrl_lib_setting(102), mrl::settings::English);
    EXPECT_EQ(mrl_lib_setting(108), 0);
    EXPECT_EQ(mrl_alib_getLaufModus(), 0);
}

TEST_F(Settings, AnswerWhatWasSet)
{
    mrl::settings::setLanguage(mrl::settings::German);
    mrl::settings::setGeneratorOption(5);
    mrl::settings::setRunMode(8);
    EXPECT_EQ(mrl_lib_setting(102), mrl::settings::German);
    EXPECT_EQ(mrl_lib_setting(108), 5);
    EXPECT_EQ(mrl_alib_getLaufModus(), 8);
}

TEST_F(Settings, UnknownNumberIsZero)
{
    mrl::settings::setLanguage(mrl::settings::German);
    EXPECT_EQ(mrl_lib_setting(103), 0);
    EXPECT_EQ(mrl_lib_setting(-102), 0);
}
