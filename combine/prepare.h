#pragma once

/// Sorts a model for a situation: which load cases take part, under which action, and which actions exclude each other.

#include <array>
#include <string>
#include <vector>

#include "combine/model.h"

namespace mrl::combine {

/// The factors of an action as decimals, `Gama` without its zero rule.
using DecimalFactors = std::array<double, LCM_FACTORS.size()>;

/// An action with load cases, or a load case that is its own action.
struct Member
{
    std::string name; ///< the action's; "LC 17" for load case 17 that has none; "IMP" for the imperfections
    Category category = Category::Variable;
    Superposition superposition = LC_SUPERPOSITION_COND;
    int group = 0; ///< load group; 0 where the situation gives it no meaning
    DecimalFactors factors{};
    int first = 0; ///< its load cases in Prepared::numbers
    int count = 0; ///< above 0
};

enum class UnitKind { Permanent, Imperfection, Accidental, Variable };

/// Members of which at most one acts: the EXEX suffixes of one first part and category, so far as they are in one load
/// group. Everything else is alone.
struct Unit
{
    UnitKind kind = UnitKind::Variable;
    int group = 0;
    int pool =
        -1; ///< units with the same number exclude each other: a pool of EXEX across load groups; -1: none
    std::vector<int> members;
};

/// A load case, or with number 0 something else, and what is to be told of it.
struct Remark
{
    int number = 0;
    std::string reason;
};

struct Prepared
{
    std::vector<int> numbers; ///< the load cases that take part, each member's in one run
    std::vector<Member> members;
    std::vector<Unit> units;     ///< permanent, imperfection, accidental, variable; load groups in one run
    std::vector<Remark> leftOut; ///< load cases that don't take part
    std::vector<Remark> refused; ///< what forbids to combine; nothing else holds where there is one
    int pools = 0;               ///< number of pools across load groups
};

Prepared prepare(const Model& model, const LCM_Situation& situation);

/// The first part of an action's name, without its suffix.
std::string firstPart(const std::string& name);

} // namespace mrl::combine
