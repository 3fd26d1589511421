#pragma once

#include <QString>

#include <vector>

#include "lcdata/values/records.h"

class LCM_DataClass;

/// What the user chose in the new-action dialog.
struct LCM_NewAction
{
    int actionIndex = -1;   ///< the chosen parent in the model's `actions`; -1: the name was typed
    int categoryIndex = -1; ///< the chosen child in the parent's `subActions`; -1: the parent itself
    QString description;    ///< the title of the new action
    QString actionName;     ///< the typed name in upper case; empty for a chosen action
    QString categoryName;   ///< the typed category in upper case; empty for a chosen action
};

/// Makes an action part of the project, in the model's tree. A chosen one comes with the values of its entry
/// and the given description. A typed one is a new parent of its own: variable, exclusive within its
/// category, with all factors 0.
/// @return the record of the action
tagCDB_LC_ACT lcm_add_action(LCM_DataClass& model, const LCM_NewAction& choice);

/// Makes every action that is still free part of the project, children of placeholders too; placeholders
/// themselves stay as they are.
/// @return the records of these actions, children ahead of their parent
std::vector<tagCDB_LC_ACT> lcm_activate_free_actions(LCM_DataClass& model);
