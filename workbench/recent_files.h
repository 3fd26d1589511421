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

/// The file as a person reads it: with the separators of the system, and the home folder as "~".
QString shownPath(const QString& file);

} // namespace mrl::workbench
