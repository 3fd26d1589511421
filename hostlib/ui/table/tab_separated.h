#pragma once

/// The text that spreadsheets put on the clipboard and take from it.

#include <QStringList>

#include <vector>

#include "host/mrl_export.h"

namespace mrl::table {

/// Lines of cells, tabs between the cells, a line feed after each line. A cell with a tab, a line feed or a
/// quotation mark at its start stands in quotation marks.
MRL_HOST_API QString toTabSeparated(const std::vector<QStringList>& block);

/// The reverse; reads the line ends of any system. Empty for an empty text.
MRL_HOST_API std::vector<QStringList> fromTabSeparated(const QString& text);

} // namespace mrl::table
