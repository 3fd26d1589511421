#include "hostlib/data/designcode/designcode_active.h"

#include <QCryptographicHash>
#include <QStandardPaths>
#include <algorithm>
#include <cstdio>
#include <filesystem>

#include <unistd.h>

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

struct CloseFile
{
    void operator()(FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<FILE, CloseFile>;

/// Whether a file holds a text and nothing else.
bool holds(const std::string& path, const std::string& text)
{
    const File in(std::fopen(path.c_str(), "rb"));
    std::string bytes(text.size() + 1, '\0');
    return in && std::fread(bytes.data(), 1, bytes.size(), in.get()) == text.size() &&
           bytes.compare(0, text.size(), text) == 0;
}

/// Puts a file in place as a whole, since another process may read it at any time.
bool putFile(const std::string& path, const std::string& text)
{
    const std::string fresh = path + "." + std::to_string(getpid());
    File out(std::fopen(fresh.c_str(), "wb"));
    bool isWritten = out && std::fwrite(text.data(), 1, text.size(), out.get()) == text.size();
    isWritten = out && std::fclose(out.release()) == 0 && isWritten;
    if (isWritten && std::rename(fresh.c_str(), path.c_str()) == 0) {
        return true;
    }
    std::remove(fresh.c_str());
    return false;
}

/// A file without bases that says the same, in the user's cache: readers by file name know nothing of bases. No QFile,
/// whose construction ends in a crash where memory runs out.
std::optional<std::string> flatFile(const DesignCode& code)
{
    const std::string folder =
        QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation).toStdString() +
        "/mrl/designcodes";
    const auto hash =
        QCryptographicHash::hash(QByteArray::fromStdString(code.flat), QCryptographicHash::Sha256);
    std::string path = folder + "/" + code.name + "-" + hash.toHex().left(16).toStdString() + ".ini";
    if (holds(path, code.flat)) {
        return path;
    }
    std::error_code unused; // what can't be made is told by the file that can't be written
    std::filesystem::create_directories(folder, unused);
    return putFile(path, code.flat) ? std::optional(std::move(path)) : std::nullopt;
}

bool isRelativePath(const std::string& name)
{
    return name.find('/') != std::string::npos && name.front() != '/';
}

} // namespace

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

IndexedCode::IndexedCode(DesignCode parsed)
    : code(std::move(parsed)), fingerprint(designcode::fingerprint(code))
{
    for (std::size_t i = 0; i < code.actions.size(); ++i) {
        m_byCode.emplace(code.actions[i].code, i);
        for (const int number : code.actions[i].oldNumbers) {
            m_byOldNumber.emplace(number, i);
        }
    }
}

const DefaultAction* IndexedCode::find(int codeOrOldNumber) const
{
    if (const auto it = m_byCode.find(codeOrOldNumber); it != m_byCode.end()) {
        return &code.actions[it->second];
    }
    const auto it = m_byOldNumber.find(codeOrOldNumber);
    return it == m_byOldNumber.end() ? nullptr : &code.actions[it->second];
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
    auto file = fileOfName(db, mrl::cdb::fact(db, "designcode"));
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
