#include "model/working_model.h"

#include "host/mrl_dlib.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/system_record.h"
#include "lcdata/values/action_code.h"
#include "model/action_tree.h"
#include "model/superposition_data.h"
#include "model/write_back.h"

LCM_DataClass::LCM_DataClass(int database) : usedLoadcaseNumbers(database), db(database)
{
    // Switches to the database and its design code; the following calls rely on it.
    info.init(db);
    mrl_dlib_lcact_info(0, &availability);
    loadActionsFromDesignCode();
    if (loadActionsFromDatabase(db) == 0) {
        activateDefaultActions();
    }
    usedLoadcaseNumbers.read();
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
    LCM_ActionEntry& entry = m_entryArena.emplace_back();
    entry.record = record;
    entry.state = state;
    entry.code = lcm_action_code(record);
    entry.userDefined = userDefined;
    return &entry;
}

LCM_SubAction* LCM_DataClass::newSubAction(const tagCDB_LC_ACT& record)
{
    LCM_SubAction& entry = m_subActionArena.emplace_back();
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

void LCM_DataClass::loadLoadCases()
{
    LCM_ActionWords words;
    loadcases.reserve(usedLoadcaseNumbers.countRead());
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        if (!walk.current().isOwn()) {
            continue;
        }
        LCM_LoadcaseEntry& entry = loadcases.emplace_back();
        entry.number = walk.current().number;
        entry.record = walk.current().record;
        entry.record.action = words.resolved(entry.record.action);
    }
}

void LCM_DataClass::writeActions(int database) { lcm_replace_actions(database, actions); }

void LCM_DataClass::writeLoadcases(int database) { lcm_replace_load_cases(database, loadcases); }

bool LCM_DataClass::hasSuperpositionKeys() const { return lcm_has_superposition_keys(db); }

bool LCM_DataClass::hasSuperpositionContent() const { return lcm_has_superposition_content(db); }
