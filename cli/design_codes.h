#pragma once

/// Design codes as commands name and print them.

#include <string>
#include <vector>

#include "check/design_code_check.h"
#include "check/recode.h"
#include "cli/output.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::cli {

/// A design code as the rules judge it.
LCM_DesignCodeData dataOf(const designcode::DesignCode& code);

/// A design code as a project depends on it.
LCM_RecodeCode recodeCodeOf(const designcode::DesignCode& code);

/// What a project stores to name a code. A path is stored whole, so that the project finds the file from any folder.
std::string storedCodeName(const std::string& code);

/// What would trap the user of a design code.
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

/// All errors of a file, for Failure::text: a line each.
std::string textOf(const designcode::Errors& errors);

/// The design code of a name or path. Throws Failure, with file, line and reason, when it cannot be read.
designcode::DesignCode readDesignCode(const std::string& name);

/// Name, file, label and the four numbers.
Json identityJson(const designcode::DesignCode& code);

/// A finding as an object with `line`, `rule`, `text`, `file`, `column` and `cure`.
Json findingJson(const CodeFinding& finding);

/// The findings of a design code by line.
Json warningsJson(const designcode::DesignCode& code);

/// Prints the findings, a line each: "warning: FILE:LINE:COLUMN: TEXT: CURE".
void printWarnings(const designcode::DesignCode& code);

} // namespace mrl::cli
