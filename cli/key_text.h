#pragma once

/// What a person is told of records as bytes.

#include <string>

namespace mrl::cli {

/// KWH/KWL as a person names the key: an action's by its name.
std::string keyText(int kwh, int kwl);

/// The first word of a record, by which records of one key are told apart; 0 when it is shorter than that.
int kindOf(const std::string& record);

} // namespace mrl::cli
