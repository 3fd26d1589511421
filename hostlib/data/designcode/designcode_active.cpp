#include "hostlib/data/designcode/designcode_active.h"

#include <QCryptographicHash>
#include <QDir>
#include <QSaveFile>
#include <QStandardPaths>
#include <algorithm>

#include "hostlib/data/cdb/project.h"
#include "hostlib/data/designcode/file_stamp.h"
#include "hostlib/data/designcode/kept.h"

namespace mrl::designcode {

namespace {

struct CacheEntry
{
    std::vector<std::pair<std::string, FileStamp>> stamps; ///< of the file and of its bases
    LoadedIndexed loaded;
};

LoadedIndexed load(const std::string& file)
{
    ReadResult result = read(file);
    if (const auto* errors = std::get_if<Errors>(&result)) {
        return {nullptr, errors->front().text()};
    }
    return {std::make_shared<IndexedCode>(std::get<DesignCode>(std::move(result))), {}};
}

bool isCurrent(const CacheEntry& entry)
{
    return !entry.stamps.empty() &&
           std::all_of(entry.stamps.begin(), entry.stamps.end(),
                       [](const auto& each) { return each.second == FileStamp(each.first); });
}

/// Parses a file once for as long as its time and size stand, and those of its bases; also a failure is kept.
LoadedIndexed cached(const std::string& file)
{
    static std::unordered_map<std::string, CacheEntry> cache;
    CacheEntry& entry = cache[file];
    if (isCurrent(entry)) {
        return entry.loaded;
    }
    entry.stamps = {{file, FileStamp(file)}};
    entry.loaded = load(file);
    if (entry.loaded.code) {
        for (const FileText& each : entry.loaded.code->code.files) {
            if (each.file != file) {
                entry.stamps.emplace_back(each.file, FileStamp(each.file));
            }
        }
    }
    return entry.loaded;
}

/// The code that a project keeps, read once for each fingerprint; null when there is none that can be read.
std::shared_ptr<const IndexedCode> cachedKept(int db)
{
    static std::unordered_map<std::string, std::shared_ptr<const IndexedCode>> cache;
    const std::string fingerprint = keptFingerprint(db);
    if (fingerprint.empty()) {
        return nullptr;
    }
    const auto found = cache.find(fingerprint);
    if (found != cache.end()) {
        return found->second;
    }
    auto kept = keptCode(db);
    if (!kept) {
        return nullptr;
    }
    return cache[fingerprint] = std::make_shared<IndexedCode>(*std::move(kept));
}

/// A file without bases that says the same, in the user's cache: readers by file name know nothing of bases.
std::optional<std::string> flatFile(const DesignCode& code)
{
    const QString folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + "/mrl/designcodes";
    const QByteArray text = QByteArray::fromStdString(code.flat);
    const QString mark = QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex().left(16);
    const QString path = folder + "/" + QString::fromStdString(code.name) + "-" + mark + ".ini";
    QFile present(path);
    if (present.open(QIODevice::ReadOnly) && present.readAll() == text) {
        return path.toStdString();
    }
    QDir().mkpath(folder);
    QSaveFile file(path);
    const bool isWritten =
        file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit();
    return isWritten ? std::optional(path.toStdString()) : std::nullopt;
}

bool isRelativePath(const std::string& name)
{
    return name.find('/') != std::string::npos && name.front() != '/';
}

/// A relative path in a project counts from the project's folder: the current folder of whoever opens it is no part
/// of the project.
std::optional<std::string> fileOfName(int db, const std::string& name)
{
    if (!isRelativePath(name)) {
        return find(name);
    }
    const std::string project = mrl::cdb::path(db);
    if (project.empty()) {
        return std::nullopt;
    }
    const auto slash = project.rfind('/');
    return find((slash == std::string::npos ? "./" : project.substr(0, slash + 1)) + name);
}

} // namespace

IndexedCode::IndexedCode(DesignCode parsed)
    : code(std::move(parsed)), fingerprint(designcode::fingerprint(code))
{
    for (std::size_t i = 0; i < code.actions.size(); ++i) {
        byCode.emplace(code.actions[i].code, i);
        for (const int number : code.actions[i].oldNumbers) {
            byOldNumber.emplace(number, i);
        }
    }
}

const DefaultAction* IndexedCode::find(int codeOrOldNumber) const
{
    if (const auto it = byCode.find(codeOrOldNumber); it != byCode.end()) {
        return &code.actions[it->second];
    }
    const auto it = byOldNumber.find(codeOrOldNumber);
    return it == byOldNumber.end() ? nullptr : &code.actions[it->second];
}

LoadedIndexed indexedOfDatabase(int db)
{
    const std::string name = mrl::cdb::fact(db, "designcode");
    if (name.empty()) {
        return {nullptr, "the project names no design code"};
    }
    const auto kept = cachedKept(db);
    const auto file = fileOfName(db, name);
    const LoadedIndexed ofFile =
        file ? cached(*file)
             : LoadedIndexed{nullptr, "the design code '" + name + "' is not " +
                                          (isRelativePath(name) ? "there, seen from the project's folder"
                                                                : "on the search path")};
    const bool keptHolds = kept && (!ofFile.code || ofFile.code->fingerprint != kept->fingerprint);
    return keptHolds ? LoadedIndexed{kept, {}} : ofFile;
}

std::optional<std::string> fileOfDatabase(int db)
{
    const auto file = fileOfName(db, mrl::cdb::fact(db, "designcode"));
    const auto loaded = indexedOfDatabase(db);
    const bool isPlain = loaded.code && file == loaded.code->code.file && loaded.code->code.files.size() == 1;
    if (isPlain || !loaded.code) {
        return file;
    }
    const auto flat = flatFile(loaded.code->code);
    return flat ? flat : file;
}

Loaded ofDatabase(int db)
{
    const LoadedIndexed loaded = indexedOfDatabase(db);
    if (!loaded.code) {
        return {nullptr, loaded.reason};
    }
    return {std::shared_ptr<const DesignCode>(loaded.code, &loaded.code->code), {}};
}

} // namespace mrl::designcode
