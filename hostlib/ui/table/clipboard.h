#pragma once

#include <QStringList>

#include <vector>

#include "host/mrl_export.h"

namespace mrl::table {

/// What stands above a copied rectangle.
enum class Captions { Leave, Copy };

/// Puts lines of cells on the clipboard, as text for spreadsheets and as a table for word processors.
/// @param captions whether the first line holds the captions
MRL_HOST_API void copyToClipboard(const std::vector<QStringList>& block, Captions captions);

} // namespace mrl::table
