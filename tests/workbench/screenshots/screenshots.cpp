// Takes pictures of every window of the workbench and the managers: screenshots FOLDER PROJECT RESPONSES [en|de]
// MRL_PICTURE_SCREEN=800x600 takes them as on a screen of that size and tells of windows that don't fit;
// MRL_PICTURE_DARK=1 with a dark palette. Windows that open modally are photographed from within their own event loop.
#include <QComboBox>
#include <QCommandLinkButton>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>

#include <cstdio>
#include <functional>

#include "host/mrl_table.h"
#include "host/mrl_textlist.h"
#include "hostlib/data/settings/settings.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/packed_text.h"
#include "rules/action_columns.h"
#include "rules/load_case_columns.h"
#include "workbench/combinations/combinations_page.h"
#include "workbench/exchange/import_dialog.h"
#include "workbench/main_window.h"
#include "workbench/new_project_dialog.h"
#include "workbench/resources.h"
#include "workbench/settings_dialog.h"
#include "workbench/steps/history_panel.h"
#include "workbench/wanted_extras.h"

namespace {

using mrl::workbench::CombinationsPage;
using mrl::workbench::MainWindow;
using mrl::workbench::Manager;

// As in the program itself, and so that the pictures show what a person sees.
const MRL_QT_InitTranslator TRANSLATOR("mrl_workbench");
const MRL_QT_InitTranslator REPORT_TRANSLATOR("mrl_report");

/// The screen that the pictures are taken as on.
QSize screen()
{
    const QList<QByteArray> sides = qgetenv("MRL_PICTURE_SCREEN").split('x');
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize(1400, 1000);
}

void darken()
{
    const QColor window(0x31, 0x36, 0x3b);
    const QColor base(0x23, 0x26, 0x29);
    QPalette palette(QColor(0x3b, 0x40, 0x45), window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2e, 0x32));
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x62, 0x8a));
    palette.setColor(QPalette::Link, QColor(0x5a, 0xb0, 0xee));
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, QColor(0xef, 0xf0, 0xf1));
    QApplication::setStyle(QStringLiteral("fusion"));
    QApplication::setPalette(palette);
}

class Photographer
{
  public:
    explicit Photographer(const QString& folder) : m_folder(folder) { QDir().mkpath(folder); }

    void take(QWidget* window, const char* name)
    {
        window->ensurePolished();
        QApplication::processEvents();
        // A field that has just taken the size of its texts waits for the layout to put it right.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        const QSize size = window->size();
        if (size.width() > screen().width() || size.height() > screen().height()) {
            std::fprintf(stderr, "%s is too large: %dx%d\n", name, size.width(), size.height());
        }
        const QString file = m_folder + QLatin1Char('/') + QLatin1String(name) + QStringLiteral(".png");
        if (!window->grab().save(file)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
        }
    }

    /// Calls `open`, which runs a modal window, and in that window `then`.
    static void inModal(const std::function<void()>& open, const std::function<void(QDialog*)>& then)
    {
        QTimer waiting;
        QObject::connect(&waiting, &QTimer::timeout, &waiting, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || dialog == m_inside) {
                return;
            }
            waiting.stop();
            QDialog* const outer = m_inside;
            m_inside = dialog;
            then(dialog);
            m_inside = outer;
            dialog->reject();
        });
        waiting.start(0);
        open();
    }

    void modal(const char* name, const std::function<void()>& open)
    {
        inModal(open, [&](QDialog* dialog) { take(dialog, name); });
    }

  private:
    QString m_folder;
    static QDialog* m_inside;
};
QDialog* Photographer::m_inside = nullptr;

MRL_H_TableWidget* tableWith(QWidget* window, int columnId)
{
    for (auto* table : window->findChildren<MRL_H_TableWidget*>()) {
        if (table->isVisible() && table->getColumnNumber(columnId) >= 0) {
            return table;
        }
    }
    return nullptr;
}

void type(MRL_H_TableWidget* table, int row, int columnId, const QString& text)
{
    table->setFocus();
    table->setCurrentCell(row, table->getColumnNumber(columnId));
    QTest::keyClick(table, Qt::Key_F2);
    QLineEdit* editor = nullptr;
    for (auto* candidate : table->viewport()->findChildren<QLineEdit*>()) {
        if (candidate->isVisible()) {
            editor = candidate;
        }
    }
    if (!editor) {
        return;
    }
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
}

void press(QWidget* window, const char* name)
{
    for (auto* button : window->findChildren<QPushButton*>(QLatin1String(name))) {
        if (button->isVisible()) {
            button->click();
            return;
        }
    }
}

