#pragma once

#include "exchange/file_writing.h"
#include "report/report.h"

namespace mrl::report {

/// Writes a report as one HTML file that needs nothing beside it. Printed from a browser, tables repeat their heads and rows
/// stay whole. Needs an application and a font, by which the picture is laid out.
std::optional<exchange::FormatError> writeHtml(const Report& report, const exchange::Sink& sink);

} // namespace mrl::report
