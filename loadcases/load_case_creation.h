#pragma once

#include <QString>

#include <set>
#include <vector>

#include "loadcases/loadcase_copy.h"

class LCM_LoadCaseNumbering;
class LCM_LoadcaseWidget;
class TableLoadCases;
struct LCM_LoadcaseEntry;

/// One run of "New" or "Copy": the rows that it appends to the load-case table.
class LCM_LoadCaseCreation
{
  public:
    /// @param copies receives a note for each copy. All outlive this.
    LCM_LoadCaseCreation(LCM_LoadcaseWidget& tab, TableLoadCases& table, LCM_LoadCaseNumbering& numbering,
                         std::vector<LCM_LoadcaseCopy>& copies)
        : m_tab(tab), m_table(table), m_numbering(numbering), m_copies(copies)
    {
    }

    /// Makes a row of each selected row, a plain one if none is selected. Selects what it made.
    void run(bool copy);
    /// Asks for a number and appends the row of an entry. @param rows receives its position
    /// @return false if the user gave up or the number is too high
    bool add(bool copy, LCM_LoadcaseEntry& entry, std::set<int>& rows, LCM_LoadcaseCopy& info);

    /// A plain new load case of this number.
    /// @param rows that the table has before it
    LCM_LoadcaseEntry newEntry(int number, int rows);

  private:
    bool createFromSelection(bool copy, const std::set<int>& selected, LCM_LoadcaseEntry& entry,
                             std::set<int>& newRows);
    bool createWithoutSelection(LCM_LoadcaseEntry& entry, std::set<int>& newRows);
    void complete(LCM_LoadcaseEntry& entry, int rows);
    void bindDefaultAction(bool dead, LCM_LoadcaseEntry& entry);
    void appendRow(const LCM_LoadcaseEntry& entry, std::set<int>& rows);
    /// @param number of a load case whose row is selected
    void scrollToSelected(int number);
    void refuse(const QString& reason);

    LCM_LoadcaseWidget& m_tab;
    TableLoadCases& m_table;
    LCM_LoadCaseNumbering& m_numbering;
    std::vector<LCM_LoadcaseCopy>& m_copies;
};
