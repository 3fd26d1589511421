#pragma once

#include <optional>

#include "rules/load_case_numbers.h"

class LCM_DataClass;
class QWidget;
class TableLoadCases;
struct LCM_LoadcaseCopy;

/// Which numbers new load cases get.
class LCM_LoadCaseNumbering
{
  public:
    /// The number when the user gave up.
    static constexpr int CANCELLED = -99999;

    /// @param tab parent of the number dialog. All outlive this.
    LCM_LoadCaseNumbering(QWidget& tab, const TableLoadCases& table, LCM_DataClass& model)
        : m_tab(tab), m_table(table), m_model(model)
    {
    }

    /// The number that the tab proposes; may be above LC_MAX_NUMBER.
    int next();
    /// Asks the user for a number, and for the factor of a copy.
    /// @param info [in, out] proposes target and factor and names the source; of a copy it receives both
    /// @return the number, CANCELLED when the user gave up
    int ask(bool copy, LCM_LoadcaseCopy& info);

    /// From here to end() the selection stays as it is, so the search for numbers need not begin anew.
    void begin() { m_free.emplace(freeNumbers()); }
    void end() { m_free.reset(); }
    /// A row with this number came.
    void take(int number);

  private:
    LCM_FreeNumbers freeNumbers() const;

    QWidget& m_tab;
    const TableLoadCases& m_table;
    LCM_DataClass& m_model;
    std::optional<LCM_FreeNumbers> m_free; ///< between begin() and end()
};
