#pragma once

#include <QColor>
#include <QPainter>

#include "host/mrl_table.h"

namespace mrl::table {

/// Which cells and rows of a table bear a mark, since they hold findings. Nothing does until the table's user
/// says where the verdicts of its rows stand.
class FindingMarks
{
  public:
    explicit FindingMarks(const QTableWidget& table) : m_table(table) {}

    /// @param columnPosition the column whose cells hold the verdict; below 0: marks nothing
    /// @param role of the verdict, false for a row with a finding
    void set(int columnPosition, int role);
    bool areOn() const { return m_column >= 0; }
    bool isInvalid(int row) const;
    /// A red cell of a row with a finding.
    bool isFinding(const QModelIndex& index) const;

  private:
    const QTableWidget& m_table;
    int m_column = -1;
    int m_role = 0;
};

/// The contrast of two opaque colours, from 1 to 21, as WCAG 2.1 defines it (relative luminance).
MRL_HOST_API double contrast(const QColor& a, const QColor& b);

/// A colour of the same hue with a contrast of 4.5 at least on a background: the colour itself, or a lighter or
/// darker one.
MRL_HOST_API QColor readableOn(const QColor& background, const QColor& colour);

/// Paints the mark of a finding into the upper left corner of a cell.
void paintMark(QPainter& painter, const QRect& cell, const QColor& colour);

} // namespace mrl::table
