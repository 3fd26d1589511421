// The report of the open project, by keys and clicks.
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSpinBox>
#include <QStatusBar>

#include "report/content_hash.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/main_window.h"
#include "workbench/report/page_view.h"

namespace mrl::test {

namespace {

using workbench::MainWindow;
using workbench::PageView;

constexpr int CASES = 200; // more than a page

class WorkbenchReport : public ::testing::Test
{
  protected:
    WorkbenchReport()
    {
        const OtherProgram other(project.path());
        for (int i = 1; i <= CASES; ++i) {
            other.put(LC_KWH_CASES, i, following("G").title("Dead"));
        }
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_TRUE(window.openProject(project.path()));
    }

    void openReport(const std::function<void(QWidget*)>& then)
    {
        answers.then([then](QWidget* dialog) {
            then(dialog);
            QTest::mouseClick(ModalAnswers::buttonOf(dialog, QStringLiteral("Close")), Qt::LeftButton);
        });
        window.findChild<QAction*>(QStringLiteral("action_report"))->trigger();
    }
    /// Saves by the button and the name of a file.
    /// @param fails a message is expected
    void save(QWidget* dialog, const QString& button, const QString& file, bool fails = false)
    {
        answers.then([file](QWidget* chooser) {
            auto* name = chooser->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            ASSERT_NE(name, nullptr);
            name->selectAll();
            QTest::keyClicks(name, file);
            QTest::keyClick(name, Qt::Key_Return);
        });
        if (fails) {
            answers.click(QStringLiteral("OK"));
        }
        QTest::mouseClick(ModalAnswers::buttonOf(dialog, button), Qt::LeftButton);
    }
    static QByteArray bytesOf(const QString& name)
    {
        QFile file(name);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }
    static QImage pictureOf(QWidget* dialog)
    {
        return dialog->findChild<PageView*>(QStringLiteral("page_view"))->grab().toImage();
    }
    static int inkOf(const QImage& picture)
    {
        int ink = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                ink += qGray(picture.pixel(x, y)) < 128 ? 1 : 0;
            }
        }
        return ink;
    }

    ProjectFile project{QStringLiteral("en1990"), true};
    ModalAnswers answers;
    MainWindow window;
};

} // namespace

TEST_F(WorkbenchReport, PreviewShowsPagesAndTurnsThem)
{
    openReport([](QWidget* dialog) {
        QApplication::setActiveWindow(dialog); // as a window manager does; or no key is a shortcut
        auto* page = dialog->findChild<QSpinBox*>(QStringLiteral("spin_page"));
        EXPECT_EQ(page->value(), 1);
        EXPECT_GT(page->maximum(), 3);
        auto* previous = dialog->findChild<QPushButton*>(QStringLiteral("button_previous"));
        auto* next = dialog->findChild<QPushButton*>(QStringLiteral("button_next"));
        EXPECT_FALSE(previous->isEnabled());
        const QImage first = pictureOf(dialog);
        EXPECT_GT(inkOf(first), 1000) << "a page with text";
        QTest::mouseClick(next, Qt::LeftButton);
        EXPECT_EQ(page->value(), 2);
        EXPECT_NE(pictureOf(dialog), first);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_PageDown);
        EXPECT_EQ(page->value(), 3);
        QTest::keyClick(dialog->focusWidget(), Qt::Key_PageUp);
        QTest::mouseClick(previous, Qt::LeftButton);
        EXPECT_EQ(pictureOf(dialog), first);
        page->setFocus();
        page->selectAll();
        QTest::keyClicks(page, QString::number(page->maximum()));
        QTest::keyClick(page, Qt::Key_Tab);
        EXPECT_FALSE(next->isEnabled());
    });
}

TEST_F(WorkbenchReport, WholeWidthOfThePageIsInSight)
{
    openReport([](QWidget* dialog) {
        const auto* area = dialog->findChild<QScrollArea*>();
        for (const QSize size : {QSize(500, 600), QSize(1000, 700)}) {
            dialog->resize(size);
            QCoreApplication::processEvents();
            EXPECT_LE(area->widget()->width(), area->viewport()->width());
            EXPECT_GT(area->widget()->width(), area->viewport()->width() - 10);
        }
    });
}

TEST_F(WorkbenchReport, BothKindsAreSavedAndHoldTheHashOfTheFile)
{
    openReport([this](QWidget* dialog) {
        save(dialog, QStringLiteral("Save as PDF..."), project.path(QStringLiteral("r.pdf")));
        save(dialog, QStringLiteral("Save as HTML..."), project.path(QStringLiteral("r.html")));
    });
    EXPECT_TRUE(bytesOf(project.path(QStringLiteral("r.pdf"))).startsWith("%PDF-"));
    const QByteArray page = bytesOf(project.path(QStringLiteral("r.html")));
    EXPECT_TRUE(
        page.contains("SHA-256 " + report::contentHash(OtherProgram(project.path()).db()).toLatin1()));
    EXPECT_FALSE(page.contains("changes that aren't saved"));
    EXPECT_TRUE(window.statusBar()->currentMessage().contains(QStringLiteral("r.html")));
}

TEST_F(WorkbenchReport, UnsavedChangesAreToldInTheReport)
{
    const_cast<workbench::Document&>(window.document()).runStep(QStringLiteral("a change"), [this] {
        const int db = window.document().database();
        const tagCDB_LC_CTRL record = following("G").title("Not saved");
        int length = sizeof record;
        mrl_cdb_put(db, LC_KWH_CASES, 777, &record, &length, 0);
    });
    openReport([this](QWidget* dialog) {
        save(dialog, QStringLiteral("Save as HTML..."), project.path(QStringLiteral("r.html")));
    });
    const QByteArray page = bytesOf(project.path(QStringLiteral("r.html")));
    EXPECT_TRUE(page.contains("Not saved"));
    EXPECT_TRUE(page.contains("changes that aren't saved"));
}

TEST_F(WorkbenchReport, FileThatCannotBeWrittenIsTold)
{
    openReport([this](QWidget* dialog) {
        save(dialog, QStringLiteral("Save as PDF..."), QStringLiteral("/proc/r.pdf"), true);
    });
    ASSERT_EQ(answers.boxes().size(), 1u);
    EXPECT_TRUE(answers.boxes()[0].text.contains(QStringLiteral("/proc/r.pdf")));
}

TEST_F(WorkbenchReport, CommandWantsAnOpenProject)
{
    auto* command = window.findChild<QAction*>(QStringLiteral("action_report"));
    EXPECT_TRUE(command->isEnabled());
    window.slot_close();
    EXPECT_FALSE(command->isEnabled());
}

} // namespace mrl::test
