#pragma once

/// The table that word processors and mail programs take from the clipboard.

#include <QStringList>

#include <vector>

#include "host/mrl_export.h"

namespace mrl::table {

/// Lines of cells as an HTML table, the first line as headings. What looks like markup in a text is shown as it
/// stands.
MRL_HOST_API QString toHtmlTable(const std::vector<QStringList>& block);

} // namespace mrl::table
