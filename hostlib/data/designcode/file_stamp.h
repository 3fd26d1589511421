#pragma once

/// What tells that a file has changed since it was read.

#include <sys/stat.h>

#include <cstdint>
#include <string>

namespace mrl::designcode {

struct FileStamp
{
    std::int64_t seconds = 0;
    std::int64_t nanoseconds = 0;
    std::int64_t size = -1; ///< -1: there is no such file

    explicit FileStamp(const std::string& file)
    {
        struct stat info
        {
        };
        if (stat(file.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) {
            return;
        }
        seconds = info.st_mtim.tv_sec;
        nanoseconds = info.st_mtim.tv_nsec;
        size = info.st_size;
    }
    FileStamp() = default;

    bool exists() const { return size >= 0; }
};

inline bool operator==(const FileStamp& a, const FileStamp& b)
{
    return a.seconds == b.seconds && a.nanoseconds == b.nanoseconds && a.size == b.size;
}
inline bool operator!=(const FileStamp& a, const FileStamp& b) { return !(a == b); }

} // namespace mrl::designcode
