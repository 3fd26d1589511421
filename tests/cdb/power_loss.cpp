#include "cdb/power_loss.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <vector>

#include <dlfcn.h>
#include <unistd.h>

#include "cdb/file_layer.h"

namespace power_loss {

namespace {

constexpr std::size_t SECTOR = 512;

struct Note
{
    enum class Kind { Write, Truncate, Sync, Create, Delete, Rename, SyncFolder } kind = Kind::Write;
    std::string file; ///< without its folder
    std::size_t at = 0;
    std::string bytes; ///< or the new name
};

using Files = std::map<std::string, std::string>;

std::string watched; // folder, empty while nothing is noted
std::vector<Note> notes;
Files atStart;

std::string contentOf(const std::filesystem::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// @return the name within the watched folder; empty elsewhere
std::string watchedName(const char* name)
{
    const std::string path = name != nullptr ? name : "";
    const bool inside = !watched.empty() && path.compare(0, watched.size() + 1, watched + "/") == 0;
    return inside ? path.substr(watched.size() + 1) : std::string();
}

/// Notes what happens to files of the watched folder.
class Layer : public FileLayer
{
  public:
    Layer() : FileLayer("power-loss") {}

    int open(File& file, const char* name, int flags, int* outFlags) override
    {
        const std::string inside = watchedName(name);
        const bool fresh = !inside.empty() && !std::filesystem::exists(name);
        const int status = FileLayer::open(file, name, flags, outFlags);
        if (status == SQLITE_OK && !inside.empty()) {
            file.id = ++m_last;
            m_open[file.id] = {inside, fresh && (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0};
            if (fresh) {
                note(file, Note::Kind::Create);
            }
        }
        return status;
    }
    int remove(const char* name, int syncFolder) override
    {
        const int status = FileLayer::remove(name, syncFolder);
        if (const std::string inside = watchedName(name); !inside.empty() && status == SQLITE_OK) {
            notes.push_back({Note::Kind::Delete, inside, 0, {}});
            if (syncFolder != 0) {
                notes.push_back({Note::Kind::SyncFolder, inside, 0, {}});
            }
        }
        return status;
    }
    int close(File& file) override
    {
        m_open.erase(file.id);
        return FileLayer::close(file);
    }
    int write(File& file, const void* from, int size, sqlite3_int64 at) override
    {
        note(file, Note::Kind::Write, static_cast<std::size_t>(at),
             {static_cast<const char*>(from), static_cast<std::size_t>(size)});
        return FileLayer::write(file, from, size, at);
    }
    int truncate(File& file, sqlite3_int64 size) override
    {
        note(file, Note::Kind::Truncate, static_cast<std::size_t>(size));
        return FileLayer::truncate(file, size);
    }
    int sync(File& file, int flags) override
    {
        note(file, Note::Kind::Sync);
        // The first sync of a journal syncs the folder too, below this layer.
        if (const auto found = m_open.find(file.id); found != m_open.end() && found->second.newJournal) {
            note(file, Note::Kind::SyncFolder);
            found->second.newJournal = false;
        }
        return FileLayer::sync(file, flags);
    }
    // A disk that promises nothing.
    int sectorSize(File&) override { return SECTOR; }
    int characteristics(File&) override { return 0; }

  private:
    struct Open
    {
        std::string name;
        bool newJournal = false;
    };
    void note(const File& file, Note::Kind kind, std::size_t at = 0, std::string bytes = {})
    {
        if (const auto found = m_open.find(file.id); found != m_open.end() && !watched.empty()) {
            notes.push_back({kind, found->second.name, at, std::move(bytes)});
        }
    }
    std::map<int, Open> m_open;
    int m_last = 0;
};

/// The file or folder behind a descriptor.
std::string nameOf(int descriptor)
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), error).string();
}

void noteSync(int descriptor)
{
    const std::string name = watched.empty() ? std::string() : nameOf(descriptor);
    if (!name.empty() && name == watched) {
        notes.push_back({Note::Kind::SyncFolder, {}, 0, {}});
    } else if (const std::string inside = watchedName(name.c_str()); !inside.empty()) {
        notes.push_back({Note::Kind::Sync, inside, 0, {}});
    }
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
        case Note::Kind::Rename: {
            State& named = files[note.bytes];
            named.synced = state.synced;
            named.loose = state.loose;
            named.perhaps.push_back(true);
            files[note.file].perhaps.push_back(false);
            break;
        }
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

void install() { static Layer layer; }

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

// What a new file does beside SQLite. These stand in front of the C library's.
extern "C" {

int fsync(int descriptor)
{
    static const auto real = reinterpret_cast<int (*)(int)>(dlsym(RTLD_NEXT, "fsync"));
    const int result = real(descriptor);
    if (result == 0) {
        power_loss::noteSync(descriptor);
    }
    return result;
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept
{
    using Real = int (*)(int, const char*, int, const char*, unsigned);
    static const auto real = reinterpret_cast<Real>(dlsym(RTLD_NEXT, "renameat2"));
    const int result = real(fromFolder, from, toFolder, to, flags);
    if (const std::string inside = power_loss::watchedName(from); result == 0 && !inside.empty()) {
        power_loss::notes.push_back({power_loss::Note::Kind::Rename, inside, 0, power_loss::watchedName(to)});
    }
    return result;
}

} // extern "C"
