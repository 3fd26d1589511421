#pragma once

#include <optional>
#include <set>
#include <vector>

#include "lcdata/values/keys.h"
#include "lcdata/values/records.h"

/// The numbers that new load cases are proposed: the smallest free one from the selected load case on, or
/// from the highest of the table when none is selected.
class LCM_FreeNumbers
{
  public:
    /// @param rows     numbers of all rows of the table
    /// @param selected number of the topmost selected row
    /// @param used     numbers that the database knows, those of other modules too; has to outlive this
    LCM_FreeNumbers(std::vector<int> rows, std::optional<int> selected, const std::set<int>& used);

    /// The next free number, which may be above LC_MAX_NUMBER; 1 for an empty table, whatever is used.
    int next();
    /// A row with this number came.
    void take(int number);

  private:
    bool isFree(int number) const;

    std::vector<int> m_rows; ///< ascending
    const std::set<int>& m_used;
    std::set<int> m_taken;
    bool m_empty;
    bool m_fixedStart;
    int m_number = 1; ///< everything below it, down to the start, is taken
};

/// LCM_FreeNumbers::next for a table as it stands.
int lcm_next_number(const std::vector<int>& rows, std::optional<int> selected, const std::set<int>& used);

/// What the number dialog proposes when a target is given: the first free number from the target on that lies
/// below LC_MAX_NUMBER, and the target itself when there is none.
int lcm_proposed_target(int target, const std::set<int>& taken);

/// The kind of default action that a new load case takes, whatever its source held.
enum class LCM_DefaultAction {
    Keep, ///< it keeps the action that it brought along
    Dead,
    Live
};
/// @param rowCount rows of the table before the new one is appended
LCM_DefaultAction lcm_default_action_of_new(int rowCount);

/// Binds the record of a new load case to a default action.
/// @param action the default action
/// @param exists whether the project has it; without it the load case has no action
void lcm_bind_default_action(const tagCDB_LC_ACT& action, bool exists, tagCDB_LC_CTRL& record);
