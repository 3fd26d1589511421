#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/fuzz/project_ground.h"

// An input is either edits of a real project file (first byte even; then four bytes each: a place and what to
// flip there) or a whole file (first byte odd). Neither may crash, and edits that go unnoticed may not change
// a record.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const fuzz::Ground ground;
    if (size == 0) {
        return 0;
    }
    const bool edits = data[0] % 2 == 0;
    const std::string content = edits ? fuzz::edited(ground.good, data + 1, size - 1)
                                      : std::string(reinterpret_cast<const char*>(data + 1), size - 1);
    std::filesystem::remove(ground.file + "-journal");
    std::filesystem::remove(ground.file + "-shm");
    std::ofstream(ground.file, std::ios::binary) << content;
    const auto opened = mrl::cdb::open(ground.file);
    if (!opened) {
        return 0;
    }
    const fuzz::Content read = fuzz::readAll(opened.db);
    if (edits && mrl::cdb::stickyError(opened.db) && read != ground.expected) {
        std::abort(); // silently different
    }
    const int length = 5;
    mrl_cdb_put(opened.db, 12, 500, "hello", &length, 0);
    mrl_cdb_del(opened.db, 12, 3);
    static_cast<void>(mrl::cdb::integrityCheck(opened.db));
    mrl::cdb::close(opened.db);
    return 0;
}
