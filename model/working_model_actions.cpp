// How the action tree is built from the design code and the project, changed, and put back to the design
// code's values.
#include <algorithm>
#include <unordered_set>

#include "host/mrl_dlib.h"
#include "lcdata/default_actions.h"
#include "lcdata/key_walk.h"
#include "lcdata/record_walk.h"
#include "lcdata/values/action_code.h"
#include "model/action_tree.h"
#include "model/working_model.h"

namespace {

LCM_ActionEntry* parentOf(const std::vector<LCM_ActionEntry*>& tree, const tagCDB_LC_ACT& child)
{
    const auto firstPart = lcm_field_word(child.name);
    for (LCM_ActionEntry* parent : tree) {
        if (lcm_field_word(parent->record.name) == firstPart) {
            return parent;
        }
    }
    return nullptr;
}

/// Takes the stored records of the project into a tree.
class StoredActions
{
  public:
    StoredActions(LCM_DataClass& model) : m_model(model), m_index(model.actions) {}

    void take(int code, const tagCDB_LC_ACT& record)
    {
        const LCM_ActionTargets& targets = m_index.at(code);
        if (targets.empty()) {
            return append(record);
        }
        targets.store(record);
        for (LCM_SubAction* child : targets.children) {
            child->state = LCM_STATE_ACTIVE;
        }
        m_matches += static_cast<int>(targets.children.size());
        if (targets.parent) {
            targets.parent->state = LCM_STATE_ACTIVE;
            // A second record under a key of the user's own is no action of the design code either.
            m_matches += targets.parent->userDefined ? 0 : 1;
        }
    }

    int matches() const { return m_matches; }

  private:
    void append(const tagCDB_LC_ACT& record)
    {
        LCM_ActionEntry* entry = m_model.newEntry(record, LCM_STATE_ACTIVE, true);
        m_model.actions.push_back(entry);
        m_index.add(entry);
    }

    LCM_DataClass& m_model;
    LCM_ActionIndex m_index;
    int m_matches = 0;
};

/// Reads all records of a key one after the other.
void takeKey(int db, int code, StoredActions& stored)
{
    for (LCM_RecordWalk<tagCDB_LC_ACT> walk(db, LC_KWH_ACTIONS, code); walk.next();) {
        if (walk.record().kind == LC_KIND_ACTION) {
            stored.take(code, walk.record());
        }
    }
}

} // namespace

void LCM_DataClass::loadActionsFromDesignCode()
{
    actions.clear();
    mrl_dlib_ini_switch(db);
    lcm_enumerate_default_actions([this](const tagCDB_LC_ACT& record) {
        addTableEntry(actions, record);
        addTableEntry(designCodeActions, record);
        return false;
    });
}

void LCM_DataClass::addTableEntry(std::vector<LCM_ActionEntry*>& tree, const tagCDB_LC_ACT& record)
{
    if (!lcm_has_suffix(record.suffix)) {
        tree.push_back(newEntry(record, LCM_STATE_FREE, false));
        return;
    }
    LCM_ActionEntry* parent = parentOf(tree, record);
    if (!parent) {
        tagCDB_LC_ACT withoutSuffix = record;
        withoutSuffix.suffix = 0;
        parent = newEntry(withoutSuffix, LCM_STATE_PLACEHOLDER, false);
        tree.push_back(parent);
    }
    parent->subActions.push_back(newSubAction(record));
}

int LCM_DataClass::loadActionsFromDatabase(int database)
{
    StoredActions stored(*this);
    for (LCM_KeyWalk walk = lcm_walk_actions(database); walk.next();) {
        if (!lcm_is_reserved_action(walk.kwl())) {
            takeKey(database, walk.kwl(), stored);
        }
    }
    return stored.matches();
}

void LCM_DataClass::activateDefaultActions()
{
    std::map<int, tagCDB_LC_ACT> defaults;
    for (const bool dead : {true, false}) {
        tagCDB_LC_ACT record{};
        const int code = mrl_lc_get_default_action(db, dead, record);
        if (code >= 1) {
            defaults[code] = record;
        }
    }
    const auto activate = [&](LCM_SubAction& entry) {
        const auto found = defaults.find(entry.code);
        if (found == defaults.end()) {
            return;
        }
        entry.record = found->second;
        entry.state = LCM_STATE_ACTIVE;
    };
    for (LCM_ActionEntry* parent : actions) {
        activate(*parent);
        for (LCM_SubAction* child : parent->subActions) {
            activate(*child);
        }
    }
}

void LCM_DataClass::resetAction(int code)
{
    tagCDB_LC_ACT record;
    if (findAction(code, record, true)) {
        storeAction(code, record, true);
    }
}

void LCM_DataClass::removeAction(int code) { removeActions({code}); }

void LCM_DataClass::removeActions(const std::set<int>& codes)
{
    const LCM_ActionIndex live(actions);
    const LCM_ActionIndex defaults(designCodeActions);
    std::unordered_set<const LCM_ActionEntry*> gone;
    for (const int code : codes) {
        const LCM_ActionTargets targets = live.at(code).preferActive();
        if (const LCM_SubAction* known = defaults.at(code).first()) {
            targets.store(known->record);
        }
        for (LCM_SubAction* child : targets.children) {
            child->state = LCM_STATE_FREE;
        }
        if (!targets.parent) {
            continue;
        }
        targets.parent->state = LCM_STATE_FREE;
        if (targets.parent->userDefined) {
            gone.insert(targets.parent);
        }
    }
    const auto isGone = [&](const LCM_ActionEntry* entry) { return gone.count(entry) != 0; };
    actions.erase(std::remove_if(actions.begin(), actions.end(), isGone), actions.end());
}

void LCM_DataClass::storeAction(int code, const tagCDB_LC_ACT& record, bool mayCreate)
{
    storeActions({{code, record}}, mayCreate);
}

void LCM_DataClass::storeActions(const std::vector<LCM_CodedAction>& rows, bool mayCreate)
{
    LCM_ActionIndex index(actions);
    for (const LCM_CodedAction& row : rows) {
        const LCM_ActionTargets targets = index.at(row.code).preferActive();
        targets.store(row.record);
        if (!targets.empty() || !mayCreate) {
            continue;
        }
        actions.push_back(newEntry(row.record, LCM_STATE_ACTIVE, false));
        index.add(actions.back());
    }
}
