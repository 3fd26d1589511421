#pragma once

#include <vector>

#include "model/working_model.h"

/// The tree of the actions as it was at a moment: which parents stand in it, and what each entry held.
class LCM_TreeState
{
  public:
    explicit LCM_TreeState(const LCM_DataClass& model);

  private:
    friend class LCM_TreeChange;
    std::vector<LCM_ActionEntry*> m_parents; ///< the model's, as the entries below
    struct Held
    {
        LCM_SubAction* entry;
        LCM_SubAction value;
    };
    std::vector<Held> m_entries;
};

/// What changed in the tree of the actions between a moment and now.
class LCM_TreeChange
{
  public:
    LCM_TreeChange() = default;
    LCM_TreeChange(const LCM_TreeState& before, const LCM_DataClass& model);

    bool isEmpty() const { return m_before == m_after && m_entries.empty(); }
    void undo(LCM_DataClass& model);
    void redo(LCM_DataClass& model);
    std::size_t bytes() const;

  private:
    void swapEntries();

    std::vector<LCM_ActionEntry*> m_before;
    std::vector<LCM_ActionEntry*> m_after;
    std::vector<LCM_TreeState::Held> m_entries; ///< with the values that the entries haven't
};
