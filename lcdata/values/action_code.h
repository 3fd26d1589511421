#pragma once

/// The name of an action and the integer that stands for it.
///
/// A word holds four bytes, the first in the low eight bits. An action code is the word of the first four
/// bytes of the name, blank-padded, where the name joins first part and suffix by an underscore: G is
/// 0x20202047, Q_1 is 0x20315F51. A code keeps four bytes and no more, so G_123 and G_124 have the same code.

#include <QString>

#include <cstdint>
#include <string_view>

#include "lcdata/values/records.h"

/// The word of the first four bytes, padded with blanks.
std::int32_t lcm_pack_bytes(std::string_view bytes);

/// The word of the first four bytes of a text's UTF-8 form, blank-padded. A character may be cut in the
/// middle.
std::int32_t lcm_pack_word(const QString& text);

/// The same for zero-terminated bytes, into a name field. An empty text gives four blanks.
void lcm_pack_field(const char* text, std::int32_t& field);
void lcm_pack_field(const char* text, char (&field)[4]);

/// The four bytes of a word, low byte first.
void lcm_word_to_chars(std::int32_t word, char* destination);

/// The word of a name field.
std::int32_t lcm_field_word(const char (&field)[4]);

/// True when a suffix word names a suffix; 0, four blanks and every smaller word do not.
bool lcm_has_suffix(std::int32_t suffix);

/// The code of an action. A suffix counts only behind a first part of at most three characters.
std::int32_t lcm_action_code(const tagCDB_LC_ACT& action);

/// The code of a text that a caller typed: upper case, padded with blanks, cut to four bytes.
std::int32_t lcm_normalise_code(const QString& text);

/// The text of an action code: its bytes up to the first zero, the low one first, blanks included.
QString lcm_code_text(std::int32_t code);

/// The name that an action code stands for, without the blanks around it.
QString lcm_code_name(std::int32_t code);

/// The name of the action that a load case's action word stands for; digits for an old action number, which
/// names none.
QString lcm_word_name(std::int32_t word);

/// Name and title in one line: the name in five columns, then at most 31 bytes of title.
QString lcm_action_label(const tagCDB_LC_ACT& action);

/// Suffix and title in one line, for the members of a category: the suffix in five columns, then the title.
QString lcm_member_label(const tagCDB_LC_ACT& action);
