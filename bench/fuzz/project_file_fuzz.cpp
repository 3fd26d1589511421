#include <array>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <unistd.h>
#include <vector>

#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"

// An input is either edits of a real project file (first byte even; then four bytes each: a place and what to
// flip there) or a whole file (first byte odd). Neither may crash, and edits that go unnoticed may not change
// a record.

namespace {

using Content = std::map<std::pair<int, int>, std::vector<std::string>>;

Content readAll(int db)
{
    Content content;
    std::array<char, 16384> buffer{};
    int kwh = INT_MIN;
    int kwl = INT_MIN;
    while (mrl_cdb_kenq_ex(db, &kwh, &kwl, 1) == 0) {
        auto& records = content[{kwh, kwl}];
        int length = static_cast<int>(buffer.size());
        for (int position = 0; mrl_cdb_get(db, kwh, kwl, buffer.data(), &length, position) <= CD_CUT;
             position = 1, length = static_cast<int>(buffer.size())) {
            records.emplace_back(buffer.data(), static_cast<std::size_t>(length));
        }
    }
    return content;
}

/// The real project, and a place for the inputs.
struct Ground
{
    Ground()
    {
        std::string name =
            std::filesystem::exists("/dev/shm") ? "/dev/shm/mrl-fuzz-XXXXXX" : "/tmp/mrl-fuzz-XXXXXX";
        if (mkdtemp(name.data()) == nullptr) {
            std::abort();
        }
        folder = name;
        file = (folder / "a.cdb").string();
        const int db = mrl::cdb::create(file).db;
        for (int i = 1; i <= 60; ++i) {
            const std::string text(static_cast<std::size_t>(100 + i), static_cast<char>('a' + i % 26));
            static_cast<void>(
                mrl::cdb::append(db, 12 + i % 3, i / 2, text.data(), static_cast<int>(text.size())));
        }
        const std::string large(9000, 's');
        static_cast<void>(mrl::cdb::append(db, 10, 0, large.data(), static_cast<int>(large.size())));
        static_cast<void>(mrl::cdb::setFact(db, "designcode", "x.ini"));
        expected = readAll(db);
        mrl::cdb::close(db);
        std::ifstream in(file, std::ios::binary);
        good.assign(std::istreambuf_iterator<char>(in), {});
    }
    ~Ground()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }
    Ground(const Ground&) = delete;
    Ground& operator=(const Ground&) = delete;

    std::filesystem::path folder;
    std::string file;
    std::string good;
    Content expected;
};

std::string edited(std::string content, const std::uint8_t* data, std::size_t size)
{
    for (; size >= 4; data += 4, size -= 4) {
        const auto at = static_cast<std::size_t>(data[0] | data[1] << 8 | data[2] << 16);
        char& byte = content[at % content.size()];
        byte = static_cast<char>(byte ^ data[3]);
    }
    return content;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Ground ground;
    if (size == 0) {
        return 0;
    }
    const bool edits = data[0] % 2 == 0;
    const std::string content = edits ? edited(ground.good, data + 1, size - 1)
                                      : std::string(reinterpret_cast<const char*>(data + 1), size - 1);
    std::filesystem::remove(ground.file + "-journal");
    std::filesystem::remove(ground.file + "-shm");
    std::ofstream(ground.file, std::ios::binary) << content;
    const auto opened = mrl::cdb::open(ground.file);
    if (!opened) {
        return 0;
    }
    const Content read = readAll(opened.db);
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
