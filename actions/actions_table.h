#pragma once

#include <functional>

#include "host/mrl_table.h"

class MRL_QT_Action;
class QMenu;

/// The table of the actions tab.
class MRL_LC_ActionsTable : public MRL_H_TableWidget
{
    Q_OBJECT
  public:
    MRL_LC_ActionsTable(int columns, QWidget* parent, const char* name);
    ~MRL_LC_ActionsTable() override;

    /// The commands that the context menu offers beside the standard entries; owned by the tab.
    void setReinitActions(MRL_QT_Action* all, MRL_QT_Action* selected);

    /// What else goes into the context menu; null for nothing.
    void setMenuExtension(std::function<void(QMenu&)> extend) { m_extendMenu = std::move(extend); }

  protected:
    /// The standard menu with "Reinit all actions" and, when a row is selected, "Reinit selected actions".
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    MRL_QT_Action* m_reinitAllAction = nullptr;
    MRL_QT_Action* m_reinitSelectedAction = nullptr;
    std::function<void(QMenu&)> m_extendMenu;
};
