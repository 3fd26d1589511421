#pragma once

#include <QDockWidget>

class QListWidget;
class QPushButton;

namespace mrl::workbench {

class DocumentHistory;

/// Lists the steps that changed the open project, and goes back to any of them.
class HistoryPanel : public QDockWidget
{
    Q_OBJECT
  public:
    /// @param history outlives this
    HistoryPanel(DocumentHistory& history, QWidget* parent);

    QAction* undoAction() const { return m_undo; }
    QAction* redoAction() const { return m_redo; }

  signals:
    /// As many steps are to be done.
    void goToWanted(int done);
    /// A list of what this step changed is wanted.
    void changesWanted(int step);

  private:
    void createActions();
    void refresh();
    void showButtons();

    DocumentHistory& m_history;
    QAction* m_undo = nullptr;
    QAction* m_redo = nullptr;
    QListWidget* m_list;
    QPushButton* m_goTo;
    QPushButton* m_changes;
};

} // namespace mrl::workbench
