#pragma once

/// The kinds of files behind openResponses.

#include "combine/response_file.h"

namespace mrl::combine {

/// @param stream at the first byte
OpenedResponses openCsv(std::ifstream stream);
/// @param numbers the load case of each column
OpenedResponses openNpy(std::ifstream stream, std::vector<int> numbers);

/// Reads a load-case number. @return 0 where the text is none
int loadCaseNumber(std::string_view text);

/// The first number of a list that stands in it before; 0: there is none.
int repeatedNumber(std::vector<int> numbers);

} // namespace mrl::combine
