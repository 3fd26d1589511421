#pragma once

/// Titles in records: UTF-16 units, two to a word, the earlier unit in the low half; a unit of 0 ends the
/// text.

#include <QString>

#include <cstdint>

#include "lcdata/values/records.h"

/// Fills a field with a text and zeroes the rest of it. The last unit of the field always stays 0, so a title
/// keeps 33 units; later units are dropped.
/// @param words the number of words of the field
void lcm_title_pack(const QString& text, std::uint32_t* field, int words);

/// Converts a title to UTF-8, passing over invalid sequences.
/// @param buffer [out] at most size - 1 bytes of text, the rest of it zero. A character may be cut in the
/// middle.
/// @param size   the buffer's size in bytes; at most the first `size` units of the field are looked at
void lcm_title_to_utf8(const std::uint32_t (&field)[LC_TITLE_WORDS], char* buffer, int size);

/// The text of a field: all of its units up to the first 0.
/// @param words the number of words of the field
QString lcm_packed_text(const std::uint32_t* field, int words);

/// The title of a record, all of its up to 34 units: a field that another module filled may have no closing
/// zero.
QString lcm_title_text(const std::uint32_t (&field)[LC_TITLE_WORDS]);
