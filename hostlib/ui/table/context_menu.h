#pragma once

#include <QKeySequence>
#include <QPointer>

#include <functional>

#include "host/mrl_table.h"

namespace mrl::table {

/// The menu with the standard entries of a table. Their keys are shown there and handled by the table.
class ContextMenu
{
  public:
    static const QKeySequence& fillDownKey();
    static const QKeySequence& copyWithHeadersKey();

    explicit ContextMenu(MRL_H_TableWidget& table) : m_table(table) {}

    /// False: without the entries for new and delete, from the next menu that is built.
    void setNewDeleteEntries(bool on) { m_newDeleteEntries = on; }
    /// The menu, built when there is none yet or the table wants a new one each time; owned by the table.
    /// Entries that can't do anything are grey.
    MRL_QT_Menu* menu();

  private:
    void build();
    void add(const QString& text, const QKeySequence& key, const char* name, std::function<void()> command);
    void enableEntries();

    MRL_H_TableWidget& m_table;
    QPointer<MRL_QT_Menu> m_menu;
    bool m_newDeleteEntries = true;
};

} // namespace mrl::table
