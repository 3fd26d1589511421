#pragma once

#include <map>

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
    /// @param actions whose factors stand, greyed, beside the load cases that have one of them
    void show(std::vector<LCM_StoredLoadCase> loadCases, std::vector<FactorColumn> factors, int current,
              const std::vector<LCM_StoredAction>& actions, FactorOrigins origins = {});

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return FirstFactor + static_cast<int>(m_factors.size()); }
    QString caption(int section) const override;

  private:
    QVariant origin(const QModelIndex& index, int role) const;
    QString text(const LCM_StoredLoadCase& loadCase, int column) const;
    /// The action whose factor holds in a column; null where it is the load case's own, or nobody's.
    const tagCDB_LC_ACT* actionOf(const LCM_StoredLoadCase& loadCase, int column) const;
    const FactorColumn& factorAt(int column) const;

    std::vector<FactorColumn> m_factors;
    std::map<int, tagCDB_LC_ACT> m_actions; ///< by code
    FactorOrigins m_origins;
    int m_current = 0;
};

} // namespace mrl::workbench
