#pragma once

#include "host/mrl_framework.h"

class LCM_ActionsWidget;
class LCM_Extras;
class LCM_LoadcaseWidget;
class LCM_TabInterface;
class QTabWidget;
struct MRL_LC_CtrlStruct;

/// The one dialog of the system: the actions tab, the load-case tab, or both, over a line that says which
/// design code applies.
class LoadcaseManager : public MRL_H_Dialog
{
    Q_OBJECT
  public:
    /// @param parameter outlives the dialog. @param control what is wanted; outlives the dialog and receives
    /// the selections and copies. @param db index of the document's database
    LoadcaseManager(MRL_H_PluginParameter* parameter, MRL_LC_CtrlStruct* control, int db);
    ~LoadcaseManager() override;

    /// As the base does; when the dialog stays open, `copies` and `mode` of the control structure are as they
    /// were before.
    void accept() override;

  public slots:
    void slot_tabChanged(int index);
    /// Ends the dialog with MRL_LC_DELETE_UNUSED: nothing is checked and nothing saved.
    void slot_deleteUnusedLoadcases();

  protected:
    int createContents(QBoxLayout* layout) override;
    void initContents() override;
    bool checkContents() override;
    void saveContents() override;
    void noOpHook() override;
    void showHelp() override;
    /// Esc and the window's close button ask before steps are lost, where the host wants it.
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void createTabs();
    void createActionsTab();
    void createLoadCaseTab();
    void addInfoLine(QBoxLayout* layout);
    void createExtras(QBoxLayout* layout);
    bool mayLoseSteps();
    QString infoText() const;
    bool refuseInvalid(LCM_TabInterface* tab);
    bool takeSelectedLoadCases();

    QTabWidget* m_tabs = nullptr;
    LCM_ActionsWidget* m_actions = nullptr;    ///< null without an actions tab
    LCM_LoadcaseWidget* m_loadCases = nullptr; ///< null without a load-case tab
    MRL_LC_CtrlStruct* m_control;
    int m_db;
    /// Null unless the host wants more than the plain form. Child of this, but it ends before the tabs.
    std::unique_ptr<LCM_Extras> m_extras;
};
