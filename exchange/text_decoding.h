#pragma once

/// Bytes of a file of unknown encoding as UTF-8, and back.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::exchange {

struct DecodedText
{
    std::string text;
    std::string encoding; ///< as a person calls it, such as "UTF-8"
};

/// @param encoding what the caller was told, one of encodingNames(); empty: found out, by the byte-order mark, by
///                 the zero bytes that UTF-16 puts beside letters, else UTF-8, and Latin-1 where that it can't be
/// @return nothing for a word that names none of these, and for bytes that aren't of the encoding
std::optional<DecodedText> decoded(std::string_view bytes, const std::string& encoding);

/// Text in one of the encodings. UTF-16 is that of little-endian machines; `atBeginning`: with its byte-order mark.
/// Nothing where the encoding can't hold the text.
std::optional<std::string> encoded(const std::string& text, const std::string& encoding, bool atBeginning);

/// The words that decoded() and encoded() know.
const std::vector<std::string>& encodingNames();

} // namespace mrl::exchange