// As wide as a page of the manual, and as high as what it tells of.
constexpr QSize MAIN_WINDOW(960, 620);
constexpr QSize MANAGER(960, 460);
constexpr int LETTERS = 9; // points, as on a common desktop; the platform without a display has larger ones

void managers(MainWindow& window, Photographer& camera)
{
    Photographer::inModal([&] { window.openManager(Manager::Actions); },
                          [&](QDialog* dialog) {
                              dialog->resize(MANAGER.boundedTo(screen()));
                              camera.take(dialog, "action-manager");
                              camera.modal("new-action", [&] { press(dialog, "button_new"); });
                              if (auto* table = tableWith(dialog, ACT_COL_GAMF)) {
                                  type(table, 0, ACT_COL_GAMF, QStringLiteral("9"));
                              }
                              camera.take(dialog, "action-manager-wrong-value");
                              camera.modal("invalid-input", [&] { press(dialog, "button_ok"); });
                              dialog->findChild<QToolButton*>(QStringLiteral("button_findings"))->click();
                              camera.take(dialog, "findings");
                              camera.modal("leaving", [&] { dialog->close(); });
                          });
    Photographer::inModal([&] { window.openManager(Manager::LoadCases); },
                          [&](QDialog* dialog) {
                              dialog->resize(MANAGER.boundedTo(screen()));
                              camera.take(dialog, "loadcase-manager");
                              auto* filter = dialog->findChild<QLineEdit*>(QStringLiteral("line_filter"));
                              filter->setText(QStringLiteral("=W"));
                              QTest::keyClick(filter, Qt::Key_Down); // applies it at once
                              camera.take(dialog, "loadcase-manager-filter");
                              filter->clear();
                              QTest::keyClick(filter, Qt::Key_Down);
                              if (auto* table = tableWith(dialog, LC_COL_TITLE)) {
                                  table->setFocus();
                                  table->selectRow(1);
                                  camera.modal("copy-load-case", [&] { press(dialog, "button_copy"); });
                                  camera.modal("delete-load-case", [&] { press(dialog, "button_delete"); });
                              }
                          });
}

/// The steps of the document, what one of them changed, and a file that another program has changed.
void steps(MainWindow& window, Photographer& camera)
{
    auto* document = window.findChild<mrl::workbench::Document*>();
    const auto retitle = [](int db, const char* title) {
        int number = 1;
        tagCDB_LC_CTRL record{};
        if (mrl_lc_get(db, number, record)) {
            lcm_title_pack(QString::fromLatin1(title), record.title, LC_TITLE_WORDS);
            mrl_lc_put(db, number, record);
        }
    };
    document->runStep(MainWindow::tr("Acceptance in the managers"),
                      [&] { retitle(document->database(), "Dead load"); });
    auto* panel = window.findChild<mrl::workbench::HistoryPanel*>();
    panel->show();
    camera.take(panel->isFloating() ? static_cast<QWidget*>(panel) : &window, "history");
    camera.modal("changes", [&] { press(panel, "button_step_changes"); });
    retitle(document->fileDatabase(), "Of another program");
    camera.modal("conflict", [&] { window.slot_save(); });
    panel->hide();
}

/// The page of combinations: the situations with a list, and what governs a response.
void combinations(MainWindow& window, const QString& responses, Photographer& camera)
{
    auto* page = window.findChild<CombinationsPage*>();
    window.findChild<QTabWidget*>(QStringLiteral("project_tabs"))->setCurrentWidget(page);
    camera.take(&window, "combinations");
    const QString problem = page->openResponses(responses);
    if (!problem.isEmpty()) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(responses), qPrintable(problem));
    }
    auto* table = page->findChild<QTableView*>(QStringLiteral("table_extremes"));
    table->setCurrentIndex(table->model()->index(2, 3));
    camera.take(&window, "combinations-extremes");
}

/// A factor that was changed, and where it comes from.
void origins(MainWindow& window, Photographer& camera)
{
    mrl::workbench::storeExtras(true);
    Photographer::inModal([&] { window.openManager(Manager::Actions); },
                          [&](QDialog* dialog) {
                              dialog->resize(MANAGER.boundedTo(screen()));
                              if (auto* table = tableWith(dialog, ACT_COL_PSI0)) {
                                  type(table, 3, ACT_COL_PSI0, QStringLiteral("0.6"));
                                  table->setCurrentCell(3, table->getColumnNumber(ACT_COL_PSI0));
                              }
                              camera.take(dialog, "action-manager-origins");
                              // So that nobody is asked about the unsaved step.
                              QTest::keyClick(dialog, Qt::Key_Z, Qt::ControlModifier);
                          });
    mrl::workbench::storeExtras(false);
}

