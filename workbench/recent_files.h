#pragma once

#include <QStringList>

namespace mrl::workbench {

/// The projects that were open last, the latest first; kept in the user's settings.
class RecentFiles
{
  public:
    /// Those that still exist.
    static QStringList list();
    static void add(const QString& file);
    static void remove(const QString& file);
};

} // namespace mrl::workbench
