#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <map>
#include <set>

#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/file_stamp.h"
#include "hostlib/data/install/data_folders.h"

namespace mrl::designcode {

namespace {

constexpr const char* PATH_VARIABLE = "MRL_DESIGNCODE_PATH";

/// The folders that may hold design codes, whether they exist or not: those that the environment names, the user's
/// own, those of the installation.
QStringList candidateFolders()
{
    QStringList folders = install::dataFolders(PATH_VARIABLE, QStringLiteral("designcodes"));
    const auto named = QString::fromLocal8Bit(qgetenv(PATH_VARIABLE))
                           .split(QDir::listSeparator(), Qt::SkipEmptyParts)
                           .size();
    folders.insert(named, QString::fromStdString(userFolder()));
    return folders;
}

bool isFile(const std::string& path) { return FileStamp(path).exists(); }

} // namespace

std::string userFolder()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return (data + QStringLiteral("/mrl/designcodes")).toStdString();
}

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
    std::map<std::string, Found> byName;
    std::set<QString> seen;
    for (const std::string& folder : searchPath()) {
        const QDir dir(QString::fromStdString(folder));
        if (!seen.insert(dir.canonicalPath()).second) {
            continue; // named twice: a file shadows none but another one
        }
        const QFileInfoList files = dir.entryInfoList({"*.ini"}, QDir::Files);
        for (const QFileInfo& file : files) {
            const std::string name = file.completeBaseName().toStdString();
            const auto [found, isNew] = byName.emplace(name, Found{name, file.filePath().toStdString(), {}});
            if (!isNew) {
                found->second.shadowed.push_back(file.filePath().toStdString());
            }
        }
    }
    std::vector<Found> out;
    for (auto& [name, found] : byName) {
        out.push_back(std::move(found));
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
