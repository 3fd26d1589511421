#pragma once

#include <QWidget>

#include "workbench/managers.h"

class QCommandLinkButton;
class QLabel;

namespace mrl::workbench {

/// The tasks of the project: one entry for each manager.
class TaskPanel : public QWidget
{
    Q_OBJECT
  public:
    explicit TaskPanel(QWidget* parent);
    ~TaskPanel() override;

    /// Says how much there is to edit.
    void showCounts(int actions, int loadCases);
    /// Switches the tasks on, or off with a reason that the engineer reads.
    void setRefusal(const QString& reason);

  signals:
    void managerWanted(mrl::workbench::Manager which);

  private:
    QCommandLinkButton* createTask(Manager which, const QString& text, const char* name);

    QCommandLinkButton* m_actions = nullptr;
    QCommandLinkButton* m_loadCases = nullptr;
    QLabel* m_refusal;
};

} // namespace mrl::workbench
