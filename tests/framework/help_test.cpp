#include <gmock/gmock.h>

#include <QDialog>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTimer>

#include "host/mrl_textlist.h"
#include "hostlib/ui/framework/help_pages.h"

namespace {

QWidget* helpWindow()
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "help window" && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

QString shownHelp() { return helpWindow()->findChild<QTextBrowser*>()->toPlainText(); }

QString pageText(const QString& language)
{
    QFile page(QString("%1/%2/marlload/ACT.html").arg(MRL_HELP_SOURCES, language));
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

TEST(Help, OpensThePageOfATopic)
{
    QWidget owner;
    owner.show();
    MRL_T_Help::show(&owner, "marlload", "ACT");
    ASSERT_NE(helpWindow(), nullptr);
    EXPECT_TRUE(shownHelp().contains("Actions and load cases"));
}

TEST(Help, ShowsAPageOfMarkdownWithItsPicturesUnderItsHeading)
{
    QWidget owner;
    owner.show();
    MRL_T_Help::show(&owner, "manual", "actions");
    ASSERT_NE(helpWindow(), nullptr);
    EXPECT_TRUE(helpWindow()->windowTitle().contains("Define actions"))
        << helpWindow()->windowTitle().toStdString();
    auto* browser = helpWindow()->findChild<QTextBrowser*>();
    QStringList pictures;
    for (QTextBlock block = browser->document()->begin(); block.isValid(); block = block.next()) {
        for (auto at = block.begin(); !at.atEnd(); ++at) {
            if (at.fragment().charFormat().isImageFormat()) {
                pictures << at.fragment().charFormat().toImageFormat().name();
            }
        }
    }
    ASSERT_FALSE(pictures.isEmpty());
    EXPECT_EQ(browser->horizontalScrollBar()->maximum(), 0) << "a picture is wider than the page";
    for (const QString& picture : pictures) {
        const QVariant shown = browser->document()->resource(QTextDocument::ImageResource, QUrl(picture));
        EXPECT_FALSE(shown.isNull()) << picture.toStdString();
    }
}

TEST(Help, SaysSoWhenThereIsNoSuchPage)
{
    QWidget owner;
    owner.show();
    MRL_T_Help::show(&owner, "marlload", "NOTHING");
    ASSERT_NE(helpWindow(), nullptr);
    EXPECT_TRUE(shownHelp().contains("NOTHING"));
}

TEST(Help, ASecondRequestUsesTheWindowThatIsOpen)
{
    QWidget owner;
    owner.show();
    MRL_T_Help::show(&owner, "marlload", "NOTHING");
    const QPointer<QWidget> first = helpWindow();
    MRL_T_Help::show(&owner, "marlload", "ACT");
    EXPECT_EQ(helpWindow(), first);
    EXPECT_TRUE(shownHelp().contains("Actions and load cases"));
}

TEST(Help, CanBeReadAndClosedWhileAModalDialogWaits)
{
    QDialog dialog;
    bool searched = false;
    QTimer::singleShot(0, &dialog, [&] {
        MRL_T_Help::show(&dialog, "marlload", "ACT");
        const QPointer<QWidget> help = helpWindow();
        ASSERT_NE(help, nullptr);
        auto* search = help->findChild<QLineEdit*>("help search");
        QTest::mouseClick(search, Qt::LeftButton);
        QTest::keyClicks(search, "superposition");
        QTest::keyClick(search, Qt::Key_Return);
        searched = help->findChild<QTextBrowser*>()->textCursor().hasSelection();
        QTest::keyClick(help, Qt::Key_Escape);
        EXPECT_TRUE(!help || !help->isVisible());
        EXPECT_TRUE(dialog.isVisible()); // the Esc was the help's
        dialog.reject();
    });
    dialog.exec();
    EXPECT_TRUE(searched);
}

TEST(Help, GoesWithTheWindowThatItBelongsTo)
{
    QPointer<QWidget> help;
    {
        QWidget owner;
        owner.show();
        MRL_T_Help::show(&owner, "marlload", "ACT");
        help = helpWindow();
        ASSERT_NE(help, nullptr);
    }
    EXPECT_EQ(help, nullptr);
}

// What the two tabs offer must be found in the help, in the words of the windows.
TEST(HelpPages, EachColumnAndCommandOfTheTabsIsExplained)
{
    const QString english = pageText("en");
    for (const char* word : {"Action",
                             "Description",
                             "Partition",
                             "Superposition",
                             "Gamu",
                             "Gamf",
                             "Gama",
                             "Psi0",
                             "Psi1",
                             "Psi2",
                             "Psi1s",
                             "New",
                             "Delete",
                             "ADD ALL",
                             "Reinit all actions",
                             "Reinit selected actions",
                             "Pre defined actions",
                             "User defined action",
                             "Number",
                             "Title",
                             "Factor",
                             "DLX",
                             "DLY",
                             "DLZ",
                             "Copy",
                             "Use global deadload directions",
                             "Increment loadcases automatically from selected on",
                             "Delete unused loadcases",
                             "IMP",
                             "None",
                             "is missing",
                             "999999"}) {
        EXPECT_TRUE(english.contains(word)) << word;
    }
}

// A German page must call things as the German windows do.
TEST(HelpPages, TheGermanPageUsesTheWordsOfTheGermanWindows)
{
    QFile file(MRL_TRANSLATIONS "/mrl_loadcase_dll_de.ts");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString translations = QString::fromUtf8(file.readAll());
    const QString german = pageText("de").simplified();
    for (const char* word :
         {"Description", "Partition", "Superposition", "New", "Delete", "Copy", "ADD ALL",
          "Reinit all actions", "Reinit selected actions", "Pre defined actions", "User defined action",
          "Title", "Factor of dead weight", "Use global deadload directions",
          "Increment loadcases automatically from selected on", "Delete unused loadcases", "None"}) {
        const QRegularExpression pattern(
            QString("<source>%1</source>\\s*<translation>([^<]+)<").arg(QRegularExpression::escape(word)));
        const QString translated = pattern.match(translations).captured(1);
        EXPECT_FALSE(translated.isEmpty()) << word;
        EXPECT_TRUE(german.contains(translated)) << word << ": " << translated.toStdString();
    }
}

TEST(HelpPages, BothLanguagesHaveTheSameSections)
{
    const auto anchors = [](const QString& page) {
        QStringList names;
        QRegularExpression pattern("<h[23] id=\"([^\"]+)\"");
        auto matches = pattern.globalMatch(page);
        while (matches.hasNext()) {
            names << matches.next().captured(1);
        }
        return names;
    };
    EXPECT_FALSE(anchors(pageText("en")).isEmpty());
    EXPECT_EQ(anchors(pageText("en")), anchors(pageText("de")));
}

TEST(HelpPages, EachLinkLeadsToASection)
{
    for (const char* language : {"en", "de"}) {
        const QString page = pageText(language);
        QRegularExpression pattern("href=\"#([^\"]+)\"");
        auto matches = pattern.globalMatch(page);
        EXPECT_TRUE(matches.hasNext());
        while (matches.hasNext()) {
            const QString target = matches.next().captured(1);
            EXPECT_TRUE(page.contains(QString("id=\"%1\"").arg(target))) << target.toStdString();
        }
    }
}

} // namespace
