#pragma once

#include <QWidget>

#include "workbench/project_summary.h"

class QAbstractItemModel;
class QLabel;
class QTabWidget;
class QTableView;

namespace mrl::workbench {

class ActionsModel;
class FindingsModel;
class LoadCasesModel;

/// What the project holds, at a glance and read-only.
class SummaryPage : public QWidget
{
    Q_OBJECT
  public:
    explicit SummaryPage(QWidget* parent);
    ~SummaryPage() override;

    void show(const ProjectSummary& summary);
    /// Brings the findings to the front.
    void showFindings();
    using QWidget::show;

  signals:
    /// The user wants the project checked again.
    void checkAgain();
    /// The user wants to see these load cases in their manager.
    void loadCaseWanted(int number);
    /// The user wants to see the actions in their manager.
    void actionWanted();

  private:
    QWidget* createFacts();
    QWidget* createFindingsPage();
    QTableView* createTable(QAbstractItemModel* model, const char* name);
    void openAt(const QModelIndex& index);
    void showFacts(const ProjectSummary& summary);
    void showCounts(const ProjectSummary& summary);

    QLabel* m_designCode;
    QLabel* m_system;
    QLabel* m_gravity;
    QLabel* m_current;
    QLabel* m_noActions;
    QTabWidget* m_tabs;
    ActionsModel* m_actionsModel;
    LoadCasesModel* m_loadCasesModel;
    FindingsModel* m_findingsModel;
    QTableView* m_actions;
    QTableView* m_loadCases;
    QTableView* m_findings;
    QLabel* m_checkAgain;
};

} // namespace mrl::workbench
