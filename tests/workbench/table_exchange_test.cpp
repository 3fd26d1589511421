// Tables in and out of the open project, by keys and clicks.
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <QTranslator>

#include "exchange/format.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/packed_text.h"
#include "tests/support/contrast.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/modal_answers.h"
#include "tests/workbench/project_file.h"
#include "workbench/exchange/import_proposal.h"
#include "workbench/main_window.h"

namespace mrl::test {

namespace {

using workbench::MainWindow;

template <class Widget>
Widget* child(QWidget* window, const char* name)
{
    auto* found = window->findChild<Widget*>(QLatin1String(name));
    EXPECT_NE(found, nullptr) << name;
    return found;
}

void choose(QWidget* window, const char* name, const QString& text)
{
    auto* field = child<QComboBox>(window, name);
    const int index = field->findText(text, Qt::MatchStartsWith);
    ASSERT_GE(index, 0) << text.toStdString();
    field->setFocus();
    while (field->currentIndex() != index) {
        QTest::keyClick(field, field->currentIndex() < index ? Qt::Key_Down : Qt::Key_Up);
    }
}

class TableExchange : public ::testing::Test
{
  protected:
    TableExchange()
    {
        const OtherProgram other(project.path());
        other.put(LC_KWH_CASES, 1, following("G").title("Dead"));
        other.put(LC_KWH_CASES, 2, following("S").title("=Snow"));
        other.put(LC_KWH_CASES, 3, following("W").title("Wind"));
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_TRUE(window.openProject(project.path()));
    }

