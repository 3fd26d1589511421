#pragma once

#include "workbench/project_summary.h"
#include "workbench/rows_model.h"

namespace mrl::workbench {

/// The stored load cases.
class LoadCasesModel : public RowsModel<LCM_StoredLoadCase>
{
    Q_OBJECT
  public:
    enum Column { Number, Title, Action, Dlx, Dly, Dlz, FirstFactor };

    explicit LoadCasesModel(QObject* parent);
    void show(std::vector<LCM_StoredLoadCase> loadCases, std::vector<FactorColumn> factors, int current);

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return FirstFactor + static_cast<int>(m_factors.size()); }
    QString caption(int section) const override;

  private:
    QString text(const LCM_StoredLoadCase& loadCase, int column) const;

    std::vector<FactorColumn> m_factors;
    int m_current = 0;
};

} // namespace mrl::workbench
