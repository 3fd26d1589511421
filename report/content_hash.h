#pragma once

#include <QString>

namespace mrl::report {

/// The SHA-256 of a project's content as 64 hexadecimal digits: that of what
/// `mrl-lc export FILE --format json` writes.
/// @return empty when the content can't be written so
QString contentHash(int db);

} // namespace mrl::report
