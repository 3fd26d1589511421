#include "model/working_model.h"

#include "host/mrl_dlib.h"
#include "lcdata/system.h"
#include "lcdata/values/action_code.h"
#include "model/action_tree.h"

LCM_DataClass::LCM_DataClass(int database) : db(database)
{
    // Switches to the database and its design code, which all that follows relies on.
    info.init(db);
    mrl_dlib_lcact_info(0, &availability);
    loadActionsFromDesignCode();
    if (loadActionsFromDatabase(db) == 0) {
        activateDefaultActions();
    }
    readLoadCaseNumbers();
    loadLoadCases();
}

LCM_DataClass::~LCM_DataClass() = default;

void LCM_DataClass::addReference() { ++refCount; }

void LCM_DataClass::release()
{
    if (--refCount == 0) {
        delete this;
    }
}

LCM_ActionEntry* LCM_DataClass::newEntry(const tagCDB_LC_ACT& record, int state, bool userDefined)
{
    LCM_ActionEntry& entry = entryArena.emplace_back();
    entry.record = record;
    entry.state = state;
    entry.code = lcm_action_code(record);
    entry.userDefined = userDefined;
    return &entry;
}

LCM_SubAction* LCM_DataClass::newSubAction(const tagCDB_LC_ACT& record)
{
    LCM_SubAction& entry = subActionArena.emplace_back();
    entry.record = record;
    entry.code = lcm_action_code(record);
    return &entry;
}

int LCM_DataClass::findAction(int code, tagCDB_LC_ACT& out, bool inDesignCode) const
{
    const LCM_SubAction* found = lcm_find_action(inDesignCode ? designCodeActions : actions, code);
    if (!found) {
        return 0;
    }
    out = found->record;
    return 1;
}

bool LCM_DataClass::activeActions(std::vector<tagCDB_LC_ACT>& out) const
{
    out.clear();
    const auto append = [&](const LCM_SubAction& entry) {
        if (entry.state == LCM_STATE_ACTIVE) {
            out.push_back(entry.record);
        }
    };
    for (const LCM_ActionEntry* parent : actions) {
        append(*parent);
        for (const LCM_SubAction* child : parent->subActions) {
            append(*child);
        }
    }
    return !out.empty();
}

int LCM_DataClass::gravityDirection() const { return lcm_gravity_direction(db); }
