#pragma once

#include <optional>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "actions/load_case_tab.h"
#include "actions/tab_interface.h"
#include "lcdata/values/records.h"
#include "loadcases/action_list.h"
#include "loadcases/loadcase_copy.h"
#include "rules/load_case_numbers.h"
#include "rules/load_case_row.h"

class LCM_ActionsWidget;
class LCM_LoadCaseCells;
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

    LCM_DataClass* workingModel() const override { return model; }
    bool isActionUsed(const tagCDB_LC_ACT& action) override;
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

    void createLoadcases(bool copy);
    bool addLoadcase(bool copy, LCM_LoadcaseEntry& entry, std::set<int>& rows, LCM_LoadcaseCopy& info);
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
    void createButtons(QBoxLayout* column);
    void createCheckBoxes(QBoxLayout* line);
    void setupTable();
    void setupColumns();
    void setupFactorColumns(int position);
    void readSettings();
    void storeSettings();
    void notifyModification();

    /// Asks the project for its system: ahead of each pass over all rows, and not for each row.
    void readSystem();
    LCM_RowContext rowContext();
    int numberOfRow(int row) const;
    std::vector<int> rowNumbers() const;

    void fillCells(LCM_LoadCaseCells& cells, const LCM_LoadcaseEntry& entry, LCM_RowContext& context);
    /// The action that the row shows, null for none, the imperfection and a missing one.
    const tagCDB_LC_ACT* shownAction(const LCM_LoadCaseCells& cells, LCM_RowContext& context);
    void readCells(const LCM_LoadCaseCells& cells, LCM_LoadcaseEntry& entry, const LCM_RowContext& context);
    /// The row as it is after reading and filling it again: what follows from its action, its dead weight as
    /// it will be stored.
    void refreshCells(LCM_LoadCaseCells& cells, LCM_RowContext& context);
    /// Lets the row follow its newly chosen action; factors of its own are dropped.
    void followAction(LCM_LoadCaseCells& cells, LCM_RowContext& context);
    bool judge(int row, const LCM_LoadCaseCells& cells, LCM_RowContext& context);
    void judgeRows(const std::set<int>& rows, LCM_RowContext& context);
    /// @param word what a row keeps whose action is missing
    void bindAction(LCM_LoadCaseCells& cells, int code, int word);
    /// The action word that the row stands for.
    int actionWord(const LCM_LoadCaseCells& cells) const;
    int keptWordFor(const LCM_LoadCaseCells& cells, int markerId) const;
    /// Gives the column the list when entries were appended to it.
    void showActionList();
    void setActionEntries();
    /// Moves a row to another entry of the new list. @param former the list before
    void rebind(LCM_LoadCaseCells& cells, int newId, const LCM_ActionList& former);
    std::vector<tagCDB_LC_ACT> presentActions() const;
    /// The entries of the new list in which the ids of all rows end up.
    std::unordered_map<int, int> bindAllIds();
    bool showReinitialised(LCM_LoadCaseCells& cells, const tagCDB_LC_ACT& action);

    bool createFromSelection(bool copy, const std::set<int>& selected, LCM_LoadcaseEntry& entry,
                             std::set<int>& newRows, LCM_LoadcaseCopy& info);
    bool createWithoutSelection(LCM_LoadcaseEntry& entry, std::set<int>& newRows, LCM_LoadcaseCopy& info);
    void bindDefaultAction(bool dead, LCM_LoadcaseEntry& entry);
    /// @param number of a load case whose row is selected
    void scrollToSelected(int number);
    bool confirmDeletion(std::size_t count);
    LCM_FreeNumbers freeNumbers();
    void forgetUsedActions() { m_usedActions.reset(); }

    TableLoadCases* loadcaseTable = nullptr;    ///< child of this
    LCM_ActionsWidget* actionsWidget = nullptr; ///< the actions tab, not owned; null without one
    MRL_QT_CheckBox* checkDeadload = nullptr;   ///< child of this
    MRL_QT_CheckBox* checkIncrease = nullptr;   ///< child of this
    std::vector<LCM_LoadcaseCopy> copies;
    int m_gravity = 1;     ///< signed axis of gravity
    int m_systemClass = 0; ///< 0, 1 or 3

    LCM_ActionList m_actionList; ///< what the action column offers
    /// Ids that the action cells hold, while they are known; saves a walk over all rows for each question.
    std::optional<std::unordered_set<int>> m_usedActions;
    std::optional<LCM_FreeNumbers> m_freeNumbers; ///< only while load cases are created
};
