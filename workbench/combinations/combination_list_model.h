#pragma once

#include "workbench/combinations/project_combinations.h"
#include "workbench/rows_model.h"

namespace mrl::workbench {

/// One combination of a list.
struct CombinationRow
{
    QString leading;
    QString expression;
    QString key;
};

/// All combinations of a situation, where they are few enough to be read.
class CombinationListModel : public RowsModel<CombinationRow>
{
    Q_OBJECT
  public:
    enum Column { Key, Leading, Expression, Columns };
    static constexpr int MOST = 1000;

    explicit CombinationListModel(QObject* parent);
    /// @param planned null: an empty list. More than MOST aren't listed either
    void show(const ProjectCombinations::Planned* planned);

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return Columns; }
    QString caption(int section) const override;
};

} // namespace mrl::workbench
