#pragma once

/// The table that word processors and mail programs take from the clipboard.

#include <QStringList>

#include <vector>

#include "host/mrl_export.h"
#include "hostlib/ui/table/clipboard.h"

namespace mrl::table {

/// Lines of cells as an HTML table. What looks like markup in a text is shown as it stands.
/// @param captions whether the first line holds the captions
MRL_HOST_API QString toHtmlTable(const std::vector<QStringList>& block, Captions captions);

} // namespace mrl::table
