#pragma once

/// Findings as text that a failing test prints readably and that no language changes.

#include <QString>

#include <map>
#include <string>
#include <variant>

#include "rules/finding.h"

namespace mrl::test {

/// The rule's id and its arguments, numbers in up to six digits: "gamf-not-between-0-and-gamu 0 1.35".
inline std::string plain(const LCM_Finding& finding)
{
    std::string text = lcm_rule_id(finding.rule);
    for (const LCM_Argument& argument : finding.arguments) {
        text += ' ';
        if (const auto* name = std::get_if<QString>(&argument)) {
            text += name->toStdString();
        } else if (const auto* whole = std::get_if<int>(&argument)) {
            text += std::to_string(*whole);
        } else {
            text += QString::number(static_cast<double>(std::get<float>(argument))).toStdString();
        }
    }
    return text;
}

/// The findings of a row by column; a column that has two fails the comparison by a text of its own.
inline std::map<int, std::string> plain(const LCM_Findings& findings)
{
    std::map<int, std::string> result;
    for (const LCM_Finding& finding : findings) {
        const auto [it, isNew] = result.emplace(finding.column, plain(finding));
        if (!isNew) {
            it->second += " and " + plain(finding);
        }
    }
    return result;
}

} // namespace mrl::test
