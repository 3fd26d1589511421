#include "hostlib/data/install/data_folders.h"

#include <QDir>
#include <QFileInfo>

#include <dlfcn.h>

namespace mrl::install {

namespace {

QString locateOwnFolder()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&dataFolders), &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    // A program may have been started by a relative path; its own link in /proc knows better.
    QFileInfo binary(QString::fromLocal8Bit(info.dli_fname));
    if (binary.suffix() != QLatin1String("so") && !binary.fileName().contains(QLatin1String(".so."))) {
        binary.setFile(QStringLiteral("/proc/self/exe"));
    }
    return QFileInfo(binary.canonicalFilePath()).path();
}

/// The folder of the binary that this code is part of. It doesn't move while it runs.
const QString& ownFolder()
{
    static const QString FOLDER = locateOwnFolder();
    return FOLDER;
}

} // namespace

QStringList dataFolders(const char* variable, const QString& kind)
{
    QStringList folders =
        QString::fromLocal8Bit(qgetenv(variable)).split(QDir::listSeparator(), Qt::SkipEmptyParts);
    if (!ownFolder().isEmpty()) {
        // lib/libX.so and bin/X, and lib/TRIPLET/libX.so of a multi-architecture system.
        folders << ownFolder() + QStringLiteral("/../share/mrl/") + kind
                << ownFolder() + QStringLiteral("/../../share/mrl/") + kind;
    }
    return folders;
}

} // namespace mrl::install