/// An import of a table in which everything happens: new, changed, unchanged and refused rows, a heading that means
/// nothing, and a title that is cut.
void tables(MainWindow& window, Photographer& camera)
{
    // Beside the project, and without a path in the picture.
    QDir::setCurrent(QFileInfo(window.document().file()).absolutePath());
    QFile table(QStringLiteral("cases.csv"));
    if (!table.open(QIODevice::WriteOnly)) {
        return;
    }
    table.write("number;title;action;Gamu;Remark\n1;Roof and everything that stands upon it;G;;\n"
                "2;Live load;Q_A;1,35;\n90;Snow;S;;new\n91;Crane;XX;;\n3;Facade;G;;\n");
    table.close();
    Photographer::inModal([&] { window.slot_import(); },
                          [&](QDialog* dialog) {
                              auto* import = qobject_cast<mrl::workbench::ImportDialog*>(dialog);
                              import->openFile(table.fileName());
                              camera.take(dialog, "import");
                              dialog->findChild<QTabWidget*>()->setCurrentIndex(1);
                              camera.take(dialog, "import-columns");
                          });
    Photographer::inModal([&] { window.slot_export(); },
                          [&](QDialog* dialog) {
                              camera.take(dialog, "export");
                              auto* format = dialog->findChild<QComboBox*>(QStringLiteral("combo_format"));
                              format->setCurrentIndex(format->findData(QStringLiteral("saf")));
                              camera.take(dialog, "export-losses");
                          });
    camera.modal("report", [&] { window.slot_report(); });
}

/// The help of the managers, and a page of the manual.
void help(MainWindow& window, Photographer& camera)
{
    window.slot_help();
    auto* pages = window.findChild<QTextBrowser*>(QStringLiteral("help browser"));
    camera.take(pages->window(), "help");
    MRL_T_Help::show(&window, "manual", "actions");
    camera.take(pages->window(), "manual");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fprintf(stderr, "usage: %s FOLDER PROJECT RESPONSES [en|de]\n", argv[0]);
        return 2;
    }
    mrl::workbench::initResources();
    const bool german = argc > 4 && qstrcmp(argv[4], "de") == 0;
    mrl::settings::setLanguage(german ? mrl::settings::German : mrl::settings::English);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setOrganizationName(QStringLiteral("marlavon"));
    QCoreApplication::setApplicationName(QStringLiteral("mrl-workbench"));
    QCoreApplication::setApplicationVersion(QStringLiteral("1.0.0"));
    MRL_QT_Application application(argc, argv);
    QFont font = QApplication::font();
    font.setPointSize(LETTERS);
    QApplication::setFont(font);
    if (qEnvironmentVariableIsSet("MRL_PICTURE_DARK")) {
        darken();
    }
    mrl::workbench::turnExtrasOnAtFirst();
    Photographer camera(QString::fromLocal8Bit(argv[1]));

    MainWindow window;
    window.resize(MAIN_WINDOW.boundedTo(screen()));
    window.show();
    camera.take(&window, "start");
    mrl::workbench::NewProjectDialog create(QStringLiteral("/projects"), &window);
    create.show();
    camera.take(&create, "new-project");
    create.hide();
    if (!window.openProject(QString::fromLocal8Bit(argv[2]))) {
        return 1;
    }
    camera.take(&window, "workbench");
    auto* summaryTabs = window.findChild<QWidget*>(QStringLiteral("summary"))->findChild<QTabWidget*>();
    summaryTabs->setCurrentIndex(1);
    camera.take(&window, "workbench-load-cases");
    summaryTabs->setCurrentIndex(0);
    auto* tabs = window.findChild<QTabWidget*>(QStringLiteral("project_tabs"));
    tabs->setCurrentIndex(1);
    camera.take(&window, "generated-input");
    combinations(window, QString::fromLocal8Bit(argv[3]), camera);
    tabs->setCurrentIndex(0);
    camera.modal("settings", [&] { window.slot_settings(); });
    camera.modal("about", [&] { window.slot_about(); });
    camera.modal("recode", [&] { window.recode(QStringLiteral("bs-en1990-na")); });
    tables(window, camera);
    managers(window, camera);
    steps(window, camera);
    origins(window, camera);
    help(window, camera);
    return 0;
}
