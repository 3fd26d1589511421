#include "actions/new_action.h"

#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/partition.h"
#include "model/working_model.h"

namespace {

tagCDB_LC_ACT typedAction(const LCM_NewAction& choice)
{
    tagCDB_LC_ACT action{};
    action.kind = LC_KIND_ACTION;
    lcm_pack_field(choice.actionName.toUtf8().constData(), action.name);
    if (!choice.categoryName.isEmpty()) {
        action.suffix = lcm_pack_word(choice.categoryName);
    }
    action.partition = lcm_partition_word(LC_CATEGORY_VARIABLE, LC_SUPERPOSITION_EXCL);
    lcm_title_pack(choice.description, action.title, LC_TITLE_WORDS);
    return action;
}

/// The entry that was chosen. @return null when the name was typed
LCM_SubAction* chosenEntry(const std::vector<LCM_ActionEntry*>& actions, const LCM_NewAction& choice)
{
    if (choice.actionIndex < 0) {
        return nullptr;
    }
    LCM_ActionEntry* parent = actions.at(static_cast<std::size_t>(choice.actionIndex));
    if (choice.categoryIndex >= 0) {
        return parent->subActions.at(static_cast<std::size_t>(choice.categoryIndex));
    }
    // A typed category makes an action of its own, whichever parent is chosen.
    return choice.categoryName.isEmpty() ? parent : nullptr;
}

void activate(LCM_SubAction& entry, std::vector<tagCDB_LC_ACT>& activated)
{
    if (entry.state == LCM_STATE_ACTIVE || entry.state == LCM_STATE_PLACEHOLDER) {
        return;
    }
    entry.state = LCM_STATE_ACTIVE;
    activated.push_back(entry.record);
}

} // namespace

tagCDB_LC_ACT lcm_add_action(LCM_DataClass& model, const LCM_NewAction& choice)
{
    LCM_SubAction* entry = chosenEntry(model.actions, choice);
    if (entry == nullptr) {
        const tagCDB_LC_ACT action = typedAction(choice);
        model.actions.push_back(model.newEntry(action, LCM_STATE_ACTIVE, true));
        return action;
    }
    lcm_title_pack(choice.description, entry->record.title, LC_TITLE_WORDS);
    entry->state = LCM_STATE_ACTIVE;
    entry->code = lcm_action_code(entry->record);
    return entry->record;
}

std::vector<tagCDB_LC_ACT> lcm_activate_free_actions(LCM_DataClass& model)
{
    std::vector<tagCDB_LC_ACT> activated;
    for (LCM_ActionEntry* parent : model.actions) {
        for (LCM_SubAction* child : parent->subActions) {
            activate(*child, activated);
        }
        activate(*parent, activated);
    }
    return activated;
}
