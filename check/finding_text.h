#pragma once

/// The words for findings. No text is made before somebody reads it: a clean row costs none.

#include <QString>

#include <map>

#include "rules/finding.h"

/// The text of a finding in the language of the program. The patterns of the two tables' rows keep the
/// language in which they were first read.
QString lcm_finding_text(const LCM_Finding& finding);

/// The same text in English, whatever the language of the program is.
QString lcm_finding_english(const LCM_Finding& finding);

/// The texts that the cells of a row show, by column id.
using LCM_ErrorList = std::map<int, QString>;

/// The error list of a row's findings, in the language of the program.
LCM_ErrorList lcm_error_list(const LCM_Findings& findings);
