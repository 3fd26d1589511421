#include "hostlib/data/designcode/active.h"

#include "hostlib/data/cdb/project.h"
#include "hostlib/data/designcode/file_stamp.h"

namespace mrl::designcode {

namespace {

struct CacheEntry
{
    FileStamp stamp;
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

/// Parses a file once for as long as its time and size stand; also a failure is kept.
LoadedIndexed cached(const std::string& file)
{
    static std::unordered_map<std::string, CacheEntry> cache;
    const FileStamp stamp(file);
    const auto it = cache.find(file);
    if (it != cache.end() && it->second.stamp == stamp) {
        return it->second.loaded;
    }
    return (cache[file] = {stamp, load(file)}).loaded;
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

IndexedCode::IndexedCode(DesignCode parsed) : code(std::move(parsed))
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

std::optional<std::string> fileOfDatabase(int db) { return fileOfName(db, mrl::cdb::fact(db, "designcode")); }

LoadedIndexed indexedOfDatabase(int db)
{
    const std::string name = mrl::cdb::fact(db, "designcode");
    if (name.empty()) {
        return {nullptr, "the project names no design code"};
    }
    const auto file = fileOfName(db, name);
    if (!file) {
        return {nullptr,
                "the design code '" + name + "' is not " +
                    (isRelativePath(name) ? "there, seen from the project's folder" : "on the search path")};
    }
    return cached(*file);
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
