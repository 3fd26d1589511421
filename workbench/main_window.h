#pragma once

#include <QMainWindow>

#include <set>

#include "workbench/document.h"
#include "workbench/managers.h"

class QLabel;
class QStackedWidget;

namespace mrl::workbench {

class CombinationsPage;
class HistoryPanel;
class InputPage;
class Recovery;
class StartPage;
class SummaryPage;
class TaskPanel;
struct NewProject;
struct ProjectSummary;
struct Snapshot;

/// The host's window: one project, its tasks, and what came of them.
class MainWindow : public QMainWindow
{
    Q_OBJECT
  public:
    MainWindow();
    ~MainWindow() override;

    /// Opens a project, after the question about unsaved changes. @return whether it is open now
    bool openProject(const QString& file);
    /// Runs a manager on the open project, or tells why not.
    /// @param loadCases to be selected in it
    void openManager(Manager which, const std::set<int>& loadCases = {});
    /// Asks for another design code of the open project and gives it to it.
    /// @param code the name of the one that is proposed
    void recode(const QString& code);
    const Document& document() const { return *m_document; }
    /// Offers what runs that ended unexpectedly have left. @return whether a project was recovered and is open
    bool offerRecovery();

  public slots:
    void slot_new();
    void slot_open();
    /// @return whether the project is saved now
    bool slot_save();
    bool slot_saveAs();
    void slot_close();
    void slot_import();
    void slot_export();
    /// Shows the report of the project, which can be saved from there.
    void slot_report();
    void slot_recode();
    /// Keeps a copy of the design code in the project; it is saved with it.
    void slot_keepCode();
    void slot_settings();
    void slot_help();
    void slot_about();

  protected:
    void closeEvent(QCloseEvent* event) override;
    /// A project's file that is dropped here is opened.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private slots:
    void slot_replaced();
    void slot_changed();
    void slot_fillRecentMenu();

  private:
    void createActions();
    void createFileMenu();
    void createHistory();
    void createEditMenu();
    void createOtherMenus();
    void createToolBar();
    QWidget* createProjectPage();
    /// Asks about unsaved changes. @return false when the project is to stay
    bool mayGiveUp();
    /// Makes a project and opens it, or tells why not. @return whether it is open now
    bool createAndOpen(const NewProject& wish);
    bool saved(const Document::Result& result);
    bool overwriteConflict();
    bool chooseInConflict();
    void reload();
    /// Runs the dialog as a module of the package does, and tells what came of it.
    void runDialog(Manager which, const std::set<int>& loadCases);
    void tellAccepted(const ProjectSummary& before, const MRL_LC_CtrlStruct& control, int rewritten);
    /// Tells the history what was edited. @return how many records the acceptance rewrote besides
    int noteEdited();
    void goToStep(int done);
    void showChanges(int step);
    void recover(const QString& file, const Snapshot& snapshot);
    void deleteUnusedLoadCases();
    /// Asks whether a project with findings is to be saved. @return false when the user wants to see them first
    bool maySaveFindings();
    /// Why no manager can run; empty when they can.
    QString managerRefusal() const;
    void refreshProject();
    void refreshTitle();
    QString folder() const;
    void restorePlace();

    Managers m_managers;
    Document* m_document;
    QStackedWidget* m_pages = nullptr;
    StartPage* m_start = nullptr;
    QWidget* m_project = nullptr;
    TaskPanel* m_tasks = nullptr;
    SummaryPage* m_summary = nullptr;
    InputPage* m_input = nullptr;
    CombinationsPage* m_combinations = nullptr;
    HistoryPanel* m_history = nullptr;
    Recovery* m_recovery = nullptr;
    QLabel* m_place = nullptr;
    QMenu* m_recentMenu = nullptr;
    QAction* m_newAction = nullptr;
    QAction* m_openAction = nullptr;
    QAction* m_saveAction = nullptr;
    QAction* m_saveAsAction = nullptr;
    QAction* m_closeAction = nullptr;
    QAction* m_importAction = nullptr;
    QAction* m_exportAction = nullptr;
    QAction* m_reportAction = nullptr;
    QAction* m_actionsAction = nullptr;
    QAction* m_loadCasesAction = nullptr;
    QAction* m_recodeAction = nullptr;
    QAction* m_keepCodeAction = nullptr;
};

} // namespace mrl::workbench
