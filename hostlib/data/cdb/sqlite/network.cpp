#include "hostlib/data/cdb/sqlite/network.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>

#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

namespace {

/// The numbers that statfs(2) lists.
constexpr std::array<std::uint64_t, 18> SHARED{
    0x6969,     // NFS
    0xFF534D42, // CIFS
    0xFE534D42, // SMB 2 and 3
    0x517B,     // SMB
    0x564C,     // NCP
    0x01021997, // 9P
    0x5346414F, // AFS
    0x6B414653, // AFS of the kernel
    0x73757245, // Coda
    0x00C36400, // Ceph
    0x01161970, // GFS2
    0x7461636F, // OCFS2
    0x0BD00BD0, // Lustre
    0x47504653, // GPFS
    0x19830326, // BeeGFS
    0xAAD7AAEA, // Panasas
    0x786F4256, // folders of a virtual machine's host
    0xBACBACBC, // the same of another maker
};
constexpr std::uint64_t FUSE = 0x65735546;
constexpr const char* DISK_THROUGH_FUSE = "fuseblk";

/// The type of the mount that a device belongs to; empty when the table doesn't tell.
std::string mountType(dev_t device)
{
    const std::string wanted = std::to_string(major(device)) + ":" + std::to_string(minor(device));
    std::ifstream table("/proc/self/mountinfo");
    for (std::string line; std::getline(table, line);) {
        std::istringstream fields(line);
        std::string id;
        std::string parent;
        std::string number;
        fields >> id >> parent >> number;
        const auto separator = line.find(" - ");
        if (number == wanted && separator != std::string::npos) {
            const auto begin = separator + 3;
            return line.substr(begin, line.find(' ', begin) - begin);
        }
    }
    return {};
}

} // namespace

bool isShared(std::uint64_t type, const std::string& name)
{
    // What lies behind a FUSE mount is anybody's guess, but for a disk.
    return type == FUSE ? name != DISK_THROUGH_FUSE
                        : std::find(SHARED.begin(), SHARED.end(), type) != SHARED.end();
}

Result onThisMachine(const std::string& file, const std::string& path)
{
    struct statfs system = {};
    struct stat info = {};
    if (statfs(path.c_str(), &system) != 0 || stat(path.c_str(), &info) != 0) {
        return {};
    }
    const auto type = static_cast<std::uint64_t>(system.f_type) & 0xFFFFFFFFU;
    if (!isShared(type, type == FUSE ? mountType(info.st_dev) : std::string())) {
        return {};
    }
    return failure(
        Code::Shared, file,
        "it lies on a network folder, where another machine may write at the same time without a lock "
        "that both see; work on a copy on a disk of this machine");
}

} // namespace mrl::cdb
