#pragma once

/// A real project for fuzz targets to change, and a place for what came of it.

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

namespace fuzz {

using Content = std::map<std::pair<int, int>, std::vector<std::string>>;

inline Content readAll(int db)
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

inline std::string contentOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

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
        good = contentOf(file);
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

/// Four bytes an edit: a place and what to flip there.
inline std::string edited(std::string content, const std::uint8_t* data, std::size_t size)
{
    for (; size >= 4; data += 4, size -= 4) {
        const auto at = static_cast<std::size_t>(data[0] | data[1] << 8 | data[2] << 16);
        char& byte = content[at % content.size()];
        byte = static_cast<char>(byte ^ data[3]);
    }
    return content;
}

} // namespace fuzz
