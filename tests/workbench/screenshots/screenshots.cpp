// Takes pictures of every window of the workbench and the managers: screenshots FOLDER PROJECT RESPONSES [en|de]
// Windows that open modally are photographed from within their own event loop.
#include <QCommandLinkButton>
#include <QDir>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

#include <cstdio>
#include <functional>

#include "host/mrl_table.h"
#include "host/mrl_textlist.h"
#include "hostlib/data/settings/settings.h"
#include "rules/action_columns.h"
#include "rules/load_case_columns.h"
#include "workbench/combinations/combinations_page.h"
#include "workbench/main_window.h"
#include "workbench/new_project_dialog.h"
#include "workbench/resources.h"
#include "workbench/settings_dialog.h"

namespace {

using mrl::workbench::CombinationsPage;
using mrl::workbench::MainWindow;
using mrl::workbench::Manager;

// As in the program itself, and so that the pictures show what a person sees.
const MRL_QT_InitTranslator translator("mrl_workbench");

class Photographer
{
  public:
    explicit Photographer(const QString& folder) : m_folder(folder) { QDir().mkpath(folder); }

    void take(QWidget* window, const char* name)
    {
        window->ensurePolished();
        QApplication::processEvents();
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

// As on a screen of common size; the one without a display is smaller.
constexpr QSize MAIN_WINDOW(1200, 760);
constexpr QSize MANAGER(1150, 600);

void managers(MainWindow& window, Photographer& camera)
{
    Photographer::inModal([&] { window.openManager(Manager::Actions); },
                          [&](QDialog* dialog) {
                              dialog->resize(MANAGER);
                              camera.take(dialog, "action-manager");
                              camera.modal("new-action", [&] { press(dialog, "button_new"); });
                              if (auto* table = tableWith(dialog, ACT_COL_GAMF)) {
                                  type(table, 0, ACT_COL_GAMF, QStringLiteral("9"));
                              }
                              camera.take(dialog, "action-manager-wrong-value");
                              camera.modal("invalid-input", [&] { press(dialog, "button_ok"); });
                          });
    Photographer::inModal([&] { window.openManager(Manager::LoadCases); },
                          [&](QDialog* dialog) {
                              dialog->resize(MANAGER);
                              camera.take(dialog, "loadcase-manager");
                              if (auto* table = tableWith(dialog, LC_COL_TITLE)) {
                                  table->setFocus();
                                  table->selectRow(1);
                                  camera.modal("copy-load-case", [&] { press(dialog, "button_copy"); });
                                  camera.modal("delete-load-case", [&] { press(dialog, "button_delete"); });
                              }
                          });
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
    Photographer camera(QString::fromLocal8Bit(argv[1]));

    MainWindow window;
    window.resize(MAIN_WINDOW);
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
    managers(window, camera);
    window.slot_help();
    QApplication::processEvents();
    for (QWidget* help : QApplication::topLevelWidgets()) {
        if (help->isVisible() && help != &window && !qobject_cast<QMenu*>(help)) {
            camera.take(help, "help");
        }
    }
    return 0;
}
