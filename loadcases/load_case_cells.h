#pragma once

#include <array>
#include <optional>

#include <QString>

#include "loadcases/cell_value.h"
#include "rules/load_case_row.h"

class MRL_H_TableWidget;
class QTableWidgetItem;

/// The cells of one row of the load-case table, taken at once. They stay the cells of that load case wherever
/// sorting moves the row, also in the middle of writing them.
class LCM_LoadCaseCells
{
  public:
    LCM_LoadCaseCells(const MRL_H_TableWidget& table, int row);

    /// The cell of a column, null when there is none.
    QTableWidgetItem* operator[](int column) const;

    int number() const;
    QString title() const;
    /// Id of the action cell, -1 when it is no combo cell.
    int actionId() const;
    LCM_LoadCaseDeadWeight deadWeight() const;
    LCM_LoadCaseFactors factors() const;

    /// The action word that a row with a missing action came with; none for any other row.
    std::optional<int> keptWord() const;
    void keepWord(std::optional<int> actionWord);

    void showNumber(int number);
    void showTitle(const QString& title);
    void showDeadWeight(const LCM_LoadCaseDeadWeight& values);
    /// @param input open if the factors are the load case's own
    void showFactors(const LCM_LoadCaseFactors& values, LCM_CellInput input);

  private:
    static constexpr int COLUMNS = lcm_last_load_case_column() - LC_COL_NUMBER + 1;
    std::array<QTableWidgetItem*, COLUMNS> m_cells; ///< by column id; owned by the table
};
