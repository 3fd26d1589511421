#pragma once

/// The stored actions and load cases as read-only tables. They keep the records and format what is looked at.

#include <QAbstractTableModel>

#include "workbench/project_summary.h"

namespace mrl::workbench {

class ActionsModel : public QAbstractTableModel
{
    Q_OBJECT
  public:
    enum Column { Name, Title, Category, Superposition, FirstFactor };

    explicit ActionsModel(QObject* parent);
    void show(std::vector<LCM_StoredAction> actions, std::vector<FactorColumn> factors);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QString text(const LCM_StoredAction& action, int column) const;

    std::vector<LCM_StoredAction> m_actions;
    std::vector<FactorColumn> m_factors;
};

class LoadCasesModel : public QAbstractTableModel
{
    Q_OBJECT
  public:
    enum Column { Number, Title, Action, Dlx, Dly, Dlz, FirstFactor };

    explicit LoadCasesModel(QObject* parent);
    void show(std::vector<LCM_StoredLoadCase> loadCases, std::vector<FactorColumn> factors, int current);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    QString text(const LCM_StoredLoadCase& loadCase, int column) const;

    std::vector<LCM_StoredLoadCase> m_loadCases;
    std::vector<FactorColumn> m_factors;
    int m_current = 0;
};

class FindingsModel : public QAbstractTableModel
{
    Q_OBJECT
  public:
    explicit FindingsModel(QObject* parent);
    void show(std::vector<CheckFinding> findings);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  private:
    std::vector<CheckFinding> m_findings;
};

} // namespace mrl::workbench
