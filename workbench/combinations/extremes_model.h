#pragma once

#include <QAbstractTableModel>

#include "workbench/combinations/project_combinations.h"

namespace mrl::workbench {

/// The extremes of responses in one situation. Keys are made when they are looked at.
class ExtremesModel : public QAbstractTableModel
{
    Q_OBJECT
  public:
    enum Column { Name, Max, MaxKey, Min, MinKey, Columns };

    explicit ExtremesModel(QObject* parent);
    ~ExtremesModel() override;

    /// @param source    null: nothing is shown. @param situation its place in it
    /// @param responses null: nothing is shown. They have a column for every load case that takes part
    void show(std::shared_ptr<const ProjectCombinations> source, std::size_t situation,
              std::shared_ptr<const Responses> responses);
    const std::vector<combine::Extremes>& extremes() const { return m_extremes; }
    /// The governing combination of a row.
    std::optional<combine::Combination> combination(int row, combine::Envelope::Direction direction) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QVariant value(const combine::Extreme& extreme) const;
    QString key(int row, combine::Envelope::Direction direction) const;

    std::shared_ptr<const ProjectCombinations> m_source; ///< m_envelope points into it
    std::shared_ptr<const Responses> m_responses;
    mutable std::unique_ptr<combine::Envelope> m_envelope;
    std::vector<combine::Extremes> m_extremes;
};

} // namespace mrl::workbench