    QString write(const char* name, const QByteArray& text) const
    {
        QFile file(project.path(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }
    static QByteArray bytesOf(const QString& name)
    {
        QFile file(name);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }
    int db() const { return window.document().database(); }
    QString title(int number) const
    {
        tagCDB_LC_CTRL record{};
        return mrl_lc_get(db(), number, record) ? lcm_title_text(record.title) : QStringLiteral("(none)");
    }
    void trigger(const char* command) { window.findChild<QAction*>(QLatin1String(command))->trigger(); }
    static void press(QWidget* dialog, const char* button)
    {
        QTest::mouseClick(ModalAnswers::buttonOf(dialog, QLatin1String(button)), Qt::LeftButton);
    }
    static void typeFile(QWidget* dialog, const QString& file)
    {
        auto* field = child<QLineEdit>(dialog, "edit_file");
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, file);
    }
    /// Opens the import of a file and looks at it.
    void import(const QString& file, const std::function<void(QWidget*)>& then)
    {
        answers.then([=](QWidget* dialog) {
            typeFile(dialog, file);
            QTest::keyClick(child<QLineEdit>(dialog, "edit_file"), Qt::Key_Return);
            EXPECT_TRUE(dialog->isVisible()) << "Return reads the file and imports nothing yet";
            then(dialog);
        });
        trigger("action_import");
    }
    static QString cell(QWidget* dialog, int row, int column)
    {
        return child<QTableView>(dialog, "table_plan")->model()->index(row, column).data().toString();
    }
    static QStringList line(QWidget* dialog, int row)
    {
        QStringList texts;
        for (int column = 0; column < 6; ++column) {
            texts << cell(dialog, row, column);
        }
        return texts;
    }
    static QString summary(QWidget* dialog) { return child<QLabel>(dialog, "label_summary")->text(); }
    static QAbstractButton* importButton(QWidget* dialog)
    {
        return ModalAnswers::buttonOf(dialog, QStringLiteral("Import"));
    }

    ProjectFile project{QStringLiteral("en1990"), true};
    ModalAnswers answers;
    MainWindow window;
};

} // namespace

TEST_F(TableExchange, ExportOffersEveryFormatOfTheRoom)
{
    answers.then([](QWidget* dialog) {
        auto* formats = child<QComboBox>(dialog, "combo_format");
        ASSERT_EQ(formats->count(), static_cast<int>(exchange::formats().size()));
        for (int i = 0; i < formats->count(); ++i) {
            EXPECT_EQ(formats->itemData(i).toString().toStdString(),
                      exchange::formats()[static_cast<std::size_t>(i)]->name());
        }
        press(dialog, "Cancel");
    });
    trigger("action_export");
}

TEST_F(TableExchange, ExportWritesWhatIsChosen)
{
    const QString file = project.path("out.csv");
    answers.then([&](QWidget* dialog) {
        choose(dialog, "combo_separator", "semicolon");
        choose(dialog, "combo_decimal", "comma");
        typeFile(dialog, file);
        press(dialog, "Export");
    });
    trigger("action_export");
    const QByteArray text = bytesOf(file);
    EXPECT_TRUE(text.startsWith("number;title;action;DLX")) << text.constData();
    EXPECT_TRUE(text.contains("\n2;'=Snow;S;0;0;0;1;")) << text.constData();
    EXPECT_TRUE(window.statusBar()->currentMessage().contains("out.csv"));
}

TEST_F(TableExchange, ExportBeginsWithWhatTheLocaleHas)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    answers.then([](QWidget* dialog) {
        EXPECT_EQ(child<QComboBox>(dialog, "combo_separator")->currentData().toString(), ";");
        EXPECT_EQ(child<QComboBox>(dialog, "combo_decimal")->currentData().toString(), ",");
        press(dialog, "Cancel");
    });
    trigger("action_export");
    QLocale::setDefault(before);
}

TEST_F(TableExchange, ExportTellsWhatTheFileWillNotHoldAndAsksBeforeItReplacesOne)
{
    const QString file = write("model.saf.xlsx", "kept");
    answers.then([&](QWidget* dialog) {
        choose(dialog, "combo_format", "SAF");
        EXPECT_FALSE(child<QPlainTextEdit>(dialog, "text_losses")->toPlainText().isEmpty());
        EXPECT_TRUE(child<QComboBox>(dialog, "combo_version")->isVisible());
        EXPECT_FALSE(child<QComboBox>(dialog, "combo_encoding")->isEnabled());
        typeFile(dialog, file);
        answers.click("No");
        press(dialog, "Export");
        EXPECT_EQ(bytesOf(file), "kept");
        answers.click("Yes");
        press(dialog, "Export");
    });
    trigger("action_export");
    EXPECT_TRUE(bytesOf(file).startsWith("PK"));
}

TEST_F(TableExchange, ExportTellsWhyAFileCannotBeWrittenAndStaysOpen)
{
    answers.then([&](QWidget* dialog) {
        typeFile(dialog, project.path("no/such/folder.csv"));
        answers.click("OK");
        press(dialog, "Export");
        EXPECT_TRUE(dialog->isVisible());
        typeFile(dialog, project.path());
        answers.click("OK");
        press(dialog, "Export");
        press(dialog, "Cancel");
    });
    trigger("action_export");
    EXPECT_TRUE(answers.boxes()[0].text.contains("folder.csv"));
    EXPECT_EQ(answers.boxes()[1].text, "The project itself can't be the file to write.");
}

TEST_F(TableExchange, ImportShowsRowByRowWhatWouldHappenAndWritesNothing)
{
    const QString file = write("in.csv", "number;title;action;Gamu\n"
                                         "1;Dead;G;\n"
                                         "2;Snow above 1000 m, in a very long title;S;\n"
                                         "3;Wind;NO;\n"
                                         "4;Crane;Q_A;\n");
    import(file, [](QWidget* dialog) {
        EXPECT_EQ(summary(dialog), "1 added, 1 changed, 1 unchanged, 1 refused");
        EXPECT_EQ(line(dialog, 0).mid(0, 4), QStringList({"unchanged", "2", "load case", "1"}));
        EXPECT_EQ(cell(dialog, 1, 0), "changed");
        EXPECT_EQ(cell(dialog, 1, 4),
                  QString("title: =Snow %1 Snow above 1000 m, in a very long").arg(QChar(0x2192)));
        EXPECT_EQ(cell(dialog, 1, 5), "the title loses \" title\"");
        EXPECT_EQ(cell(dialog, 2, 0), "refused");
        EXPECT_TRUE(cell(dialog, 2, 5).contains("[action-missing]")) << cell(dialog, 2, 5).toStdString();
        EXPECT_TRUE(cell(dialog, 3, 4).startsWith("title: Crane; action: Q_A"));
        EXPECT_FALSE(importButton(dialog)->isEnabled()) << "a refused row stops the import";
        press(dialog, "Cancel");
    });
    EXPECT_EQ(title(4), "(none)");
    EXPECT_FALSE(window.document().isModified());
}

TEST_F(TableExchange, TheWordOfARefusedRowCanBeReadInLightAndDark)
{
    const QString file = write("in.csv", "number;title;action;Gamu\n1;Dead;NO;\n");
    inLightAndDark([&] {
        import(file, [](QWidget* dialog) {
            const QAbstractItemModel* rows = child<QTableView>(dialog, "table_plan")->model();
            const auto word = rows->index(0, 0).data(Qt::ForegroundRole).value<QBrush>().color();
            EXPECT_GE(contrastOf(word, QApplication::palette().color(QPalette::Base)), 4.5);
            press(dialog, "Cancel");
        });
    });
}

TEST_F(TableExchange, ImportWritesThePlanAndTheDocumentIsModified)
{
    import(write("in.csv", "number,title,action\n3,West,W\n4,Crane,Q_A\n5,Lost,NO\n"), [](QWidget* dialog) {
        auto* skip = child<QAbstractButton>(dialog, "check_skip_refused");
        QTest::mouseClick(skip, Qt::LeftButton, {}, QPoint(8, skip->height() / 2));
        ASSERT_TRUE(importButton(dialog)->isEnabled());
        press(dialog, "Import");
    });
    EXPECT_EQ(title(3), "West");
    EXPECT_EQ(title(4), "Crane");
    EXPECT_EQ(title(5), "(none)");
    EXPECT_EQ(title(1), "Dead") << "what the table doesn't list stays";
    EXPECT_TRUE(window.document().isModified());
    EXPECT_EQ(window.statusBar()->currentMessage(), "Imported: 1 added, 1 changed, 0 unchanged, 1 refused");
    EXPECT_EQ(window.findChild<QAction*>("action_undo")->text().remove('&'), "Undo: Import of in.csv");
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(&window, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(title(3), "Wind") << "the import is one step";
    EXPECT_EQ(title(4), "(none)");
    EXPECT_FALSE(window.document().isModified());
}

TEST_F(TableExchange, ImportShowsOnlyTheRowsOfAnOutcomeAndFindsTexts)
{
    import(write("in.csv", "number,title,action\n1,Dead,G\n3,West,W\n4,Crane,Q_A\n"), [](QWidget* dialog) {
        choose(dialog, "combo_outcome", "added");
        // The choice counts when it is made by a person; the keys above only move it.
        QTest::keyClick(child<QComboBox>(dialog, "combo_outcome"), Qt::Key_Return);
        EXPECT_EQ(child<QTableView>(dialog, "table_plan")->model()->rowCount(), 1);
        EXPECT_EQ(cell(dialog, 0, 3), "4");
        choose(dialog, "combo_outcome", "all rows");
        auto* find = child<QLineEdit>(dialog, "table_plan_find");
        find->setFocus();
        QTest::keyClicks(find, "west");
        ASSERT_EQ(child<QTableView>(dialog, "table_plan")->model()->rowCount(), 1);
        EXPECT_EQ(cell(dialog, 0, 3), "3");
        press(dialog, "Cancel");
    });
}

TEST_F(TableExchange, ColumnsWhoseNamesDoNotFitAreMatchedByHand)
{
    import(write("in.csv", "Kennung;Was\n7;Seven\n"), [](QWidget* dialog) {
        EXPECT_EQ(summary(dialog), "no column is headed \"number\"");
        EXPECT_EQ(child<QTabWidget>(dialog, "import_tabs")->currentIndex(), 1) << "shows the columns";
        for (int row = 0; row < 2; ++row) {
            auto* headings = child<QTableWidget>(dialog, "table_headings");
            auto* meaning = qobject_cast<QComboBox*>(headings->cellWidget(row, 1));
            ASSERT_NE(meaning, nullptr);
            meaning->setFocus();
            QTest::keyClicks(meaning, row == 0 ? "n" : "t"); // number, title
            QCoreApplication::processEvents();
        }
        EXPECT_EQ(summary(dialog), "1 added, 0 changed, 0 unchanged, 0 refused");
        press(dialog, "Import");
    });
    EXPECT_EQ(title(7), "Seven");
}

TEST_F(TableExchange, ImportTellsWhatWasFoundOutAndTakesWhatIsTold)
{
    // "Größe" in Latin-1, and numbers that leave the decimal sign open.
    import(write("in.csv", "number;title;DLZ;action\n8;Gr\xF6\xDF"
                           "e;1,234;G\n"),
           [](QWidget* dialog) {
               EXPECT_TRUE(summary(dialog).contains("leave the decimal sign open"))
                   << summary(dialog).toStdString();
               EXPECT_EQ(child<QComboBox>(dialog, "combo_encoding")->itemText(0), "automatic: Latin-1");
               EXPECT_EQ(child<QComboBox>(dialog, "combo_separator")->itemText(0), "automatic: semicolon ;");
               auto* decimal = child<QComboBox>(dialog, "combo_decimal");
               decimal->setFocus();
               QTest::keyClick(decimal, Qt::Key_Down);
               QTest::keyClick(decimal, Qt::Key_Down);
               EXPECT_EQ(decimal->currentText(), "comma ,");
               EXPECT_EQ(summary(dialog), "1 added, 0 changed, 0 unchanged, 0 refused");
               press(dialog, "Import");
           });
    EXPECT_EQ(title(8), QString::fromUtf8("Größe"));
    tagCDB_LC_CTRL record{};
    ASSERT_TRUE(mrl_lc_get(db(), 8, record));
    EXPECT_EQ(record.dlz, 1.234f);
}

TEST_F(TableExchange, ReasonsNotesAndLossesAreToldInGerman)
{
    QTranslator german;
    ASSERT_TRUE(
        german.load(QStringLiteral("mrl_workbench_de"),
                    QCoreApplication::applicationDirPath() + QStringLiteral("/../share/mrl/translations")));
    QCoreApplication::installTranslator(&german);
    import(write("in.csv",
                 "number,title,DLZ,Farbe\n1,Dead,x,rot\n1,Dead,1,rot\n7," + QByteArray(35, 't') + ",1,rot\n"),
           [](QWidget* dialog) {
               EXPECT_EQ(cell(dialog, 0, 5),
                         QString::fromUtf8("„x“ bei „DLZ“ ist keine Zahl [import-no-number]"));
               EXPECT_EQ(cell(dialog, 1, 5),
                         QStringLiteral("Lastfall 1 steht schon in Zeile 2 [import-doubled]"));
               EXPECT_EQ(cell(dialog, 2, 5), QString::fromUtf8("der Titel verliert „tt“"));
               EXPECT_EQ(child<QPlainTextEdit>(dialog, "text_notes")->toPlainText(),
                         QString::fromUtf8("gelesen als UTF-8, Trennzeichen „,“, Dezimalzeichen „.“\n"
                                           "Spalte „Farbe“ wird übergangen"));
               QTest::keyClick(dialog, Qt::Key_Escape);
           });
    import(write("quote.csv", "number,title\n1,\"Dead\n"), [](QWidget* dialog) {
        EXPECT_EQ(summary(dialog),
                  QString::fromUtf8("Zeile 2: ein Anführungszeichen wird nicht geschlossen"));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    answers.then([](QWidget* dialog) {
        choose(dialog, "combo_format", "SAF-Arbeitsmappe");
        EXPECT_TRUE(child<QPlainTextEdit>(dialog, "text_losses")
                        ->toPlainText()
                        .contains("Einwirkung G: alle Beiwerte\n"))
            << child<QPlainTextEdit>(dialog, "text_losses")->toPlainText().toStdString();
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    trigger("action_export");
}

TEST_F(TableExchange, AnImportThatIsCancelledLeavesTheProjectAsItWas)
{
    QByteArray table = "number,title,action\n";
    for (int number = 1; number <= 2000; ++number) {
        table += QByteArray::number(number) + ",New,G\n";
    }
    workbench::ImportWish wish;
    wish.file = write("in.csv", table);
    const workbench::ImportProposal proposal = workbench::proposeImport(db(), wish);
    ASSERT_EQ(proposal.plan.count(exchange::Outcome::Added), 1997);
    int calls = 0;
    const auto outcome = workbench::applyImport(db(), proposal, [&](int rows) {
        ++calls;
        return rows < 1500;
    });
    EXPECT_EQ(outcome, workbench::ImportOutcome::Cancelled);
    EXPECT_EQ(calls, 4);
    EXPECT_EQ(title(1), "Dead");
    EXPECT_EQ(title(900), "(none)");
    EXPECT_FALSE(window.document().isModified());
    // The same by the button of the progress window.
    import(wish.file, [this](QWidget* dialog) {
        answers.then([](QWidget* progress) { press(progress, "Cancel"); });
        press(dialog, "Import");
        EXPECT_EQ(summary(dialog), "Cancelled; the project is as it was.");
        press(dialog, "Cancel");
    });
    EXPECT_EQ(title(900), "(none)");
}

TEST_F(TableExchange, AnImportNeedsTheDesignCode)
{
    window.slot_close();
    ASSERT_TRUE(cdb::setFact(OtherProgram(project.path()).db(), "designcode", "gone-code"));
    ASSERT_TRUE(window.openProject(project.path()));
    answers.click("OK");
    trigger("action_import");
    EXPECT_TRUE(answers.boxes()[0].text.contains("gone-code"));
}

TEST_F(TableExchange, TablesOfTheSummaryAreCopiedAsTheyAreSeen)
{
    auto* table = child<QTableView>(&window, "table_loadcases");
    QApplication::clipboard()->setText("kept");
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "kept") << "nothing is selected, and nothing is current";
    window.findChild<QWidget*>("summary")->findChild<QTabWidget*>()->setCurrentIndex(1);
    table->setFocus();
    QTest::keyClick(table, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines[1].startsWith("2\t=Snow\tS")) << lines[1].toStdString();
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().startsWith("<table"));
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::clipboard()->text().split('\n').size(), 5);
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->html().contains("<th>"));
}

} // namespace mrl::test
