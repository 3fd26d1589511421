#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <sqlite3.h>

#include "bench/fuzz/project_ground.h"

// An input is either edits of the journal that a crashed program left (first byte even; then four bytes each: a place
// and what to flip there) or a whole journal (first byte odd). The second bit of the first byte tells which file it
// stands beside: a half-written one, or one that is whole. None may crash; what opens reads as the state before the
// crash, and what is refused stays as it is.

namespace {

/// The project in the middle of a commit.
struct Crash : fuzz::Ground
{
    Crash()
    {
        sqlite3* raw = nullptr;
        sqlite3_open(file.c_str(), &raw);
        sqlite3_exec(raw,
                     "PRAGMA cache_size=2;BEGIN;UPDATE record SET bytes=zeroblob(80);"
                     "UPDATE summary SET version=version+1",
                     nullptr, nullptr, nullptr);
        sqlite3_db_cacheflush(raw);
        half = fuzz::contentOf(file);
        journal = fuzz::contentOf(file + "-journal");
        sqlite3_close(raw);
        if (journal.empty() || half == good) {
            std::abort();
        }
        setenv("TMPDIR", folder.c_str(), 1); // for the copies
    }
    std::string half;
    std::string journal;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Crash ground;
    if (size == 0) {
        return 0;
    }
    const std::string journal = data[0] % 2 == 0
                                    ? fuzz::edited(ground.journal, data + 1, size - 1)
                                    : std::string(reinterpret_cast<const char*>(data + 1), size - 1);
    const std::string& content = data[0] % 4 < 2 ? ground.half : ground.good;
    const std::string name = ground.file + "-journal";
    std::ofstream(ground.file, std::ios::binary) << content;
    std::ofstream(name, std::ios::binary) << journal;
    const auto opened = mrl::cdb::open(ground.file);
    if (!opened) {
        if (fuzz::contentOf(ground.file) != content || fuzz::contentOf(name) != journal) {
            std::abort(); // changed by opening
        }
        return 0;
    }
    const fuzz::Content read = fuzz::readAll(opened.db);
    if (mrl::cdb::stickyError(opened.db) && read != ground.expected) {
        std::abort(); // silently different
    }
    mrl::cdb::close(opened.db);
    return 0;
}
