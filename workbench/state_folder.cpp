#include "workbench/state_folder.h"

#include <QDir>
#include <QFile>

namespace mrl::workbench {

QString stateFolder()
{
    // A relative path is to be ignored, as the base-directory rules of desktops have it.
    QString home = QFile::decodeName(qgetenv("XDG_STATE_HOME"));
    if (!QDir::isAbsolutePath(home)) {
        home = QDir::homePath() + QStringLiteral("/.local/state");
    }
    return home + QStringLiteral("/mrl-workbench");
}

} // namespace mrl::workbench
