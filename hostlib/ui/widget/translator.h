#pragma once

/// Which translations the windows use.

#include <QString>

#include "host/mrl_export.h"

namespace mrl::ui {

/// The name of the user's language as translation files carry it, "de". Read once in a process: a change of
/// the language takes effect at the next start. @return empty for English, the language of the sources
MRL_HOST_API QString translationLanguage();

} // namespace mrl::ui
