#include "check/validate_name.h"

#include "check/finding_text.h"
#include "rules/new_action_name.h"

bool validateName(const QString& action, const QString& category, const QStringList& usedNames,
                  bool actionChanged, QString& message)
{
    const auto refusal = lcm_check_new_name({action, category}, usedNames,
                                            actionChanged ? LCM_NameEdit::Action : LCM_NameEdit::Category);
    if (refusal) {
        message = lcm_finding_text(*refusal);
    }
    return !refusal;
}
