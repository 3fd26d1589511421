#include "rules/action_names.h"

#include <QCoreApplication>

#include <algorithm>

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

/// The refusal of the form of one of the two texts, to be translated; null when there is none.
const char* fault(const QString& text, bool isAction)
{
    if (!isAction && text.size() > MAX_CATEGORY) {
        return QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Max. 1 character for category!");
    }
    if (text.size() > MAX_NAME) {
        return QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Max. 4 characters!");
    }
    if (text.contains(QLatin1Char(' '))) {
        return QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Spaces are not allowed!");
    }
    if (!std::all_of(text.begin(), text.end(), isAsciiLetterOrDigit)) {
        return QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Special characters are not allowed!");
    }
    if (isAction && beginsWithDigit(text)) {
        return QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "No digit at beginning!");
    }
    if (text.compare(QLatin1String("IMP"), Qt::CaseInsensitive) == 0) {
        return QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Action 'IMP' is not allowed!");
    }
    if (text.startsWith(QLatin1Char('Y'), Qt::CaseInsensitive)) {
        return QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Action beginning with 'Y' is not allowed!");
    }
    return nullptr;
}

bool isUsed(const QString& name, const QStringList& usedNames)
{
    return std::any_of(usedNames.begin(), usedNames.end(),
                       [&name](const QString& used) { return used.trimmed() == name; });
}

} // namespace

bool validateName(const QString& action, const QString& category, const QStringList& usedNames,
                  bool actionChanged, QString& message)
{
    // An emptied field is no fault, not even where a row without a name stands in the table.
    if (action.isEmpty() && (actionChanged || category.isEmpty())) {
        return true;
    }
    const char* refusal = fault(actionChanged ? action : category, actionChanged);
    // Both at once: the action text isn't tested when the category changed and may hold anything.
    const QString name = category.isEmpty() ? action : QStringLiteral("%1_%2").arg(action, category);
    if (refusal == nullptr && isUsed(name, usedNames)) {
        refusal = QT_TRANSLATE_NOOP("MRL_LC_AddNewActionDialog", "Name already used!");
    }
    if (refusal == nullptr) {
        return true;
    }
    message = QCoreApplication::translate("MRL_LC_AddNewActionDialog", refusal);
    return false;
}
