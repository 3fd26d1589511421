#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QProcess>

#include "hostlib/data/settings/settings.h"

namespace {

/// What a program of the package shows in the language that is set now.
QStringList textsOfAProgram()
{
    QProcess program;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("MRL_TRANSLATION_PATH", MRL_PROBE_TRANSLATIONS);
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(MRL_PROBE), QStringList());
    EXPECT_TRUE(program.waitForFinished());
    EXPECT_EQ(program.exitCode(), 0);
    return QString::fromUtf8(program.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

class Translator : public ::testing::Test
{
  protected:
    ~Translator() override { mrl::settings::setLanguage(mrl::settings::English); }
};

TEST_F(Translator, EnglishIsTheLanguageOfTheSources)
{
    mrl::settings::setLanguage(mrl::settings::English);
    EXPECT_EQ(textsOfAProgram(), (QStringList{"Load case", "Cancel", "Action"}));
}

TEST_F(Translator, AStaticTranslatorWaitsForTheApplicationAndALateOneDoesNot)
{
    mrl::settings::setLanguage(mrl::settings::German);
    const auto texts = textsOfAProgram();
    ASSERT_EQ(texts.size(), 3);
    EXPECT_EQ(texts[0], "Lastfall");
    EXPECT_EQ(texts[2], "Einwirkung");
}

TEST_F(Translator, StandardButtonsSpeakTheUsersLanguageToo)
{
    const QString folder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    if (!QFileInfo::exists(folder + "/qtbase_de.qm")) {
        GTEST_SKIP() << "Qt's own translations are not installed";
    }
    mrl::settings::setLanguage(mrl::settings::German);
    EXPECT_EQ(textsOfAProgram().value(1), "Abbrechen");
}

TEST_F(Translator, AChangeOfTheLanguageHoldsFromTheNextStart)
{
    mrl::settings::setLanguage(mrl::settings::German);
    EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), "Cancel");
}

} // namespace
