#include "cdb/power_loss.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <vector>

#include <sqlite3.h>

namespace power_loss {

namespace {

constexpr std::size_t SECTOR = 512;

struct Note
{
    enum class Kind { Write, Truncate, Sync, Create, Delete, SyncFolder } kind = Kind::Write;
    std::string file; ///< without its folder
    std::size_t at = 0;
    std::string bytes;
};

using Files = std::map<std::string, std::string>;

std::string watched; // folder, empty while nothing is noted
std::vector<Note> notes;
Files atStart;
sqlite3_vfs* below = nullptr;

std::string contentOf(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

struct File
{
    sqlite3_file base;
    sqlite3_file* real; // stands behind this structure, in the same allocation
    bool newJournal;    // its first sync syncs the folder too, below this layer
    std::string* name;  // in the watched folder; null elsewhere. Owned, freed by close()
};

File* mine(sqlite3_file* file) { return reinterpret_cast<File*>(file); }
sqlite3_file* real(sqlite3_file* file) { return mine(file)->real; }
const sqlite3_io_methods& methods(sqlite3_file* file) { return *real(file)->pMethods; }

void note(sqlite3_file* file, Note::Kind kind, std::size_t at = 0, std::string bytes = {})
{
    if (mine(file)->name != nullptr && !watched.empty()) {
        notes.push_back({kind, *mine(file)->name, at, std::move(bytes)});
    }
}

int close(sqlite3_file* f)
{
    delete mine(f)->name;
    mine(f)->name = nullptr;
    return methods(f).xClose(real(f));
}
int read(sqlite3_file* f, void* to, int size, sqlite3_int64 at)
{
    return methods(f).xRead(real(f), to, size, at);
}
int write(sqlite3_file* f, const void* from, int size, sqlite3_int64 at)
{
    note(f, Note::Kind::Write, static_cast<std::size_t>(at),
         {static_cast<const char*>(from), static_cast<std::size_t>(size)});
    return methods(f).xWrite(real(f), from, size, at);
}
int truncate(sqlite3_file* f, sqlite3_int64 size)
{
    note(f, Note::Kind::Truncate, static_cast<std::size_t>(size));
    return methods(f).xTruncate(real(f), size);
}
int sync(sqlite3_file* f, int flags)
{
    note(f, Note::Kind::Sync);
    if (mine(f)->newJournal) {
        note(f, Note::Kind::SyncFolder);
        mine(f)->newJournal = false;
    }
    return methods(f).xSync(real(f), flags);
}
int fileSize(sqlite3_file* f, sqlite3_int64* size) { return methods(f).xFileSize(real(f), size); }
int lock(sqlite3_file* f, int how) { return methods(f).xLock(real(f), how); }
int unlock(sqlite3_file* f, int how) { return methods(f).xUnlock(real(f), how); }
int checkReservedLock(sqlite3_file* f, int* out) { return methods(f).xCheckReservedLock(real(f), out); }
int fileControl(sqlite3_file* f, int what, void* argument)
{
    return methods(f).xFileControl(real(f), what, argument);
}
int sectorSize(sqlite3_file*) { return SECTOR; }
// A disk that promises nothing.
int characteristics(sqlite3_file*) { return 0; }

const sqlite3_io_methods layer{1,
                               close,
                               read,
                               write,
                               truncate,
                               sync,
                               fileSize,
                               lock,
                               unlock,
                               checkReservedLock,
                               fileControl,
                               sectorSize,
                               characteristics,
                               nullptr,
                               nullptr,
                               nullptr,
                               nullptr,
                               nullptr,
                               nullptr};

/// @return the name within the watched folder; empty elsewhere
std::string watchedName(const char* name)
{
    const std::string path = name != nullptr ? name : "";
    const bool inside = !watched.empty() && path.compare(0, watched.size() + 1, watched + "/") == 0;
    return inside ? path.substr(watched.size() + 1) : std::string();
}

int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags)
{
    auto* opened = mine(file);
    opened->real = reinterpret_cast<sqlite3_file*>(opened + 1);
    opened->name = nullptr;
    const std::string inside = watchedName(name);
    const bool fresh = !inside.empty() && !std::filesystem::exists(name);
    opened->newJournal = fresh && (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    const int status = below->xOpen(below, name, opened->real, flags, outFlags);
    opened->base.pMethods = opened->real->pMethods != nullptr ? &layer : nullptr;
    if (status == SQLITE_OK && !inside.empty()) {
        opened->name = new std::string(inside);
        if (fresh) {
            note(file, Note::Kind::Create);
        }
    }
    return status;
}

int remove(sqlite3_vfs*, const char* name, int syncFolder)
{
    const int status = below->xDelete(below, name, syncFolder);
    if (const std::string inside = watchedName(name); !inside.empty() && status == SQLITE_OK) {
        notes.push_back({Note::Kind::Delete, inside, 0, {}});
        if (syncFolder != 0) {
            notes.push_back({Note::Kind::SyncFolder, inside, 0, {}});
        }
    }
    return status;
}

/// Writes some sectors of a note, or all of them.
void apply(const Note& note, std::string& content, std::mt19937* random)
{
    if (note.kind == Note::Kind::Truncate) {
        content.resize(note.at);
        return;
    }
    for (std::size_t done = 0; done < note.bytes.size();) {
        const std::size_t at = note.at + done;
        const std::size_t size = std::min(note.bytes.size() - done, SECTOR - at % SECTOR);
        if (random == nullptr || (*random)() % 2 == 0) {
            content.resize(std::max(content.size(), at + size));
            content.replace(at, size, note.bytes, done, size);
        }
        done += size;
    }
}

/// A disk: what is certain of each file, and what may have reached it.
struct Disk
{
    struct State
    {
        std::string synced;
        std::vector<const Note*> loose;
        bool exists = false;       ///< for certain
        std::vector<bool> perhaps; ///< creations and deletions since
    };
    std::map<std::string, State> files;

    void take(const Note& note)
    {
        State& state = files[note.file];
        switch (note.kind) {
        case Note::Kind::Write:
        case Note::Kind::Truncate:
            state.loose.push_back(&note);
            break;
        case Note::Kind::Sync:
            for (const Note* loose : state.loose) {
                apply(*loose, state.synced, nullptr);
            }
            state.loose.clear();
            break;
        case Note::Kind::Create:
            state.synced.clear();
            state.loose.clear();
            state.perhaps.push_back(true);
            break;
        case Note::Kind::Delete:
            state.perhaps.push_back(false);
            break;
        case Note::Kind::SyncFolder:
            for (auto& [name, each] : files) {
                each.exists = each.perhaps.empty() ? each.exists : each.perhaps.back();
                each.perhaps.clear();
            }
            break;
        }
    }
};

/// Loses, keeps or shuffles what was not synced.
std::string chance(const Disk::State& state, std::mt19937& random)
{
    std::string content = state.synced;
    std::vector<const Note*> loose = state.loose;
    switch (random() % 4) {
    case 0:
        return content;
    case 1:
        for (const Note* each : loose) {
            apply(*each, content, nullptr);
        }
        return content;
    case 2:
        std::shuffle(loose.begin(), loose.end(), random);
        break;
    default:
        break;
    }
    for (const Note* each : loose) {
        if (random() % 4 != 0) {
            apply(*each, content, &random);
        }
    }
    return content;
}

} // namespace

void install()
{
    static sqlite3_vfs vfs;
    if (below != nullptr) {
        return;
    }
    below = sqlite3_vfs_find(nullptr);
    vfs = *below;
    vfs.zName = "power-loss";
    vfs.szOsFile = static_cast<int>(sizeof(File)) + below->szOsFile;
    vfs.xOpen = open;
    vfs.xDelete = remove;
    sqlite3_vfs_register(&vfs, 1);
}

void start(const std::string& folder)
{
    notes.clear();
    atStart.clear();
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        atStart[entry.path().filename().string()] = contentOf(entry.path());
    }
    watched = std::filesystem::canonical(folder).string();
}

std::size_t stop()
{
    watched.clear();
    return notes.size();
}

std::size_t now() { return notes.size(); }

void leave(const std::string& folder, std::size_t count, std::mt19937& random)
{
    Disk disk;
    for (const auto& [name, content] : atStart) {
        disk.files[name] = {content, {}, true, {}};
    }
    for (std::size_t i = 0; i < count; ++i) {
        disk.take(notes[i]);
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::filesystem::remove(entry.path());
    }
    for (const auto& [name, state] : disk.files) {
        bool exists = state.exists;
        for (const bool each : state.perhaps) {
            exists = random() % 2 == 0 ? each : exists;
        }
        if (exists) {
            std::ofstream(std::filesystem::path(folder) / name, std::ios::binary) << chance(state, random);
        }
    }
}

} // namespace power_loss
