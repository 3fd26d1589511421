#include <QDir>
#include <QFileInfo>
#include <map>

#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/file_stamp.h"
#include "hostlib/data/install/data_folders.h"

namespace mrl::designcode {

namespace {

/// The folders that may hold design codes, whether they exist or not.
QStringList candidateFolders()
{
    return install::dataFolders("MRL_DESIGNCODE_PATH", QStringLiteral("designcodes"));
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
