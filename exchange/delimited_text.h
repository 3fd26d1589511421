#pragma once

/// CSV and TSV: one sheet, a heading, a line for each row. Quotes guard separators, quotes and ends of lines.
///
/// A text that a spreadsheet would take for a formula (it begins with =, +, -, @, a tabulator or a carriage
/// return) is written with an apostrophe ahead, and so is one that has apostrophes ahead of such a character;
/// reading takes one away.

#include <memory>

#include "exchange/format.h"

namespace mrl::exchange {

std::unique_ptr<Format> csvFormat();
std::unique_ptr<Format> tsvFormat();

/// A text with the guard against formulas, and without it.
std::string guarded(const std::string& text);
std::string unguarded(const std::string& text);

} // namespace mrl::exchange
