#include "workbench/project_check.h"

#include <QCoreApplication>

#include <map>
#include <memory>

#include "host/mrl_dlib.h"
#include "host/mrl_widgets.h"
#include "lcdata/action_code.h"
#include "lcdata/keys.h"
#include "lcdata/load_cases.h"
#include "lcdata/system.h"
#include "model/data_class.h"
#include "model/rules/action_rules.h"
#include "model/rules/loadcase_rules.h"

namespace mrl::workbench {

namespace {

struct ReleaseModel
{
    void operator()(LCM_DataClass* model) const { model->release(); }
};
using Model = std::unique_ptr<LCM_DataClass, ReleaseModel>;
using ActionMap = std::map<int, tagCDB_LC_ACT>;

ActionMap activeActions(const LCM_DataClass& model)
{
    std::vector<tagCDB_LC_ACT> records;
    model.activeActions(records);
    ActionMap actions;
    for (const auto& record : records)
        actions.emplace(lcm_action_code(record), record);
    return actions;
}

void append(std::vector<CheckFinding>& out, const QString& where, const LCM_Findings& findings)
{
    for (const auto& [column, text] : findings)
        out.push_back({where, text});
}

bool usesGlobalDirections()
{
    int on = 0;
    if (auto* application = dynamic_cast<MRL_QT_Application*>(QCoreApplication::instance()))
        application->getAppSettings(QStringLiteral("LF_Manager"), QStringLiteral("checkDeadload"), on, 0);
    return on != 0;
}

LCM_LoadcaseSetup setupOf(int db, LCM_DataClass& model)
{
    LCM_LoadcaseSetup setup;
    setup.factorColumns = {model.hasGamu() != 0, model.hasGamf() != 0, model.hasGama() != 0,
                           model.hasPsi0() != 0, model.hasPsi1() != 0, model.hasPsi2() != 0,
                           model.hasPsi1s() != 0};
    setup.gravity = model.gravityDirection();
    setup.systemClass = lcm_system_class(db);
    setup.globalDirections = usesGlobalDirections();
    return setup;
}

void checkActions(const ActionMap& actions, const LCM_DataClass& model, std::vector<CheckFinding>& out)
{
    const LCM_DesignCodeIdentity identity{mrl_dlib_cdb_get_ntcode(), mrl_dlib_cdb_get_idcode(),
                                          mrl_dlib_cdb_get_dcntry(), mrl_dlib_cdb_get_dcyear()};
    for (const auto& [code, record] : actions)
        append(out, QCoreApplication::translate("Workbench", "Action %1").arg(actionName(code)),
               lcm_check_action(record, *model.availabilityRecord(), identity));
}

void checkLoadCases(const ActionMap& actions, const LCM_LoadcaseSetup& setup, const LCM_DataClass& model,
                    std::vector<CheckFinding>& out)
{
    for (const auto& entry : model.loadcases) {
        const auto found = actions.find(entry.record.action);
        const auto verdict = lcm_judge_stored_loadcase(entry.number, entry.record,
                                                       found == actions.end() ? nullptr : &found->second,
                                                       setup, *model.availabilityRecord());
        const QString where = QCoreApplication::translate("Workbench", "Load case %1").arg(entry.number);
        append(out, where, verdict.findings);
        if (verdict.actionMissing)
            out.push_back({where, QCoreApplication::translate("Workbench", "The project has no action %1.")
                                      .arg(actionName(entry.record.action))});
    }
}

} // namespace

std::vector<CheckFinding> checkProject(int db)
{
    const Model model(new LCM_DataClass(db));
    const ActionMap actions = activeActions(*model);
    std::vector<CheckFinding> findings;
    checkActions(actions, *model, findings);
    checkLoadCases(actions, setupOf(db, *model), *model, findings);
    return findings;
}

} // namespace mrl::workbench
