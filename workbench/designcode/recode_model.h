#pragma once

#include "check/recode.h"
#include "workbench/rows_model.h"

namespace mrl::workbench {

/// A plan row by row.
class RecodeModel : public RowsModel<LCM_RecodeRow>
{
    Q_OBJECT
  public:
    enum Column { Action, Becomes, What, Changes, Dropped, Breaks, LoadCases, ColumnCount };

    explicit RecodeModel(QObject* parent);
    void show(std::vector<LCM_RecodeRow> rows);
    const LCM_RecodeRow& at(int row) const { return rowOf(index(row, 0)); }

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return ColumnCount; }
    QString caption(int section) const override;

  private:
    QString text(const LCM_RecodeRow& row, int column) const;
};

} // namespace mrl::workbench
