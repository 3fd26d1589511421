#pragma once

/// What would trap the user of a design code.

#include <string>
#include <vector>

#include "check/design_code_check.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::findings {

/// A design code as the rules judge it.
LCM_DesignCodeData dataOf(const designcode::DesignCode& code);

struct CodeFinding
{
    std::string file; ///< of the code or of one of its bases
    int line = 0;     ///< 0 for the whole file
    int column = 0;   ///< 0 for the whole line
    std::string rule;
    std::string text;
    std::string cure; ///< empty where the text tells it
};

/// What the file alone tells, and what the rules of the dialog find wrong with limits and default actions; by line.
std::vector<CodeFinding> findingsOf(const designcode::DesignCode& code);

/// "FILE:LINE:COLUMN: TEXT: CURE".
std::string textOf(const CodeFinding& finding);

} // namespace mrl::findings
