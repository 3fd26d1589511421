#pragma once

/// The package's own settings: what mrl_lib_setting and mrl_alib_getLaufModus answer. They are kept in the
/// user's configuration folder and live as long as that; nothing else reads or writes that file.

#include "host/mrl_export.h"

namespace mrl::settings {

/// Values of setting 102.
enum Language : int { English = 0, German = 1 };

/// The user's language. Unless it was set, that of the desktop where it is one of these, else English.
MRL_HOST_API int language();
MRL_HOST_API void setLanguage(int language);

/// Setting 108, the option of the generators of input text. 0 unless it was set.
MRL_HOST_API int generatorOption();
MRL_HOST_API void setGeneratorOption(int option);

/// The run mode that mrl_alib_getLaufModus gives; a bit of mask 24 set means restricted. 0 unless it was set.
MRL_HOST_API int runMode();
MRL_HOST_API void setRunMode(int mode);

} // namespace mrl::settings
