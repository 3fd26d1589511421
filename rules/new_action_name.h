#pragma once

/// The rules for the name of a new action. check/validate_name.h words the refusal.

#include <QString>
#include <QStringList>

#include <optional>

#include "rules/finding.h"

/// The two texts of which a typed name is made, in upper case and without white space around them.
struct LCM_TypedName
{
    QString action;
    QString category;
};

/// A name such as "Q_A" as its two texts.
LCM_TypedName lcm_typed_name(const QString& name);
/// Both texts as one name.
QString lcm_joined_name(const LCM_TypedName& name);

/// Which of the two texts the user has just changed.
enum class LCM_NameEdit { Action, Category };

/// Judges a typed name.
///
/// Only the changed text is tested for its form; the name that both make together is tested against the used
/// ones in any case. An empty action text is good, even where the used names hold one of nothing but blanks.
///
/// @param usedNames the names in use; blanks around them don't count
/// @return why the name is refused; nothing when it is good
std::optional<LCM_Finding> lcm_check_new_name(const LCM_TypedName& name, const QStringList& usedNames,
                                              LCM_NameEdit changed);

/// Judges a name that comes whole, from a table for one: the form of both texts, and their length together. Whether it is
/// used is not asked.
std::optional<LCM_Finding> lcm_check_whole_name(const LCM_TypedName& name);

/// A broken rule for names as a finding.
LCM_Finding lcm_name_finding(LCM_Rule rule);
