#pragma once

#include <QWidget>

class LCM_CommandLog;
class LCM_DataClass;
class MRL_H_TableWidget;
class MRL_H_TwSimpleLineEditItem;

/// The user hasn't been told yet that the inputs of the superposition may need changes. An accepted dialog
/// says so once: each tab sets this when it is made, the actions tab clears it when it shows its notice, and
/// the load-case tab, which saves later, shows its own only while it is set. GUI thread only.
extern bool modificationNoticePending;

/// The base of the manager's two tabs. While the dialog is open the rows of a tab's table hold what it edits;
/// the model receives them when the dialog is accepted.
class LCM_TabInterface : public QWidget
{
    Q_OBJECT
  public:
    /// Sets modificationNoticePending.
    LCM_TabInterface(int database, QWidget* parent, const char* name);
    ~LCM_TabInterface() override;

    /// Builds the page. The constructor of each tab calls it.
    virtual void createWidgets() = 0;
    /// Gives the rows to the model, tells the user what the changes may affect, and writes if asked to.
    /// @param writeToDatabase false: the database stays as it is
    virtual void save(bool writeToDatabase) = 0;
    /// Whether the last judgement of every row found no fault; judges nothing. A table without rows is valid,
    /// a row without a cell of column id 100 isn't.
    virtual bool isValid();
    /// Selects the first row that isn't valid and brings it into sight. Does nothing when all are.
    void showInvalidRow();
    /// Stores the verdict on a row in its cell of column id 100; does nothing without such a cell.
    void setRowValid(int row, bool valid);
    /// The stored verdict on a row.
    bool isRowValid(int row) const;

    /// The table, null until the tab has built it.
    MRL_H_TableWidget* tableWidget() const { return table; }
    /// The working model; the tabs share it by its reference count.
    LCM_DataClass* workingModel() const { return model; }
    /// Index of the project database.
    int database() const { return db; }
    /// Whether the user changed something on this tab.
    bool isModified() const { return modified; }
    /// For a change that is taken back or done again.
    void setModified(bool isModified) { modified = isModified; }
    /// @param log is told of the commands of this tab, null for nobody; outlives them
    void setCommandLog(LCM_CommandLog* log) { m_commandLog = log; }
    LCM_CommandLog* commandLog() const { return m_commandLog; }

  protected:
    MRL_H_TableWidget* table = nullptr;
    LCM_DataClass* model = nullptr; ///< shared, see LCM_DataClass::release
    int db;
    bool modified = false;

  private:
    LCM_CommandLog* m_commandLog = nullptr;

    /// @return -1 when all rows are valid
    int firstInvalidRow() const;
    MRL_H_TwSimpleLineEditItem* verdictCell(int row) const;
};
