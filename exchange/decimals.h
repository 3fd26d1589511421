#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mrl::exchange {

/// Appends the shortest decimal text that reads back as the same float, with a point.
void appendNumber(std::string& text, float value);

std::string numberText(float value);

/// The number of a whole text, blanks around it aside, rounded to the nearest float. Nothing for a text that is
/// none, and for one beyond what a float holds.
std::optional<float> numberOf(std::string_view text);

/// The whole number of a whole text, blanks around it aside.
std::optional<int> wholeNumberOf(std::string_view text);

/// A text without the blanks around it.
std::string_view trimmed(std::string_view text);

} // namespace mrl::exchange
