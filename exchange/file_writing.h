#pragma once

#include <QString>

#include "exchange/format.h"

namespace mrl::exchange {

struct WriteFailure
{
    Message message;
    bool isOfFile = false; ///< of the disk, and not of what was to be written
};

/// Writes the bytes of a file to a sink; what can't be written so comes back.
using WriteBytes = std::function<std::optional<FormatError>(const Sink&)>;

/// Writes a file: afterwards it is there whole, or as it was before.
/// @param isSound asked before the file takes its place: whether the project could be read whole
/// @return nothing when all was written
std::optional<WriteFailure> writeFile(const WriteBytes& write, const QString& path,
                                      const std::function<bool()>& isSound);

/// The same for the sheets of a project in a format.
std::optional<WriteFailure> writeFile(const Format& format, const Source& source,
                                      const FormatOptions& options, const QString& path,
                                      const std::function<bool()>& isSound);

} // namespace mrl::exchange
