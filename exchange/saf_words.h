#pragma once

/// The words of SAF for what an action and its load cases are, and back.

#include <string>
#include <vector>

#include "exchange/message.h"
#include "lcdata/values/records.h"

namespace mrl::exchange {

/// A load group as SAF has it.
struct SafGroup
{
    std::string name;
    std::string type;            ///< Permanent, Variable, Accidental, Seismic, ...
    std::string relation;        ///< Standard, Exclusive, Together
    std::string loadType;        ///< of a variable one
    std::vector<Message> losses; ///< of the action that SAF can't say
};

/// The group of an action. @param name of the action
SafGroup safGroupOf(const std::string& name, const tagCDB_LC_ACT& action);
/// The group of load cases without an action, or of imperfections.
SafGroup safGroupOfNoAction(const std::string& name);

/// A load case as SAF has it, beside its name and title.
struct SafCase
{
    std::string actionType;
    std::string loadType;
    std::string duration; ///< of a variable one
};

SafCase safCaseOf(const SafGroup& group, const tagCDB_LC_ACT* action, const tagCDB_LC_CTRL& loadCase);

/// What a group means here.
struct SafMeaning
{
    std::string partition;
    std::string superposition;
    std::vector<Message> notes; ///< what the reader had to cure
};

SafMeaning safMeaningOf(const SafGroup& group);

/// The name of the action that design codes have for a group's load type; empty for none.
std::string safActionLike(const SafGroup& group);

/// The word of SAF for a design code; empty for one that it has no word for.
std::string safNationalCode(const std::string& designCode);

} // namespace mrl::exchange
