#include "manager/plugins.h"

#include "host/mrl_alib.h"
#include "host/mrl_lib.h"
#include "host/mrl_textlist.h"
#include "lcdata/values/keys.h"
#include "manager/control_struct.h"
#include "manager/entry_points.h"

namespace {

/// From four blanks to four small z: every code of letters, digits and underscores, and none of the numeric
/// keys that other modules keep in the same group.
constexpr int FIRST_ACTION_CODE = LC_BLANK_WORD;
constexpr int LAST_ACTION_CODE = 0x7a7a7a7a;

constexpr int RESTRICTED_RUN_MODES = 24;
constexpr int WITHOUT_USER_DEFINED = 1;
constexpr int SETTING_GENERATOR = 108;

// What the host understands of a plug-in's results.
constexpr int RESULT_DONE = 1;
constexpr int RESULT_UNCHANGED = 2;
constexpr int RESULT_CHANGED = 1025;
constexpr int RESULT_LOADCASES = 7;
constexpr int ABILITIES_LOADCASES = 7;
constexpr int ABILITIES_ACTIONS = 8768;

} // namespace

LoadCaseManagerPlugin::LoadCaseManagerPlugin() : MRL_H_Plugin(MRL_H_TASK_LOADCASES) {}

LoadCaseManagerPlugin::~LoadCaseManagerPlugin() = default;

int LoadCaseManagerPlugin::function(SupportedFunctions code, MRL_H_PluginParameter* parameter)
{
    switch (code) {
    case MRL_H_FUNCTION_LOAD:
        parameter->document->cdb2shadow(LC_KWH_CASES, false);
        MRL_H_Plugin::function(code, parameter);
        return RESULT_DONE;
    case MRL_H_FUNCTION_DIALOG: {
        MRL_LC_CtrlStruct control;
        control.mode = 0;
        mrl_loadcase_manager(parameter->parentWidget, parameter->document->index(), control);
        return RESULT_LOADCASES;
    }
    case MRL_H_FUNCTION_SAVE:
        parameter->document->addSaveKwh(LC_KWH_CASES);
        MRL_H_Plugin::function(code, parameter);
        return RESULT_DONE;
    case MRL_H_FUNCTION_ABILITIES:
        return ABILITIES_LOADCASES;
    default:
        return MRL_H_Plugin::function(code, parameter);
    }
}

ActionManagerPlugin::ActionManagerPlugin() : MRL_H_Plugin(MRL_H_TASK_ACTIONS) {}

ActionManagerPlugin::~ActionManagerPlugin() = default;

int ActionManagerPlugin::function(SupportedFunctions code, MRL_H_PluginParameter* parameter)
{
    switch (code) {
    case MRL_H_FUNCTION_LOAD:
        parameter->document->cdb2shadow(LC_KWH_ACTIONS, FIRST_ACTION_CODE, LAST_ACTION_CODE, false);
        MRL_H_Plugin::function(code, parameter);
        return RESULT_DONE;
    case MRL_H_FUNCTION_DIALOG:
        return openDialog(*parameter);
    case MRL_H_FUNCTION_GENERATE:
        generate(*parameter);
        return RESULT_DONE;
    case MRL_H_FUNCTION_SAVE:
        parameter->document->addSaveKwh(LC_KWH_ACTIONS, FIRST_ACTION_CODE, LAST_ACTION_CODE);
        MRL_H_Plugin::function(code, parameter);
        return RESULT_DONE;
    case MRL_H_FUNCTION_ABILITIES:
        return ABILITIES_ACTIONS;
    default:
        return MRL_H_Plugin::function(code, parameter);
    }
}

int ActionManagerPlugin::openDialog(const MRL_H_PluginParameter& parameter)
{
    MRL_LC_CtrlStruct control;
    control.mode = 1;
    control.singleTab = true;
    if ((mrl_alib_getLaufModus() & RESTRICTED_RUN_MODES) != 0) {
        control.actionOptions |= WITHOUT_USER_DEFINED;
    }
    const int result = mrl_loadcase_manager(parameter.parentWidget, parameter.document->index(), control);
    return result == QDialog::Accepted ? RESULT_CHANGED : RESULT_UNCHANGED;
}

void ActionManagerPlugin::generate(MRL_H_PluginParameter& parameter)
{
    const int setting = mrl_lib_setting(SETTING_GENERATOR);
    auto lines = std::make_unique<MRL_T_Liste>(parameter.projectTask->getName());
    lines->Append(mrl_h_generateAutomatic(tr("Marlavon Action Manager")));
    // The last line of the head doesn't belong into this text.
    lines->Delete(lines->GetLast());
    lines->Append(
        mrl_h_generatePROG(&parameter, QStringLiteral("TEMPLATE"), QString(), tr("Actions"), setting, 0));
    lines->Append("ECHO ACT\n");
    lines->Append(mrl_h_generateENDE(setting));
    parameter.lines = std::move(lines);
}
