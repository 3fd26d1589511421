#pragma once

/// The rules for the name of a new action.

#include <QString>
#include <QStringList>

/// Tells whether a typed name may be given to a new action.
///
/// Only one of the two texts is tested for its form, the one that the user has just changed; the name that
/// both make together is tested against the used ones in any case. An empty action text is good, even where
/// the used names hold one of nothing but blanks.
///
/// @param action, category the texts in upper case, without white space around them
/// @param usedNames the names in use; blanks around them don't count
/// @param actionChanged true: the action text is tested, false: the category text
/// @param message [out] why the name is refused, in the user's language; as it was when the name is good
/// @return true when the name may be given
bool validateName(const QString& action, const QString& category, const QStringList& usedNames,
                  bool actionChanged, QString& message);
