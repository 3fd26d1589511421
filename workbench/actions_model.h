#pragma once

#include "workbench/project_summary.h"
#include "workbench/rows_model.h"

namespace mrl::workbench {

/// The stored actions.
class ActionsModel : public RowsModel<LCM_StoredAction>
{
    Q_OBJECT
  public:
    enum Column { Name, Title, Category, Superposition, FirstFactor };

    explicit ActionsModel(QObject* parent);
    void show(std::vector<LCM_StoredAction> actions, std::vector<FactorColumn> factors,
              FactorOrigins origins = {});

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return FirstFactor + static_cast<int>(m_factors.size()); }
    QString caption(int section) const override;

  private:
    QString text(const LCM_StoredAction& action, int column) const;
    const FactorColumn& factorAt(int column) const;

    std::vector<FactorColumn> m_factors;
    FactorOrigins m_origins;
};

} // namespace mrl::workbench
