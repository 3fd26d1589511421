#pragma once

/// Where the help pages are: <folder>/<language>/<book>/<topic>.html, or .md

#include <QString>

#include "host/mrl_export.h"

namespace mrl::ui {

/// The file of a help page in the user's language, in English where there is none in it.
/// @return an empty text when there is no such page
MRL_HOST_API QString helpPage(const QString& book, const QString& topic);

} // namespace mrl::ui
