#pragma once

/// Where the files that are installed with the libraries are found: design codes, translations, help.

#include <QStringList>

#include "host/mrl_export.h"

namespace mrl::install {

/// The folders that may hold one kind of installed files, whether they exist or not, the first to be searched
/// first: those of an environment variable, separated by colons, then `share/mrl/KIND` beside the folder of
/// this library (or of a program that holds it statically), with and without a folder for the machine's
/// architecture between. A build tree is laid out as an installation is.
///
/// @param variable name of the environment variable, such as MRL_HELP_PATH
/// @param kind     name of the folder below share/mrl
MRL_HOST_API QStringList dataFolders(const char* variable, const QString& kind);

} // namespace mrl::install
