#include "model/action_tree.h"

#include <algorithm>
#include <unordered_set>

namespace {

LCM_SubAction* firstChild(const LCM_ActionEntry& parent, int code)
{
    for (LCM_SubAction* child : parent.subActions) {
        if (child->code == code) {
            return child;
        }
    }
    return nullptr;
}

} // namespace

const LCM_SubAction* lcm_find_action(const std::vector<LCM_ActionEntry*>& tree, int code)
{
    for (const LCM_ActionEntry* parent : tree) {
        if (parent->code == code) {
            return parent;
        }
        if (const LCM_SubAction* child = firstChild(*parent, code)) {
            return child;
        }
    }
    return nullptr;
}

void LCM_ActionTargets::store(const tagCDB_LC_ACT& record) const
{
    for (LCM_SubAction* child : children) {
        child->record = record;
    }
    if (parent) {
        parent->record = record;
    }
}

LCM_ActionTargets LCM_ActionTargets::preferActive() const
{
    LCM_ActionTargets only;
    int found = 0;
    const auto takeChild = [&](LCM_SubAction* child) {
        if (child->state == LCM_STATE_ACTIVE) {
            only.children = {child};
            ++found;
        }
    };
    const auto takeParent = [&](LCM_ActionEntry* entry) {
        if (entry && entry->state == LCM_STATE_ACTIVE) {
            only.parent = entry;
            ++found;
        }
    };
    std::for_each(children.begin(), children.end(), takeChild);
    std::for_each(laterChildren.begin(), laterChildren.end(), takeChild);
    takeParent(parent);
    std::for_each(laterParents.begin(), laterParents.end(), takeParent);
    return found == 1 ? only : *this;
}

LCM_ActionIndex::LCM_ActionIndex(const std::vector<LCM_ActionEntry*>& tree)
{
    m_targets.reserve(tree.size());
    for (LCM_ActionEntry* parent : tree) {
        add(parent);
    }
}

const LCM_ActionTargets& LCM_ActionIndex::at(int code) const
{
    static const LCM_ActionTargets NONE;
    const auto found = m_targets.find(code);
    return found == m_targets.end() ? NONE : found->second;
}

void LCM_ActionIndex::add(LCM_ActionEntry* parent)
{
    LCM_ActionTargets& own = m_targets[parent->code];
    if (own.parent) {
        own.laterParents.push_back(parent);
    } else {
        own.parent = parent;
    }
    std::unordered_set<int> seen;
    for (LCM_SubAction* child : parent->subActions) {
        LCM_ActionTargets& targets = m_targets[child->code];
        // A walk meets only a parent's first child with a code, and none behind the first parent with that code.
        const bool isMet = seen.insert(child->code).second && !targets.parent;
        (isMet ? targets.children : targets.laterChildren).push_back(child);
    }
}
