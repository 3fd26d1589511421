#pragma once

/// JSON: both sheets in one file, numbers as numbers, a factor that follows its action as null. A file of a whole
/// project also has its facts, and under "records" each key that the rows don't tell to the bit: those of other
/// modules, and records that hold more than their cells.

#include <memory>

#include "exchange/format.h"
#include "exchange/project_content.h"

namespace mrl::exchange {

std::unique_ptr<Format> jsonFormat();

/// The whole project of such a file, judged by no rule.
/// @return an error also for a row whose cells contradict the record under its key
std::variant<ProjectContent, FormatError> projectOfJson(std::string_view bytes);

} // namespace mrl::exchange
