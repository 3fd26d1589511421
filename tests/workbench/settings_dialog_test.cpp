// The settings of the package, as a person changes them.
#include <QCheckBox>
#include <QTest>

#include <gtest/gtest.h>

#include "host/mrl_alib.h"
#include "hostlib/data/settings/settings.h"
#include "workbench/settings_dialog.h"
#include "workbench/wanted_extras.h"

namespace mrl::test {

class SettingsDialogTest : public ::testing::Test
{
  protected:
    SettingsDialogTest() { dialog.show(); }
    void toggle(const char* name)
    {
        QTest::keyClick(dialog.findChild<QCheckBox*>(QLatin1String(name)), Qt::Key_Space);
    }

    workbench::SettingsDialog dialog{nullptr};
};

TEST_F(SettingsDialogTest, StoresWhatWasChosen)
{
    auto* language = dialog.findChild<MRL_QT4_ComboBox*>(QStringLiteral("combo_language"));
    EXPECT_TRUE(language->setCurrentId(settings::German));
    toggle("check_experimental");
    toggle("check_restricted");
    toggle("check_extras");
    dialog.accept();
    EXPECT_EQ(settings::language(), settings::German);
    EXPECT_TRUE(MRL_QT_ApplicationInterface::experimentalOn());
    EXPECT_NE(mrl_alib_getLaufModus() & 24, 0);
    EXPECT_TRUE(workbench::wantsExtras());

    workbench::SettingsDialog again(nullptr);
    again.findChild<MRL_QT4_ComboBox*>(QStringLiteral("combo_language"))->setCurrentId(settings::English);
    for (auto* box : again.findChildren<QCheckBox*>()) {
        box->setChecked(false);
    }
    again.accept();
    EXPECT_EQ(settings::language(), settings::English);
    EXPECT_FALSE(MRL_QT_ApplicationInterface::experimentalOn());
    EXPECT_FALSE(workbench::wantsExtras());
    EXPECT_EQ(mrl_alib_getLaufModus() & 24, 0);
}

TEST_F(SettingsDialogTest, StoresNothingWhenItIsCancelled)
{
    toggle("check_restricted");
    dialog.reject();
    EXPECT_EQ(mrl_alib_getLaufModus() & 24, 0);
}

TEST(SettingsDialogOnce, KeepsOtherBitsOfTheRunMode)
{
    settings::setRunMode(16 + 3);
    workbench::SettingsDialog dialog(nullptr);
    EXPECT_TRUE(dialog.findChild<QCheckBox*>(QStringLiteral("check_restricted"))->isChecked());
    dialog.accept();
    EXPECT_EQ(settings::runMode(), 19) << "which restricted mode it is stays";
    workbench::SettingsDialog off(nullptr);
    off.findChild<QCheckBox*>(QStringLiteral("check_restricted"))->setChecked(false);
    off.accept();
    EXPECT_EQ(settings::runMode(), 3);
    settings::setRunMode(0);
}

} // namespace mrl::test
