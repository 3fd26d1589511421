#pragma once

/// Making project files.

#include <QString>

namespace mrl::workbench {

/// What the engineer chooses for a new project.
struct NewProject
{
    QString file;                    ///< path of the file to make
    QString designCode;              ///< name under which the project names its design code
    int systemClass = 0;             ///< an LCM_SystemClass
    int gravity = -3;                ///< signed axis: plus or minus 1, 2, 3 for X, Y, Z
    bool withDefaultActions = false; ///< store the default actions of the design code at once
};

/// Makes the project file, in place of a project that stands there. Such a file stays as it was when the new
/// one can't be made, and so does a file that is no project.
/// @return an empty text, or why it could not be made
QString createProject(const NewProject& wish);

} // namespace mrl::workbench
