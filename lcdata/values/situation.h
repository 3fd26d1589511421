#pragma once

/// A situation of a design code: how actions are combined, as data. situation_text.h reads one from the text
/// of a design-code file; docs/combinations.md tells what each part means.

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "lcdata/values/factors.h"

/// A factor of an action that a term may name.
using LCM_SituationFactor = LCM_FactorId;

/// A product of a number, constants of the design code and factors of the action that it stands for.
struct LCM_Term
{
    double number = 1.0;                      ///< the numbers of the product, multiplied
    std::vector<std::string> constants;       ///< KFI, XSI and others of the design code, in order of name
    std::vector<LCM_SituationFactor> factors; ///< in the order of the enumeration
};

/// Two terms are equal when they name the same, whatever the values of an action are.
inline bool operator==(const LCM_Term& a, const LCM_Term& b)
{
    return a.number == b.number && a.constants == b.constants && a.factors == b.factors;
}
inline bool operator!=(const LCM_Term& a, const LCM_Term& b) { return !(a == b); }

/// What an action is within an expression.
enum class LCM_Role {
    Permanent,   ///< `G`
    Prestress,   ///< `P`
    Lead,        ///< `lead`: the leading variable action
    Others,      ///< `others`: every other variable action
    Second,      ///< `second`: each short-term action beside the leading one but for the first of them
    Accidental,  ///< `A`
    Seismic,     ///< `E`
    Imperfection ///< `I`
};

/// The factor of a role, for all actions or for one.
struct LCM_RoleEntry
{
    LCM_Role role = LCM_Role::Permanent;
    std::string action; ///< the action that it holds for, with its suffixes; empty: for all
    std::string
        when; ///< Others: where this action leads. Lead: where this accidental action acts. Empty: always
    std::optional<LCM_Term> unfavourable; ///< nothing: `none`, the action doesn't act in this role
    std::optional<LCM_Term> favourable;   ///< where an action acts although it is favourable; nothing: see
                                          ///< lcm_favourable_term
    int place = 0;                        ///< LCM_TextEntry::place of the entry
};

/// One of the alternatives of a bracket: `0.5*LR`.
struct LCM_SumTerm
{
    LCM_Term term;
    std::string action; ///< with its suffixes
};

/// The alternatives that are joined by `or`; a term without a bracket is one alone.
using LCM_Bracket = std::vector<LCM_SumTerm>;

struct LCM_Expression
{
    std::string name;   ///< empty where the situation has one expression
    std::string clause; ///< empty: that of the situation
    std::string state;  ///< whether the values were verified; empty: that of the situation
    std::vector<LCM_RoleEntry> entries;
    std::vector<std::string> shortActions; ///< of these the second one beside the leading takes `second`
    std::optional<std::vector<LCM_Bracket>> sum; ///< instead of leading and other variable actions
    int place = 0;                               ///< LCM_SituationSection::place of its section
    int shortPlace = 0;                          ///< that of `short`
    int sumPlace = 0;                            ///< that of `sum`
};

/// What the load group of actions says.
enum class LCM_Groups {
    Together, ///< actions of one group lead together
    Exclude,  ///< they do, and only one group acts
    Apart     ///< nothing
};

struct LCM_Situation
{
    std::string name;
    std::string kind; ///< one of LCM_SITUATION_KINDS
    std::string clause;
    std::string state;
    std::string title;
    std::vector<std::pair<std::string, std::string>> titles; ///< language and title
    LCM_Groups groups = LCM_Groups::Together;
    int atMost = 0;         ///< greatest number of variable actions that act; 0: any number
    bool always = false;    ///< variable actions act whether favourable or not
    bool mayBeNone = false; ///< there may be no accidental or seismic action
    double firstComponent =
        0; ///< of the load cases of the seismic action one has this factor; 0: they don't act together
    double otherComponents = 0; ///< and the others have this one
    bool removed = false;       ///< `remove = yes`: a file takes the situation of its base away
    std::vector<LCM_Expression> expressions;
    int place = 0; ///< LCM_SituationSection::place of its first section
};

inline constexpr std::array<const char*, 7> LCM_SITUATION_KINDS{
    "ultimate", "accidental", "seismic", "characteristic", "frequent", "quasi-permanent", "infrequent"};

/// Whether what is said for an action holds for another: for itself and, said for a plain action, for its suffixes.
/// @return 2: it is the action itself, 1: a suffix of it, 0: neither
int lcm_action_matches(const std::string& said, const std::string& action);

/// The entry of a role that holds for an action. What is said for the action itself goes before what is said for its
/// plain action, and that before what is said for all; among these an entry with a fitting `when` goes first.
/// @param present the actions that may stand behind `when`: those that lead, or the accidental one that acts
/// @return null: the expression says nothing of the role
const LCM_RoleEntry* lcm_role_entry(const LCM_Expression& expression, LCM_Role role,
                                    const std::string& action, const std::vector<std::string>& present = {});

/// The factor of an action that acts although it is favourable. Where the entry doesn't state it, it is the
/// unfavourable term with `Gamf` for `Gamu` and without `KFI`, which multiplies unfavourable actions alone.
std::optional<LCM_Term> lcm_favourable_term(const LCM_RoleEntry& entry);
