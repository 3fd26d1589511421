#pragma once

#include "workbench/project_summary.h"
#include "workbench/rows_model.h"

namespace mrl::workbench {

/// What the check of the project found.
class FindingsModel : public RowsModel<CheckFinding>
{
    Q_OBJECT
  public:
    explicit FindingsModel(QObject* parent);
    void show(std::vector<CheckFinding> findings);

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return 2; }
    QString caption(int section) const override;
};

} // namespace mrl::workbench
