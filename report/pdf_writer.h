#pragma once

#include "exchange/file_writing.h"
#include "report/page_layout.h"

namespace mrl::report {

/// Writes a report as PDF, page by page. The same report gives the same bytes where the time zone of the process
/// is UTC and the seed of its hashes 0.
std::optional<exchange::FormatError> writePdf(const Report& report, const PageLayout& pages,
                                              const exchange::Sink& sink);

} // namespace mrl::report
