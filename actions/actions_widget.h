#pragma once

#include <QString>

#include <map>
#include <set>
#include <vector>

#include "actions/tab_interface.h"
#include "check/finding_text.h"
#include "lcdata/values/records.h"

class LCM_LoadCaseTab;
class LCM_RowCells;
class MRL_LC_ActionsTable;
struct LCM_NewAction;
class MRL_QT_Action;
class QBoxLayout;

/// The tab on which the engineer edits the project's actions. Its rows are the truth about actions while the
/// dialog is open; only new and deleted actions change the model's tree at once, since the new-action dialog
/// reads that tree.
class LCM_ActionsWidget : public LCM_TabInterface
{
    Q_OBJECT
  public:
    /// @param loadCaseTab the load-case tab, whose model is shared; null: this tab makes a model of its own
    /// @param dialogOption handed to the new-action dialog; bit 0 leaves its user-defined half out
    LCM_ActionsWidget(LCM_LoadCaseTab* loadCaseTab, int database, int dialogOption, QWidget* parent,
                      const char* name);
    ~LCM_ActionsWidget() override;

    void createWidgets() override;
    void save(bool writeToDatabase) override;

    /// Fills the empty table with one row for each active action of the model.
    void fillTable();
    /// Reads a row into a record. @param action [out] is written whole @return the action code
    int readRow(int row, tagCDB_LC_ACT& action);
    /// Reads all rows, in their order. @param actions [out] is replaced
    void readAllRows(std::vector<tagCDB_LC_ACT>& actions);
    /// Finds the row of an action code. @param action [out] as it was when there is no such row
    bool findAction(int code, tagCDB_LC_ACT& action);
    /// The same for the action word of a load case.
    bool findAction(const tagCDB_LC_CTRL& loadcase, tagCDB_LC_ACT& action);
    /// The records of all rows by action code. Good until the next change of the table.
    const std::map<int, tagCDB_LC_ACT>& getActionMap();
    bool actionExists(int code);
    /// Whether the design code shows a factor column other than that of `Gama`.
    bool hasFactorColumns() const;
    /// @param codes [out] the action codes of the selected rows; -1 stands for a row without a code
    void getSelectedActionCodes(std::set<int>& codes) const;

    /// Whether the new-action dialog offers names of the user's own.
    bool offersOwnActions() const;
    /// Adds actions as the new-action dialog does, behind the last row.
    void appendNewActions(const std::vector<LCM_NewAction>& actions);

    /// Judges all rows anew.
    void judgeAllRows();
    /// What a judgement of the row finds now, by column id. Shows and stores nothing.
    LCM_ErrorList errorsOf(int row) const;
    /// The rows have changed without a command of this tab.
    void forgetRowCache() { rowCacheDirty = true; }
    MRL_LC_ActionsTable* actionsTable() const { return m_actionsTable; }

  signals:
    void signal_newAction();
    /// Never emitted; kept for callers that connect to it.
    void signal_deleteAction();
    /// Rows came or went.
    void signal_actionCountChanged();
    /// The user changed a cell. Comes after the judgement. @param row, col positions in the table
    void signal_actionValuesChanged(int row, int col);
    /// Rows were put back to the values of the design code. @param rows their positions
    void signal_reinitActions(std::set<int> rows);

  public slots:
    /// Activates every action that the project hasn't yet.
    void slot_addAllClicked();
    /// Runs the new-action dialog and adds its action.
    void slot_newClicked();
    /// Deletes the selected actions; asks first where load cases use them.
    void slot_deleteClicked();
    /// Judges the selected rows and emits signal_actionValuesChanged.
    void slot_cellChanged(int row, int col);
    /// Puts every row that the design code knows back to its values.
    void slot_reInitAllActions();
    /// The same for the selected rows.
    void slot_reInitSelectedActions();

  protected:
    /// The table's standard menu with "Reinit all actions", for a click outside the table.
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void setupTable();
    void createCommands();
    QBoxLayout* createButtons(QWidget* box);

    QString cellText(int row, int column) const;
    void fillRow(int row, const tagCDB_LC_ACT& action, bool check);
    void fillRow(const LCM_RowCells& cells, const tagCDB_LC_ACT& action, bool check);
    LCM_ErrorList errorsOf(const LCM_RowCells& cells) const;
    bool checkRow(const LCM_RowCells& cells);
    void appendRow(const tagCDB_LC_ACT& action);
    void bringIntoSight(int row);

    void reinitialise(const std::set<int>& rows, bool reportAll);

    int m_dialogOption;
    MRL_LC_ActionsTable* m_actionsTable = nullptr; ///< the base's table with its full type
    LCM_LoadCaseTab* m_loadCaseTab;                ///< not owned; null in a dialog of the actions alone
    MRL_QT_Action* m_reinitAllAction = nullptr;
    MRL_QT_Action* m_reinitSelectedAction = nullptr;
    std::map<int, tagCDB_LC_ACT> rowCache; ///< the records of all rows, as of the last rebuild
    bool rowCacheDirty = true;
};
