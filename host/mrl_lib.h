#pragma once

/// Texts and settings of the package, and its access to the design-code file of a project.

#include "host/mrl_export.h"

class QString;

/// Turns a packed text field into a QString: UTF-16 units, two to a word, the earlier one in the low half.
/// @param text 17 words; reads at most 34 units, since a title that another module wrote may have no closing
/// zero
MRL_HOST_API void mrl_lib_ps2qs(const unsigned* text, QString& out);

/// A text of the package's catalogue in the user's language.
/// @param one always 1. @param language the result of mrl_lib_setting(102). @param key for example "40Z" or
/// "40X"
/// @return UTF-8, owned by the library and valid for the life of the process; the key itself when there is no
/// text
MRL_HOST_API const char* mrl_lib_convtext(int one, int language, const char* key);

/// An integer setting of the package. @param number 102 the user's language, 108 the option of the generators
/// of input text. @return the setting, 0 for a number that is not known
MRL_HOST_API int mrl_lib_setting(int number);

/// The path of the design-code file of a database.
/// @param buffer [out] the path in UTF-8 with its closing zero, never more than `size` bytes; empty on
/// failure
/// @return false when the database names no design code, its file is not there, or its path does not fit
MRL_HOST_API bool mrl_lib_designcode_file(int db, char* buffer, int size);

/// Reads one entry of a design-code file.
/// @param file path in UTF-8. @param section for example "ACTIONS".
/// @param key  the entry; with an empty key the call tests whether the section exists
/// @param one  always 1. @param value [out] the entry as a whole number, 0 when it is none
/// @param text [out] the entry's text in UTF-8, cut to `size` bytes at a whole character, a closing zero
/// behind it
///             only where it is shorter than `size`; empty on failure. The buffer is never overrun.
/// @param zero always 0
/// @return negative when the file or the section is missing or the file is malformed, 0 when only the entry
///         is missing, above 0 when it is there
MRL_HOST_API int mrl_lib_profile_read(const char* file, const char* section, const char* key, int one,
                                      void* value, char* text, int size, int zero);
