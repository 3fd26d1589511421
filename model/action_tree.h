#pragma once

/// Searches in a tree of actions. A tree has two levels; the first match wins.

#include <unordered_map>
#include <vector>

#include "model/working_model.h"

/// The entry with a code: a parent ahead of its children, an earlier parent ahead of a later one.
/// @return null when there is none
const LCM_SubAction* lcm_find_action(const std::vector<LCM_ActionEntry*>& tree, int code);

/// The entries of a code that a walk over a tree meets: the first child with the code of each parent ahead of
/// the first parent that has the code itself, and that parent.
struct LCM_ActionTargets
{
    std::vector<LCM_SubAction*> children;
    LCM_ActionEntry* parent = nullptr;
    // The other entries of the code.
    std::vector<LCM_SubAction*> laterChildren;
    std::vector<LCM_ActionEntry*> laterParents;

    bool empty() const { return !parent && children.empty(); }
    /// The one entry of the code that is part of the project, such as an action of the user's own beside a free
    /// one of the design code; the entries that the walk meets if none or several are.
    LCM_ActionTargets preferActive() const;
    /// The entry that a search finds; null when there is none. The children stand ahead of the parent.
    const LCM_SubAction* first() const { return children.empty() ? parent : children.front(); }
    /// Copies a record over the entries; their states stay.
    void store(const tagCDB_LC_ACT& record) const;
};

/// The targets of all codes of a tree at once, for many look-ups.
class LCM_ActionIndex
{
  public:
    explicit LCM_ActionIndex(const std::vector<LCM_ActionEntry*>& tree);

    /// @return no entries for an unknown code
    const LCM_ActionTargets& at(int code) const;
    /// Notes a parent that was appended to the tree.
    void add(LCM_ActionEntry* parent);

  private:
    std::unordered_map<int, LCM_ActionTargets> m_targets;
};
