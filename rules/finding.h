#pragma once

/// What a rule finds: data without words. check/finding_text.h makes the text of a finding where a person
/// reads it; a program goes by the rule's id.

#include <QString>

#include <array>
#include <cstddef>
#include <utility>
#include <variant>
#include <vector>

/// The rules. docs/findings.md tells the condition and the cure of each.
enum class LCM_Rule : int {
    // The factors of a row, of an action's or a load case's.
    GamuNotAbove0,
    GamuBelow0,
    GamfNotBetween0AndGamu,
    Psi0NotBetween0AndLimit,
    Psi1NotBetween0AndLimit,
    Psi1NotBetweenPsi2AndLimit,
    Psi2NotBetween0AndLimit,
    Psi2NotBetween0AndPsi1,
    Psi1sNotBetween0AndLimit,
    Psi1sNotBetweenPsi1AndLimit,
    Psi1sNotBetweenNationalBoundAndLimit,
    // A name that is typed for a new action.
    NewCategoryTooLong,
    NewNameTooLong,
    NewNameHasSpace,
    NewNameHasSpecialCharacter,
    NewNameBeginsWithDigit,
    NewNameIsImp,
    NewNameBeginsWithY,
    NewNameAlreadyUsed,
    // A project.
    DesignCodeUnreadable,
    DesignCodeNotAsKept,
    DesignCodeTrap,
    ActionNameReserved,
    ActionWithoutName,
    ActionNameDiffersFromKey,
    ActionNameShortened,
    ActionMissing,
    LoadCaseNumberAbove999999,
    LoadCaseNumberSharedWithModule,
    LoadCaseFactorsDifferFromAction,
    // A design code.
    Psi1WithoutPsi2,
    ActionNameLowerCase,
    ActionSuffixTooLong,
    // The records of a file.
    FileDamaged,
    ActionSizeWrong,
    LoadCaseSizeWrong,
    LoadCaseNumberNotAbove0,
    CurrentLoadCaseSizeWrong,
    CurrentLoadCaseKindWrong,
    SystemRecordSizeWrong
};

/// The rules in their order, each with its stable id.
inline constexpr std::array<std::pair<LCM_Rule, const char*>, 40> LCM_RULE_IDS{{
    {LCM_Rule::GamuNotAbove0, "gamu-not-above-0"},
    {LCM_Rule::GamuBelow0, "gamu-below-0"},
    {LCM_Rule::GamfNotBetween0AndGamu, "gamf-not-between-0-and-gamu"},
    {LCM_Rule::Psi0NotBetween0AndLimit, "psi0-not-between-0-and-limit"},
    {LCM_Rule::Psi1NotBetween0AndLimit, "psi1-not-between-0-and-limit"},
    {LCM_Rule::Psi1NotBetweenPsi2AndLimit, "psi1-not-between-psi2-and-limit"},
    {LCM_Rule::Psi2NotBetween0AndLimit, "psi2-not-between-0-and-limit"},
    {LCM_Rule::Psi2NotBetween0AndPsi1, "psi2-not-between-0-and-psi1"},
    {LCM_Rule::Psi1sNotBetween0AndLimit, "psi1s-not-between-0-and-limit"},
    {LCM_Rule::Psi1sNotBetweenPsi1AndLimit, "psi1s-not-between-psi1-and-limit"},
    {LCM_Rule::Psi1sNotBetweenNationalBoundAndLimit, "psi1s-not-between-national-bound-and-limit"},
    {LCM_Rule::NewCategoryTooLong, "new-category-too-long"},
    {LCM_Rule::NewNameTooLong, "new-name-too-long"},
    {LCM_Rule::NewNameHasSpace, "new-name-has-space"},
    {LCM_Rule::NewNameHasSpecialCharacter, "new-name-has-special-character"},
    {LCM_Rule::NewNameBeginsWithDigit, "new-name-begins-with-digit"},
    {LCM_Rule::NewNameIsImp, "new-name-is-imp"},
    {LCM_Rule::NewNameBeginsWithY, "new-name-begins-with-y"},
    {LCM_Rule::NewNameAlreadyUsed, "new-name-already-used"},
    {LCM_Rule::DesignCodeUnreadable, "design-code-unreadable"},
    {LCM_Rule::DesignCodeNotAsKept, "design-code-not-as-kept"},
    {LCM_Rule::DesignCodeTrap, "design-code-trap"},
    {LCM_Rule::ActionNameReserved, "action-name-reserved"},
    {LCM_Rule::ActionWithoutName, "action-without-name"},
    {LCM_Rule::ActionNameDiffersFromKey, "action-name-differs-from-key"},
    {LCM_Rule::ActionNameShortened, "action-name-shortened"},
    {LCM_Rule::ActionMissing, "action-missing"},
    {LCM_Rule::LoadCaseNumberAbove999999, "load-case-number-above-999999"},
    {LCM_Rule::LoadCaseNumberSharedWithModule, "load-case-number-shared-with-module"},
    {LCM_Rule::LoadCaseFactorsDifferFromAction, "load-case-factors-differ-from-action"},
    {LCM_Rule::Psi1WithoutPsi2, "psi1-without-psi2"},
    {LCM_Rule::ActionNameLowerCase, "action-name-lower-case"},
    {LCM_Rule::ActionSuffixTooLong, "action-suffix-too-long"},
    {LCM_Rule::FileDamaged, "file-damaged"},
    {LCM_Rule::ActionSizeWrong, "action-size-wrong"},
    {LCM_Rule::LoadCaseSizeWrong, "load-case-size-wrong"},
    {LCM_Rule::LoadCaseNumberNotAbove0, "load-case-number-not-above-0"},
    {LCM_Rule::CurrentLoadCaseSizeWrong, "current-load-case-size-wrong"},
    {LCM_Rule::CurrentLoadCaseKindWrong, "current-load-case-kind-wrong"},
    {LCM_Rule::SystemRecordSizeWrong, "system-record-size-wrong"},
}};

/// The stable id of a rule, such as "gamf-not-between-0-and-gamu".
constexpr const char* lcm_rule_id(LCM_Rule rule)
{
    return LCM_RULE_IDS[static_cast<std::size_t>(rule)].second;
}

/// What a finding is about.
enum class LCM_Subject : int { Project, DesignCode, Action, LoadCase, Key };

/// A number or a name that the text of a finding tells.
using LCM_Argument = std::variant<int, float, QString>;

/// One thing that a rule found.
struct LCM_Finding
{
    LCM_Rule rule{};
    LCM_Subject subject = LCM_Subject::Project;
    int id = 0;     ///< action code, load-case number or KWL; 0 until a caller that knows it enters it
    int column = 0; ///< id of the column, alike in both tables; 0: the whole of the subject
    std::vector<LCM_Argument> arguments; ///< bounds of a factor: the lower one, then the upper one
    int group = 0;                       ///< KWH of a key

    bool operator==(const LCM_Finding& other) const
    {
        return rule == other.rule && subject == other.subject && id == other.id && column == other.column &&
               arguments == other.arguments && group == other.group;
    }
};

/// Findings in the order of their subjects. Those of one row have ascending columns and no column twice; a
/// clean row has none and allocates nothing.
using LCM_Findings = std::vector<LCM_Finding>;
