#pragma once

#include <QString>
#include <QStringList>

/// Tells whether a typed name may be given to a new action, see lcm_check_new_name.
/// @param actionChanged true: the action text was changed, false: the category text
/// @param message [out] why the name is refused, in the user's language; as it was when the name is good
/// @return true when the name may be given
bool validateName(const QString& action, const QString& category, const QStringList& usedNames,
                  bool actionChanged, QString& message);
