#pragma once

#include <set>
#include <vector>

#include "host/mrl_table.h"

class LCM_LoadcaseWidget;

/// The table of load cases.
class TableLoadCases : public MRL_H_TableWidget
{
    Q_OBJECT
  public:
    TableLoadCases(int columns, LCM_LoadcaseWidget* tab, const char* name);
    ~TableLoadCases() override;

    int numberOfRow(int row) const;
    /// The numbers of all rows, in their order.
    std::vector<int> numbers() const;
    /// Selects whole rows, in one step however many there are. @param current the row of the current cell
    void selectWholeRows(const std::set<int>& rows, int current);

    MRL_QT_Action* deleteUnusedAction;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    LCM_LoadcaseWidget* m_widget; ///< the tab that owns the table
};

/// The delegate of the table of load cases. A factor of a load case with an action is offered as "Use from
/// Action".
class MyDelegate : public MRL_H_DelegateItem
{
    Q_OBJECT
  public:
    MyDelegate(TableLoadCases* loadcases, LCM_LoadcaseWidget* tab);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

  private slots:
    void slot_closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint);

  private:
    TableLoadCases* m_table;      ///< parent of this
    LCM_LoadcaseWidget* m_widget; ///< the tab that owns the table
};

/// Removes the selected rows and selects the row that followed them, or the new last one.
void removeSelectedRows(TableLoadCases* table);
