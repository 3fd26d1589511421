#include "check/finding_text.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>

namespace {

/// A text to be translated; without a context it stands as it is.
struct Pattern
{
    const char* context;
    const char* text;
};

constexpr const char* ACTIONS = "LCM_ActionsWidget";
constexpr const char* LOAD_CASES = "LCM_LoadcaseWidget";
constexpr const char* NEW_NAME = "MRL_LC_AddNewActionDialog";
constexpr const char* PROJECT = "LCM_ProjectCheck";

// Each table has its own words, and its own translations of the words that both have.
constexpr Pattern BIGGER{ACTIONS, QT_TRANSLATE_NOOP("LCM_ActionsWidget", "%1 has to be bigger than 0.0!")};
constexpr Pattern GREATER{LOAD_CASES,
                          QT_TRANSLATE_NOOP("LCM_LoadcaseWidget", "%1 has to be greater than 0.0!")};
constexpr Pattern BETWEEN_OF_ACTION{
    ACTIONS, QT_TRANSLATE_NOOP("LCM_ActionsWidget", "%1 has to be between %2 and %3!")};
constexpr Pattern BETWEEN_OF_LOAD_CASE{
    LOAD_CASES, QT_TRANSLATE_NOOP("LCM_LoadcaseWidget", "%1 has to be between %2 and %3!")};

/// How a bound is written.
enum class Bound {
    Zero,  ///< "0.0"
    One,   ///< "1.0" whatever the bound is; people know it so
    Three, ///< in three significant digits
    Six    ///< in six, the default of QString::arg
};

struct Bounds
{
    Bound lowest;
    Bound highest;
};

/// The words for a factor that doesn't lie between its bounds.
struct FactorWords
{
    LCM_Rule rule;
    const char* factor;
    Bounds ofAction;
    Bounds ofLoadCase;
};

constexpr Bounds PLAIN{Bound::Zero, Bound::Three};

constexpr FactorWords FACTOR_WORDS[] = {
    {LCM_Rule::GamfNotBetween0AndGamu, "GAMF", PLAIN, {Bound::Zero, Bound::Six}},
    {LCM_Rule::Psi0NotBetween0AndLimit, "Psi0", PLAIN, PLAIN},
    {LCM_Rule::Psi1NotBetween0AndLimit, "Psi1", PLAIN, PLAIN},
    {LCM_Rule::Psi1NotBetweenPsi2AndLimit, "Psi1", {Bound::Six, Bound::Three}, {Bound::Three, Bound::Three}},
    {LCM_Rule::Psi2NotBetween0AndLimit, "Psi2", PLAIN, PLAIN},
    {LCM_Rule::Psi2NotBetween0AndPsi1, "Psi2", PLAIN, PLAIN},
    {LCM_Rule::Psi1sNotBetween0AndLimit, "Psi1'", PLAIN, PLAIN},
    {LCM_Rule::Psi1sNotBetweenPsi1AndLimit, "Psi1'", {Bound::Three, Bound::One}, {Bound::Three, Bound::Six}},
    {LCM_Rule::Psi1sNotBetweenNationalBoundAndLimit,
     "Psi1'",
     {Bound::Three, Bound::One},
     {Bound::Three, Bound::One}},
};

/// The words for all other rules.
struct RuleWords
{
    LCM_Rule rule;
    Pattern pattern;
};

constexpr RuleWords RULE_WORDS[] = {
    {LCM_Rule::NewCategoryTooLong,
     {NEW_NAME, QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Max. 1 character for category!")}},
    {LCM_Rule::NewNameTooLong,
     {NEW_NAME, QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Max. 4 characters!")}},
    {LCM_Rule::NewNameHasSpace,
     {NEW_NAME, QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Spaces are not allowed!")}},
    {LCM_Rule::NewNameHasSpecialCharacter,
     {NEW_NAME, QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Special characters are not allowed!")}},
    {LCM_Rule::NewNameBeginsWithDigit,
     {NEW_NAME, QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "No digit at beginning!")}},
    {LCM_Rule::NewNameIsImp,
     {NEW_NAME, QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Action 'IMP' is not allowed!")}},
    {LCM_Rule::NewNameBeginsWithY,
     {NEW_NAME, QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Action beginning with 'Y' is not allowed!")}},
    {LCM_Rule::NewNameAlreadyUsed,
     {NEW_NAME, QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Name already used!")}},
    {LCM_Rule::DesignCodeUnreadable, {nullptr, "%1"}},
    {LCM_Rule::DesignCodeNotAsKept, {nullptr, "%1"}},
    {LCM_Rule::DesignCodeTrap, {nullptr, "%1"}},
    {LCM_Rule::ActionNameReserved,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck",
                                 "names that begin with Y are reserved; the dialog never loads it")}},
    {LCM_Rule::ActionWithoutName,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck", "an action without a name; the dialog never loads it")}},
    {LCM_Rule::ActionNameDiffersFromKey,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck", "the record names the action %1 and will move there "
                                                     "when the dialog is accepted")}},
    {LCM_Rule::ActionNameShortened,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck", "its row keeps only %1 of the name, so that its load "
                                                     "cases lose the action when the dialog opens")}},
    {LCM_Rule::ActionMissing,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck", "the project has no action %1")}},
    {LCM_Rule::LoadCaseNumberAbove999999,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck", "the number is above 999999")}},
    {LCM_Rule::LoadCaseNumberSharedWithModule,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck", "another module keeps a record of kind %1 under this "
                                                     "number; accepting the dialog drops it")}},
    {LCM_Rule::LoadCaseFactorsDifferFromAction,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck",
                                 "it keeps factors that differ from those of its action %1, which count; "
                                 "choose the action again to let it follow")}},
    {LCM_Rule::Psi1WithoutPsi2,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck",
                                 "Psi1 is marked without Psi2, so that every Psi1 below 1.0 is refused")}},
    {LCM_Rule::ActionNameLowerCase,
     {PROJECT,
      QT_TRANSLATE_NOOP("LCM_ProjectCheck", "the name holds lower-case letters and can't be typed")}},
    {LCM_Rule::ActionSuffixTooLong,
     {PROJECT,
      QT_TRANSLATE_NOOP("LCM_ProjectCheck", "a suffix of more than one character doesn't survive editing")}},
    {LCM_Rule::FileDamaged, {nullptr, "%1"}},
    {LCM_Rule::ActionSizeWrong,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck", "the action has %1 bytes instead of %2")}},
    {LCM_Rule::LoadCaseSizeWrong,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck", "the load case has %1 bytes instead of %2")}},
    {LCM_Rule::LoadCaseNumberNotAbove0,
     {PROJECT,
      QT_TRANSLATE_NOOP("LCM_ProjectCheck", "a load-case number is above 0; no walk meets this key")}},
    {LCM_Rule::CurrentLoadCaseSizeWrong,
     {PROJECT,
      QT_TRANSLATE_NOOP("LCM_ProjectCheck", "the current-load-case record has %1 bytes instead of %2")}},
    {LCM_Rule::CurrentLoadCaseKindWrong,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck",
                                 "the current-load-case record has the kind %1 and counts as absent")}},
    {LCM_Rule::SystemRecordSizeWrong,
     {PROJECT, QT_TRANSLATE_NOOP("LCM_ProjectCheck", "the system record has %1 bytes instead of %2")}},
};

static_assert(std::size(FACTOR_WORDS) + 2 + std::size(RULE_WORDS) == LCM_RULE_IDS.size());

template <class Words, std::size_t COUNT>
const Words* find(const Words (&words)[COUNT], LCM_Rule rule)
{
    const auto* found =
        std::find_if(std::begin(words), std::end(words), [&](const Words& w) { return w.rule == rule; });
    return found == std::end(words) ? nullptr : found;
}

/// Gives a pattern its language.
using Translation = QString (*)(const Pattern&);

QString english(const Pattern& pattern) { return QString::fromUtf8(pattern.text); }

QString translated(const Pattern& pattern)
{
    return pattern.context == nullptr ? english(pattern)
                                      : QCoreApplication::translate(pattern.context, pattern.text);
}

/// The patterns of the rows are translated once in a process: a table of many faulty rows asks for them
/// again and again.
QString translatedOnce(const Pattern& pattern)
{
    static std::map<const Pattern*, QString> patterns;
    const auto [it, isNew] = patterns.try_emplace(&pattern);
    if (isNew) {
        it->second = translated(pattern);
    }
    return it->second;
}

QString numberText(float value, int digits)
{
    return QStringLiteral("%1").arg(static_cast<double>(value), 0, 'g', digits);
}

QString boundText(float value, Bound bound)
{
    switch (bound) {
    case Bound::Zero:
        return QStringLiteral("0.0");
    case Bound::One:
        return QStringLiteral("1.0");
    case Bound::Three:
        return numberText(value, 3);
    case Bound::Six:
        break;
    }
    return numberText(value, -1);
}

struct ArgumentText
{
    QString operator()(int value) const { return QString::number(value); }
    QString operator()(float value) const { return numberText(value, -1); }
    QString operator()(const QString& value) const { return value; }
};

QString argument(const LCM_Finding& finding, std::size_t position)
{
    return std::visit(ArgumentText(), finding.arguments.at(position));
}

QString betweenText(const LCM_Finding& finding, const FactorWords& words, Translation translation)
{
    const bool loadCase = finding.subject == LCM_Subject::LoadCase;
    const Bounds& bounds = loadCase ? words.ofLoadCase : words.ofAction;
    const Pattern& pattern = loadCase ? BETWEEN_OF_LOAD_CASE : BETWEEN_OF_ACTION;
    // One call for all three, so that no argument is taken for a place of the pattern.
    return translation(pattern).arg(QString::fromLatin1(words.factor),
                                    boundText(std::get<float>(finding.arguments.at(0)), bounds.lowest),
                                    boundText(std::get<float>(finding.arguments.at(1)), bounds.highest));
}

QString ruleText(const LCM_Finding& finding, const RuleWords& words, Translation translation)
{
    QString pattern = translation(words.pattern);
    switch (finding.arguments.size()) {
    case 0:
        return pattern;
    case 1:
        return pattern.arg(argument(finding, 0));
    default:
        return pattern.arg(argument(finding, 0), argument(finding, 1));
    }
}

QString text(const LCM_Finding& finding, Translation ofRows, Translation ofOthers)
{
    if (finding.rule == LCM_Rule::GamuNotAbove0 || finding.rule == LCM_Rule::GamuBelow0) {
        const Pattern& pattern = finding.rule == LCM_Rule::GamuNotAbove0 ? BIGGER : GREATER;
        return ofRows(pattern).arg(QStringLiteral("GAMU"));
    }
    if (const FactorWords* words = find(FACTOR_WORDS, finding.rule)) {
        return betweenText(finding, *words, ofRows);
    }
    return ruleText(finding, *find(RULE_WORDS, finding.rule), ofOthers);
}

} // namespace

QString lcm_finding_text(const LCM_Finding& finding) { return text(finding, translatedOnce, translated); }

QString lcm_finding_english(const LCM_Finding& finding) { return text(finding, english, english); }

LCM_ErrorList lcm_error_list(const LCM_Findings& findings)
{
    LCM_ErrorList errors;
    for (const LCM_Finding& finding : findings) {
        errors[finding.column] = lcm_finding_text(finding);
    }
    return errors;
}
