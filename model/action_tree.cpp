#include "model/action_tree.h"

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

LCM_ActionTargets lcm_action_targets(const std::vector<LCM_ActionEntry*>& tree, int code)
{
    LCM_ActionTargets targets;
    for (LCM_ActionEntry* parent : tree) {
        if (parent->code == code) {
            targets.parent = parent;
            break;
        }
        if (LCM_SubAction* child = firstChild(*parent, code)) {
            targets.children.push_back(child);
        }
    }
    return targets;
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
    static const LCM_ActionTargets none;
    const auto found = m_targets.find(code);
    return found == m_targets.end() ? none : found->second;
}

void LCM_ActionIndex::add(LCM_ActionEntry* parent)
{
    LCM_ActionTargets& own = m_targets[parent->code];
    if (!own.parent) {
        own.parent = parent;
    }
    std::unordered_set<int> seen;
    for (LCM_SubAction* child : parent->subActions) {
        LCM_ActionTargets& targets = m_targets[child->code];
        // Only a parent's first child with a code counts, and none behind the first parent with that code.
        if (seen.insert(child->code).second && !targets.parent) {
            targets.children.push_back(child);
        }
    }
}
