#include <dlfcn.h>

#include <QDir>
#include <QFileInfo>
#include <map>

#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/file_stamp.h"

namespace mrl::designcode {

namespace {

QString locateOwnFolder()
{
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&searchPath), &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    // A program may have been started by a relative path; its own link in /proc knows better.
    QFileInfo binary(QString::fromLocal8Bit(info.dli_fname));
    if (binary.suffix() != "so" && !binary.fileName().contains(".so.")) {
        binary.setFile(QStringLiteral("/proc/self/exe"));
    }
    return QFileInfo(binary.canonicalFilePath()).path();
}

/// The folder of the binary that this code is part of: the shared library, or a program that links it
/// statically. It doesn't move while it runs.
const QString& ownFolder()
{
    static const QString folder = locateOwnFolder();
    return folder;
}

/// The folders that may hold design codes, whether they exist or not.
QStringList candidateFolders()
{
    const QString own = QString::fromLocal8Bit(qgetenv("MRL_DESIGNCODE_PATH"));
    QStringList folders = own.split(':', Qt::SkipEmptyParts);
    if (!ownFolder().isEmpty()) {
        // lib/libX.so and bin/X, and lib/TRIPLET/libX.so of a multi-architecture system.
        folders << ownFolder() + "/../share/mrl/designcodes" << ownFolder() + "/../../share/mrl/designcodes";
    }
    return folders;
}

bool isFile(const std::string& path) { return FileStamp(path).exists(); }

} // namespace

std::vector<std::string> searchPath()
{
    std::vector<std::string> folders;
    const QStringList candidates = candidateFolders();
    for (const QString& folder : candidates) {
        if (QFileInfo(folder).isDir()) {
            folders.push_back(QDir::cleanPath(folder).toStdString());
        }
    }
    return folders;
}

std::vector<Found> list()
{
    std::map<std::string, std::string> byName;
    for (const std::string& folder : searchPath()) {
        const QDir dir(QString::fromStdString(folder));
        const QFileInfoList files = dir.entryInfoList({"*.ini"}, QDir::Files);
        for (const QFileInfo& file : files) {
            byName.emplace(file.completeBaseName().toStdString(), file.filePath().toStdString());
        }
    }
    std::vector<Found> out;
    for (auto& [name, file] : byName) {
        out.push_back({name, file});
    }
    return out;
}

std::optional<std::string> find(const std::string& name)
{
    if (name.empty()) {
        return std::nullopt;
    }
    if (name.find('/') != std::string::npos) {
        return isFile(name) ? std::optional(name) : std::nullopt;
    }
    const bool hasEnding = name.size() > 4 && name.compare(name.size() - 4, 4, ".ini") == 0;
    const QStringList candidates = candidateFolders();
    for (const QString& folder : candidates) {
        const std::string file =
            QDir::cleanPath(folder).toStdString() + "/" + name + (hasEnding ? "" : ".ini");
        if (isFile(file)) {
            return file;
        }
    }
    return std::nullopt;
}

} // namespace mrl::designcode
