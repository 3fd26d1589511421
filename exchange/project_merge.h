#pragma once

/// Three-way merge of projects: what changed on one side is taken.

#include <optional>

#include "exchange/project_content.h"

namespace mrl::exchange {

/// What changed on both sides differently.
struct MergeConflict
{
    std::string subject; ///< as in a difference
    std::string name;
    std::string
        value; ///< the column, "value" of a fact, "bytes" of a record; "presence" where one side removed it
    std::string base;
    std::string ours;
    std::string theirs;
};

enum class Side { Ours, Theirs };

struct Merge
{
    ProjectContent
        content; ///< where there are conflicts: with the value of the chosen side, ours unless chosen
    std::vector<MergeConflict> conflicts;
};

/// Actions and load cases are merged field by field, everything else by key.
Merge mergeOf(const ProjectContent& base, const ProjectContent& ours, const ProjectContent& theirs,
              Side winner);

} // namespace mrl::exchange
