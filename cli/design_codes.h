#pragma once

/// Design codes as commands name and print them.

#include <string>
#include <vector>

#include "check/recode.h"
#include "cli/output.h"
#include "findings/code_findings.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::cli {

using findings::CodeFinding;
using findings::dataOf;
using findings::findingsOf;
using findings::textOf;

/// A design code as a project depends on it.
LCM_RecodeCode recodeCodeOf(const designcode::DesignCode& code);

/// What a project stores to name a code. A path is stored whole, so that the project finds the file from any folder.
std::string storedCodeName(const std::string& code);

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
