#include "rules/new_action_name.h"

#include <algorithm>

#include "rules/action_columns.h"

namespace {

constexpr int MAX_CATEGORY = 1;
constexpr int MAX_NAME = 4;

bool isAsciiLetterOrDigit(QChar c)
{
    const ushort u = c.unicode();
    return (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') || (u >= '0' && u <= '9');
}

bool beginsWithDigit(const QString& text)
{
    bool digit = false;
    QString(text.left(1)).toInt(&digit, 10);
    return digit;
}

/// The rule that the form of one of the two texts breaks.
std::optional<LCM_Rule> brokenForm(const QString& text, bool isAction)
{
    if (!isAction && text.size() > MAX_CATEGORY) {
        return LCM_Rule::NewCategoryTooLong;
    }
    if (text.size() > MAX_NAME) {
        return LCM_Rule::NewNameTooLong;
    }
    if (text.contains(QLatin1Char(' '))) {
        return LCM_Rule::NewNameHasSpace;
    }
    if (!std::all_of(text.begin(), text.end(), isAsciiLetterOrDigit)) {
        return LCM_Rule::NewNameHasSpecialCharacter;
    }
    if (isAction && beginsWithDigit(text)) {
        return LCM_Rule::NewNameBeginsWithDigit;
    }
    if (text.compare(QLatin1String("IMP"), Qt::CaseInsensitive) == 0) {
        return LCM_Rule::NewNameIsImp;
    }
    if (text.startsWith(QLatin1Char('Y'), Qt::CaseInsensitive)) {
        return LCM_Rule::NewNameBeginsWithY;
    }
    return std::nullopt;
}

bool isUsed(const QString& name, const QStringList& usedNames)
{
    return std::any_of(usedNames.begin(), usedNames.end(),
                       [&name](const QString& used) { return used.trimmed() == name; });
}

} // namespace

std::optional<LCM_Finding> lcm_check_new_name(const LCM_TypedName& name, const QStringList& usedNames,
                                              LCM_NameEdit changed)
{
    const bool actionChanged = changed == LCM_NameEdit::Action;
    // An emptied field is no fault, not even where a row without a name stands in the table.
    if (name.action.isEmpty() && (actionChanged || name.category.isEmpty())) {
        return std::nullopt;
    }
    std::optional<LCM_Rule> broken = brokenForm(actionChanged ? name.action : name.category, actionChanged);
    if (!broken && isUsed(lcm_joined_name(name), usedNames)) {
        broken = LCM_Rule::NewNameAlreadyUsed;
    }
    return broken ? std::optional(lcm_name_finding(*broken)) : std::nullopt;
}

QString lcm_joined_name(const LCM_TypedName& name)
{
    // Both at once: the action text isn't tested when the category changed and may hold anything.
    return name.category.isEmpty() ? name.action : QStringLiteral("%1_%2").arg(name.action, name.category);
}

LCM_TypedName lcm_typed_name(const QString& name)
{
    const QString upper = name.trimmed().toUpper();
    const int underscore = upper.indexOf(QLatin1Char('_'));
    return {upper.left(underscore), underscore < 0 ? QString() : upper.mid(underscore + 1)};
}

std::optional<LCM_Finding> lcm_check_whole_name(const LCM_TypedName& name)
{
    if (lcm_joined_name(name).toUtf8().size() > MAX_NAME) {
        return lcm_name_finding(LCM_Rule::NewNameTooLong);
    }
    const auto finding = lcm_check_new_name(name, {}, LCM_NameEdit::Action);
    return finding ? finding : lcm_check_new_name(name, {}, LCM_NameEdit::Category);
}

LCM_Finding lcm_name_finding(LCM_Rule rule) { return {rule, LCM_Subject::Action, 0, ACT_COL_ACTION, {}}; }
