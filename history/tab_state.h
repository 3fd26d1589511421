#pragma once

#include <vector>

class LCM_TabInterface;
class MRL_H_TableWidget;
class QTableWidgetItem;

/// What a tab shows beside its rows: what is selected, the current cell, and whether the tab counts as modified.
/// Rows are remembered by one of their cells, so that they are found wherever they stand.
class LCM_TabState
{
  public:
    LCM_TabState() = default;
    explicit LCM_TabState(const LCM_TabInterface& tab);

    /// Shows it again, as far as the rows are there.
    void restore(LCM_TabInterface& tab) const;
    std::size_t bytes() const;

  private:
    struct Range
    {
        int left;
        int right;
        std::vector<const QTableWidgetItem*> rows;
    };
    void select(MRL_H_TableWidget& table) const;

    bool m_modified = false;
    std::vector<Range> m_selection;
    const QTableWidgetItem* m_current = nullptr;
    int m_currentColumn = -1;
};
