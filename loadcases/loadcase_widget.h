#pragma once

#include <memory>
#include <set>
#include <vector>

#include "actions/load_case_tab.h"
#include "actions/tab_interface.h"
#include "check/finding_text.h"
#include "lcdata/values/records.h"
#include "loadcases/loadcase_copy.h"
#include "rules/load_case_row.h"

class LCM_ActionList;
class LCM_RowActions;
class LCM_ActionsWidget;
class LCM_LoadCaseNumbering;
class LCM_LoadCaseReconciliation;
class LCM_LoadCaseRows;
class MRL_QT_CheckBox;
class QBoxLayout;
class TableLoadCases;
struct LCM_LoadcaseEntry;
struct LCM_RowContext;

/// The load-case tab: the table of load cases with its commands. The rows are the live copy while the dialog
/// is open; the working model gets them back on saving.
///
/// A load case with an action has no factors of its own. Its row shows the action's present factors in
/// disabled cells, and its record holds the undefined value.
///
/// This class is what others call; its parts (the rows, their actions, the numbering, and a part for each
/// kind of command) do the work on the table.
class LCM_LoadcaseWidget : public LCM_TabInterface, public LCM_LoadCaseTab
{
    Q_OBJECT
  public:
    LCM_LoadcaseWidget(int database, QWidget* parent, const char* name);
    ~LCM_LoadcaseWidget() override;

    void createWidgets() override;
    void save(bool writeToDatabase) override;

    /// Fills the empty table from the working model and reads the two settings.
    void fillTable();
    /// Links the actions tab: connects its signals and rebuilds the list of actions.
    void setActionsWidget(LCM_ActionsWidget* actions);
    /// Gives the table the focus and selects the rows of all these numbers; a number without a row is passed
    /// over. Nothing happens with an empty set.
    void selectLoadcases(const std::set<int>& numbers);
    /// @param numbers [out] the numbers of the selected rows
    void getSelectedLoadcases(std::set<int>& numbers);
    std::vector<LCM_LoadcaseCopy> getCopies() const;
    /// For a change that is taken back or done again.
    void setCopies(std::vector<LCM_LoadcaseCopy> rest) { copies = std::move(rest); }
    /// What the action column offers, to be put back by offerActions. The same object until the list changes.
    std::shared_ptr<const LCM_ActionList> offeredActions() const;
    /// Offers these actions in the place of the present ones. Moves no row to another action.
    void offerActions(const LCM_ActionList& actions);
    /// The rows have changed without a command of this tab.
    void forgetUsedActions();

    LCM_DataClass* workingModel() const override { return model; }
    bool isActionUsed(const tagCDB_LC_ACT& action) override;
    QString describeLoadCasesOf(const std::vector<tagCDB_LC_ACT>& actions) override;
    void removeActionLoadcases(const tagCDB_LC_ACT& action) override;
    void removeLoadCasesOf(const std::vector<tagCDB_LC_ACT>& actions) override;

    /// Shows an entry in a row.
    void fillRow(int row, const LCM_LoadcaseEntry& entry);
    /// The reverse of fillRow: the entry that a row means. A row whose action is missing gives the action
    /// word that it came with.
    void readRow(int row, LCM_LoadcaseEntry& entry);
    /// Judges a row, colours its cells and gives them their tool tips. The verdict isn't stored.
    /// @return true for a valid row, and always without an actions tab
    bool checkRow(int row);
    /// Judges all rows anew. Unlike after an edit, a valid row also loses the colours and tool tips that it got
    /// with an action which it no longer has.
    void judgeAllRows();
    /// What a judgement of the row finds now, by column id; an action that is missing too. Shows and stores nothing.
    LCM_ErrorList errorsOf(int row) const;
    /// The value of a cell, LC_UNDEFINED when it has none.
    float getItemVal(int row, int colId);
    QString getItemText(int row, int colId);
    bool isItemFromAction(int row, int colId);
    void setItemFromAction(int row, int colId, bool fromAction);
    /// Chooses the entry of an action cell by its code or the lower-case form of it; where the list has
    /// neither the row shows the marker of a missing action.
    void setActionItem(int row, int colId, int code);
    /// Keeps the mate of an edited factor cell in step: of a pair either both follow the action or none.
    void updateCoupledItem(int row, int colId);
    /// The value that the row's action has for a factor column, LC_UNDEFINED when there is none.
    float getActionVal(int row, int colId);
    /// What an operation on rows needs to know beside the rows. Good for one operation.
    LCM_RowContext rowContext() const;

    void createLoadcases(bool copy);
    bool addLoadcase(bool copy, LCM_LoadcaseEntry& entry, std::set<int>& rows, LCM_LoadcaseCopy& info);
    /// Appends plain new load cases of these numbers, which have to be free.
    void appendNewLoadcases(const std::vector<int>& numbers);
    /// @return the number of the new load case, -99999 when the user gave up
    int askNumber(bool copy, LCM_LoadcaseCopy& info);
    int nextNumber();
    /// @param out [out] receives the numbers of all rows
    void getAllLoadcases(std::set<int>& out);

  signals:
    void signal_deleteUnusedLoadcases();

  public slots:
    void slot_newClicked();
    void slot_copyClicked();
    void slot_deleteClicked();
    void slot_actionCountChanged();
    /// @param row, col the changed cell of the actions table, by position
    void slot_actionValuesChanged(int row, int col);
    /// @param row, col the edited cell, by position
    void slot_cellChanged(int row, int col);
    void slot_checkDeadloadChanged(int state);
    /// @param rows the re-initialised rows of the actions table
    void slot_reinitActions(std::set<int> rows);
    /// Writes a number into a cell; LC_UNDEFINED: the cell follows the action.
    void setItemVal(int row, int colId, float val, bool enabled);

  private:
    void setupTable();
    void createButtons(QBoxLayout* column);
    void createCheckBoxes(QBoxLayout* line);
    void appendRows(const std::vector<LCM_LoadcaseEntry>& entries);
    void notifyModification();
    /// Asks the project for its system: ahead of each pass over all rows, and not for each row.
    void readSystem();
    LCM_LoadCaseReconciliation reconciliation();

    TableLoadCases* loadcaseTable = nullptr;    ///< the base's table with its full type
    LCM_ActionsWidget* actionsWidget = nullptr; ///< the actions tab, not owned; null without one
    MRL_QT_CheckBox* checkDeadload = nullptr;
    MRL_QT_CheckBox* checkIncrease = nullptr;
    std::vector<LCM_LoadcaseCopy> copies;

    LCM_LoadCaseSetup m_setup;       ///< the system as it was read last
    bool m_componentsFitted = false; ///< the columns of the dead weight's components were shown once
    // They work on the table and live as long as it.
    std::unique_ptr<LCM_RowActions> m_actions;
    std::unique_ptr<LCM_LoadCaseRows> m_rows;
    std::unique_ptr<LCM_LoadCaseNumbering> m_numbering;
};
