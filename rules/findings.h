#pragma once

#include <QString>

#include <map>

/// What the rules find wrong with a row: the message, in the user's language, by the id of the column that it
/// is about. A later finding for a column replaces an earlier one. An empty map is a clean row.
using LCM_Findings = std::map<int, QString>;
