#pragma once

#include <cstdint>
#include <string>

#include "hostlib/data/cdb/project.h"

namespace mrl::cdb {

/// Can another machine write to a file system without our seeing its locks?
/// @param type as statfs tells it
/// @param name as the kernel's table of mounts tells it, such as "fuse.sshfs"; only for FUSE
bool isShared(std::uint64_t type, const std::string& name);

/// Refuses a place that another machine may write to as well. Locks and caches there are up to servers and to options
/// of mounting; where one of them fails, a put would be lost in silence.
/// @param file the name for messages
/// @param path a file or folder
Result onThisMachine(const std::string& file, const std::string& path);

} // namespace mrl::cdb
