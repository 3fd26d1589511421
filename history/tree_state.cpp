#include "history/tree_state.h"

#include <string_view>
#include <utility>

namespace {

/// By its bytes, so that not-a-number is equal to itself.
std::string_view bytesOf(const tagCDB_LC_ACT& record)
{
    return {reinterpret_cast<const char*>(&record), sizeof record};
}

bool same(const LCM_SubAction& a, const LCM_SubAction& b)
{
    return a.state == b.state && a.code == b.code && bytesOf(a.record) == bytesOf(b.record);
}

} // namespace

LCM_TreeState::LCM_TreeState(const LCM_DataClass& model) : m_parents(model.actions)
{
    for (LCM_ActionEntry* parent : m_parents) {
        m_entries.push_back({parent, *parent});
        for (LCM_SubAction* child : parent->subActions) {
            m_entries.push_back({child, *child});
        }
    }
}

LCM_TreeChange::LCM_TreeChange(const LCM_TreeState& before, const LCM_DataClass& model)
{
    // A parent that came has no value to be put back: it is out of the tree then.
    for (const LCM_TreeState::Held& held : before.m_entries) {
        if (!same(held.value, *held.entry)) {
            m_entries.push_back(held);
        }
    }
    if (before.m_parents != model.actions) {
        m_before = before.m_parents;
        m_after = model.actions;
    }
}

void LCM_TreeChange::undo(LCM_DataClass& model)
{
    swapEntries();
    if (m_before != m_after) {
        model.actions = m_before;
    }
}

void LCM_TreeChange::redo(LCM_DataClass& model)
{
    swapEntries();
    if (m_before != m_after) {
        model.actions = m_after;
    }
}

void LCM_TreeChange::swapEntries()
{
    for (LCM_TreeState::Held& held : m_entries) {
        std::swap(held.value, *held.entry);
    }
}

std::size_t LCM_TreeChange::bytes() const
{
    return sizeof(void*) * (m_before.capacity() + m_after.capacity()) +
           sizeof(LCM_TreeState::Held) * m_entries.capacity();
}
