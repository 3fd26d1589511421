#pragma once

/// A report as a file.

#include <QString>

#include <optional>

#include "exchange/file_writing.h"
#include "report/page_layout.h"

namespace mrl::report {

enum class FileKind { Pdf, Html };

/// The kind of a file by its ending: .pdf, .html or .htm. Nothing for any other one.
std::optional<FileKind> kindOf(const QString& path);

/// Writes a report into a file: afterwards it is there whole, or as it was before.
/// @param isSound asked before the file takes its place: whether the project could be read whole
std::optional<exchange::WriteFailure> writeReport(const Report& report, FileKind kind, const QString& path,
                                                  const std::function<bool()>& isSound);

} // namespace mrl::report
