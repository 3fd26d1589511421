#pragma once

/// Factors as decimals. A stored factor is a float; what was meant is the shortest decimal that gives this float: 0.7
/// and not 0.699999988. Products are brought back to the decimal that they are, so that 1.5 * 0.7 is 1.05 and a key
/// that somebody adds up by hand gives its value.

#include <string>

#include "combine/model.h"

namespace mrl::combine {

/// The value of the shortest decimal of a stored factor.
double shortest(float stored);

/// A product of factors, brought to at most 14 significant decimals.
double rounded(double product);

/// The shortest text of a factor: "1.35", "1", "-1.5".
std::string decimalText(double factor);

/// "1.35*1+1*2-1.5*11"; a combination without a load case is "0".
std::string keyText(const Key& key);

/// The reverse of keyText. Terms may stand in any order; those of a load case that stands twice are added.
/// @return nothing where the text is no key
std::optional<Key> readKey(const std::string& text);

} // namespace mrl::combine
