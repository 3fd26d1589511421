#include "hostlib/data/settings/settings.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <QTemporaryDir>

#include <vector>

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

namespace {

/// The environment of a desktop, for the life of a test.
class Desktop : public Settings
{
  protected:
    Desktop()
    {
        for (const char* name : NAMES) {
            kept.push_back(qgetenv(name));
            qunsetenv(name);
        }
    }
    ~Desktop() override
    {
        for (std::size_t i = 0; i < std::size(NAMES); ++i) {
            kept[i].isNull() ? qunsetenv(NAMES[i]) : qputenv(NAMES[i], kept[i]);
        }
    }

    static constexpr const char* NAMES[] = {"LC_ALL", "LC_MESSAGES", "LANG", "LANGUAGE"};
    std::vector<QByteArray> kept;
};

} // namespace

TEST_F(Desktop, LanguageIsThatOfTheDesktopUntilItIsSet)
{
    EXPECT_EQ(mrl::settings::language(), mrl::settings::English);
    qputenv("LANG", "de_AT.UTF-8");
    EXPECT_EQ(mrl::settings::language(), mrl::settings::German);
    qputenv("LC_ALL", "fr_FR.UTF-8");
    EXPECT_EQ(mrl::settings::language(), mrl::settings::English) << "there are no French texts";
    qputenv("LANGUAGE", "de:en");
    EXPECT_EQ(mrl::settings::language(), mrl::settings::German);
    mrl::settings::setLanguage(mrl::settings::English);
    EXPECT_EQ(mrl::settings::language(), mrl::settings::English) << "what the user chose";
}

TEST_F(Desktop, LanguageOfTheBareLocaleIsEnglish)
{
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("LANGUAGE", "de");
    EXPECT_EQ(mrl::settings::language(), mrl::settings::English);
}

TEST_F(Settings, UnknownNumberIsZero)
{
    mrl::settings::setLanguage(mrl::settings::German);
    EXPECT_EQ(mrl_lib_setting(103), 0);
    EXPECT_EQ(mrl_lib_setting(-102), 0);
}
