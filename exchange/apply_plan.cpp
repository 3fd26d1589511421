#include "exchange/apply_plan.h"

#include "exchange/raw_records.h"
#include "lcdata/values/keys.h"

namespace mrl::exchange {

bool apply(const PlannedRow& row, const ProjectState& state, int db)
{
    if (row.outcome != Outcome::Added && row.outcome != Outcome::Changed) {
        return true;
    }
    if (row.sheet == Sheet::LoadCases) {
        return row.isNew ? putRecord(db, LC_KWH_CASES, row.id, bytesOf(row.loadCase))
                         : overwriteRecord(db, LC_KWH_CASES, row.id, 0, &row.loadCase, sizeof row.loadCase);
    }
    return row.isNew ? putRecord(db, LC_KWH_ACTIONS, row.id, bytesOf(row.action->wanted))
                     : overwriteRecord(db, LC_KWH_ACTIONS, row.id, state.actions.at(row.id).position,
                                       &row.action->wanted, sizeof row.action->wanted);
}

const PlannedRow* apply(const Plan& plan, const ProjectState& state, int db)
{
    for (const PlannedRow& row : plan.rows) {
        if (!apply(row, state, db)) {
            return &row;
        }
    }
    return nullptr;
}

} // namespace mrl::exchange
