#pragma once

#include <cstddef>
#include <set>
#include <vector>

#include "lcdata/values/records.h"

class LCM_RowActions;
class LCM_DataClass;
class QWidget;
class TableLoadCases;
struct LCM_LoadcaseCopy;

/// How load cases leave the table. They leave the database on saving.
class LCM_LoadCaseDeletion
{
  public:
    LCM_LoadCaseDeletion(TableLoadCases& table, LCM_DataClass& model, LCM_RowActions& actions)
        : m_table(table), m_model(model), m_actions(actions)
    {
    }

    /// Asks the user whether these load cases may go, by their number and, where the host wants it, by name.
    static bool confirmed(QWidget* parent, const std::set<int>& numbers, std::size_t count);
    /// Removes the selected rows. Each takes one note with it, the first with its number.
    void removeSelected(std::vector<LCM_LoadcaseCopy>& copies);
    /// Removes all rows that have one of the actions. Notes of copies stay.
    void removeLoadCasesOf(const std::vector<tagCDB_LC_ACT>& actions);

  private:
    TableLoadCases& m_table;
    LCM_DataClass& m_model;
    LCM_RowActions& m_actions;
};
