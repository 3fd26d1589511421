#pragma once

#include <QAbstractTableModel>

#include <optional>

#include "exchange/import_plan.h"

namespace mrl::workbench {

/// The rows of an import's plan. The texts are made for the rows that are looked at.
class PlanModel : public QAbstractTableModel
{
    Q_OBJECT
  public:
    enum Column { Result, Line, Kind, Name, Changes, Remarks, COLUMNS };

    explicit PlanModel(QObject* parent);

    /// @param plan outlives what is shown of it; null for none. @param only the rows with this outcome; all without
    void show(const exchange::Plan* plan, std::optional<exchange::Outcome> only);

    static QString nameOf(exchange::Outcome outcome);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    static QString text(const exchange::PlannedRow& row, int column);

    const exchange::Plan* m_plan = nullptr;
    std::vector<std::size_t> m_rows; ///< of the plan
};

} // namespace mrl::workbench
