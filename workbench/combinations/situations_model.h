#pragma once

#include "workbench/combinations/project_combinations.h"
#include "workbench/rows_model.h"

namespace mrl::workbench {

/// A situation as its row shows it.
struct SituationRow
{
    QString name;
    QString title;
    QString clause;
    QString formula;
    QString remarks;
    QString count;
};

/// The situations of the design code.
class SituationsModel : public RowsModel<SituationRow>
{
    Q_OBJECT
  public:
    enum Column { Title, Clause, Formula, Count, Columns };

    explicit SituationsModel(QObject* parent);
    void show(const ProjectCombinations& combinations);

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return Columns; }
    QString caption(int section) const override;
};

} // namespace mrl::workbench
