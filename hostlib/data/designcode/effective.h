#pragma once

/// What a design code says in effect, after inheritance, as a list of values: by it two codes are compared, and a
/// project recognises its own.

#include <string>
#include <vector>

#include "hostlib/data/designcode/designcode.h"

namespace mrl::designcode {

struct EffectiveValue
{
    std::string
        subject; ///< "action Q_A", "situation persistent / 6.10a", "marks", "combinations", "labels", "code"
    std::string name;  ///< "Psi0"
    std::string value; ///< the shortest decimal of a number
};

/// All values, without comments, clauses, states and the label.
MRL_HOST_API std::vector<EffectiveValue> effectiveValues(const DesignCode& code);

/// Equal for two codes that say the same in effect, 64 hexadecimal digits.
MRL_HOST_API std::string fingerprint(const DesignCode& code);

struct Difference
{
    std::string subject;
    std::string name;             ///< empty where one of the codes lacks the whole subject
    std::optional<std::string> a; ///< nothing: the first code has no such value
    std::optional<std::string> b;
};

/// What differs, in the order of the first code, then what only the second one has.
MRL_HOST_API std::vector<Difference> differences(const DesignCode& a, const DesignCode& b);

/// "action Q_A Psi0: 0.7, was 0.5"; for messages to people.
MRL_HOST_API std::string textOf(const Difference& difference);

} // namespace mrl::designcode
