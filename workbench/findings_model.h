#pragma once

#include "rules/finding.h"
#include "workbench/rows_model.h"

namespace mrl::workbench {

/// What the check of the project found. The texts are made for the rows that are looked at.
class FindingsModel : public RowsModel<LCM_Finding>
{
    Q_OBJECT
  public:
    explicit FindingsModel(QObject* parent);
    void show(LCM_Findings findings);

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return 2; }
    QString caption(int section) const override;
};

} // namespace mrl::workbench
