#pragma once

/// A design-code file with the chain of its bases.

#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/ini_file.h"

namespace mrl::designcode {

struct Chain
{
    std::vector<FileText> files; ///< the code itself, then its base, then the base of that
    IniFile merged;              ///< the sections of all, the code's own laid over those of its bases
    std::vector<IniError> errors;
};

/// Reads a code with all its bases. A chain that comes back to one of its files is an error with their names. Where a
/// base is missing, nothing is merged.
Chain readChain(FileText code, const BaseOf& baseOf);

/// The name of a file without its folder and ending.
std::string nameOfFile(const std::string& file);

} // namespace mrl::designcode
