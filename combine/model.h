#pragma once

/// What is combined: actions, load cases and the constants of the design code. Plain data; nothing here reads a
/// database.

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "lcdata/values/factors.h"
#include "lcdata/values/partition.h"
#include "lcdata/values/situation.h"

namespace mrl::combine {

/// The categories, with their numbers in the records.
enum class Category {
    Permanent = LC_CATEGORY_PERMANENT,
    Prestress = LC_CATEGORY_PRESTRESS,
    Variable = LC_CATEGORY_VARIABLE,
    Accidental = LC_CATEGORY_ACCIDENTAL,
    Seismic = LC_CATEGORY_EARTHQUAKE
};

/// How the load cases of an action act together; what each one means stands in LCM_SUPERPOSITIONS.
using Superposition = LCM_SuperpositionId;

/// The factors of an action by LCM_SituationFactor, as they are stored: `Gama` is still under its zero rule.
using Factors = std::array<float, LCM_FACTORS.size()>;

inline float& factor(Factors& factors, LCM_SituationFactor which)
{
    return factors[static_cast<std::size_t>(which)];
}
inline float factor(const Factors& factors, LCM_SituationFactor which)
{
    return factors[static_cast<std::size_t>(which)];
}

struct Action
{
    std::string name; ///< first part and suffix: "Q", "Q_B"
    Category category = Category::Variable;
    Superposition superposition = LC_SUPERPOSITION_COND;
    int group = 0; ///< load group of a variable action; 0: none
    Factors factors{};
};

/// One load case. With neither an action nor factors it is left out.
struct LoadCase
{
    int number = 0;
    std::string action; ///< empty: none
    bool isImperfection = false;
    std::optional<Factors> own; ///< factors of its own, where it has no action
    std::string finding;        ///< why it can't be combined, as somebody else judged; empty: it can
};

struct Model
{
    std::vector<Action> actions;
    std::vector<LoadCase> loadCases;
    std::map<std::string, float> constants; ///< KFI, XSI and others of the design code
};

/// One factor of a combination.
struct Share
{
    int number = 0; ///< the load case
    double factor = 0;
};
inline bool operator==(const Share& a, const Share& b)
{
    return a.number == b.number && a.factor == b.factor;
}
inline bool operator<(const Share& a, const Share& b)
{
    return a.number != b.number ? a.number < b.number : a.factor < b.factor;
}

/// The factors of a combination by load case, ascending; factors of 0 are left out.
using Key = std::vector<Share>;

/// An action that acts in a combination, and as what.
struct Part
{
    int member = 0; ///< in Prepared::members
    LCM_Role role = LCM_Role::Others;
};

/// One combination of a situation.
struct Combination
{
    int expression = 0; ///< its place in the situation
    std::string
        leading; ///< the action that leads; of a load group all its leading actions, joined by " + "; empty: nobody
    Key key;
    std::vector<Part> parts; ///< of a governing combination; a list doesn't fill them
};

} // namespace mrl::combine
