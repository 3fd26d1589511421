#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "loadcases/action_list.h"

class LCM_LoadCaseCells;
class TableLoadCases;
struct LCM_LoadcaseEntry;

/// The actions of the rows of the load-case table: the entries that the action column offers, and the one
/// that each row is bound to. The caller blocks the table's signals while cells are written.
class LCM_RowActions
{
  public:
    /// @param table outlives this
    explicit LCM_RowActions(TableLoadCases& table) : m_table(table) {}

    /// Whether an id is the marker of an action that the project lacks.
    bool isMarker(int id) const { return m_list.isMarker(id); }
    /// The action word that a row stands for.
    int word(const LCM_LoadCaseCells& cells) const;

    /// Makes room for the actions of many entries at once: each change of the list costs its whole length.
    void offerActionsOf(const std::vector<LCM_LoadcaseEntry>& entries);
    /// Binds a row to the entry of a code, to that of its lower-case form, else to the marker of a missing
    /// action.
    /// @param word what the row keeps if its action is missing
    void bind(LCM_LoadCaseCells& cells, int code, int word);
    /// The same; a row that came with another spelling of the code keeps that spelling.
    void bindAgain(LCM_LoadCaseCells& cells, int code);
    /// Takes note of the entry that the user chose for a row.
    void takeChoice(LCM_LoadCaseCells& cells);

    /// How the rows get from a former list to the present one.
    struct Move
    {
        struct Target
        {
            int id = 0;
            bool changed = false; ///< the id or its text is another one
        };
        LCM_ActionList former;
        std::unordered_map<int, Target> targets; ///< by former id
    };
    /// Replaces the list. Writes no cell: the caller moves the rows.
    Move replaceList(LCM_ActionList list);
    /// Moves a row to its entry of the new list.
    /// @return false if its entry is the same as before; nothing was written then
    bool move(LCM_LoadCaseCells& cells, const Move& move);

    /// The list as it is now, to be put back by restore. The same object until the list changes.
    std::shared_ptr<const LCM_ActionList> snapshot();
    /// Puts a list in the place of the present one. Writes no cell.
    void restore(const LCM_ActionList& list);

    /// Whether a row is bound to the id.
    bool isUsed(int id);
    /// The rows or their actions have changed.
    void forgetUsed() { m_used.reset(); }

  private:
    void show();
    void showIfGrown();

    TableLoadCases& m_table;
    LCM_ActionList m_list;
    std::shared_ptr<const LCM_ActionList> m_snapshot; ///< of the present list; null while none was taken
    /// Ids that the action cells hold, while they are known; saves a walk over all rows for each question.
    std::optional<std::unordered_set<int>> m_used;
};
