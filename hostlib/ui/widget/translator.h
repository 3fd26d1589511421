#pragma once

/// Where translations are found.

#include <QStringList>

#include "host/mrl_export.h"

namespace mrl::ui {

/// The name of the user's language as translation files carry it, "de". Read once in a process: a change of
/// the language holds from the next start. @return empty for English, the language of the sources
MRL_HOST_API QString translationLanguage();

/// The folders in which translation files are looked for, first the one of MRL_TRANSLATION_PATH.
MRL_HOST_API QStringList translationFolders();

/// The folder of the shared library that this code is in, so that what is installed beside it is found.
MRL_HOST_API QString libraryFolder();

} // namespace mrl::ui
