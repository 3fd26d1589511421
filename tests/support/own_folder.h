#pragma once

#include <QTemporaryDir>

#include <string>

namespace mrl::test {

/// A folder of this process alone, with a slash at its end; gone with the process. Tests run side by side, so
/// a file of a fixed name would be somebody else's too.
inline const std::string& ownFolder()
{
    static const QTemporaryDir folder;
    static const std::string path = folder.path().toStdString() + "/";
    return path;
}

} // namespace mrl::test
