#include "workbench/project_summary.h"

#include <QCoreApplication>
#include <QFont>
#include <algorithm>

#include "check/project_check.h"
#include "host/mrl_alib.h"
#include "host/mrl_cdb.h"
#include "host/mrl_dlib.h"
#include "host/mrl_widgets.h"
#include "hostlib/data/designcode/designcode.h"
#include "lcdata/load_cases.h"
#include "lcdata/system_record.h"
#include "lcdata/values/action_code.h"
#include "rules/dialog_settings.h"
#include "workbench/design_code_failure.h"
#include "workbench/wanted_extras.h"

namespace mrl::workbench {

namespace {

/// Those that the managers show.
std::vector<LCM_StoredAction> readActions(int db)
{
    std::vector<LCM_StoredAction> actions = lcm_stored_actions(db);
    const auto isHidden = [](const LCM_StoredAction& action) {
        return action.code == LC_BLANK_WORD || lcm_is_reserved_action(action.code);
    };
    actions.erase(std::remove_if(actions.begin(), actions.end(), isHidden), actions.end());
    // The keys are in the order of the names' last letters.
    std::sort(actions.begin(), actions.end(), [](const LCM_StoredAction& a, const LCM_StoredAction& b) {
        return lcm_code_name(a.code) < lcm_code_name(b.code);
    });
    return actions;
}

void readLoadCases(int db, ProjectSummary& summary)
{
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        if (walk.current().isOwn()) {
            summary.loadCases.push_back(walk.current());
        } else {
            ++summary.foreignLoadCases;
        }
    }
}

/// What would trap the user of a design code.
LCM_Findings trapsOf(const designcode::DesignCode& code)
{
    LCM_Findings findings;
    for (const designcode::Warning& warning : designcode::warnings(code)) {
        const designcode::Error told{warning.file, warning.line, warning.column, warning.text, warning.cure};
        findings.push_back(
            {LCM_Rule::DesignCodeTrap, LCM_Subject::Project, 0, 0, {QString::fromStdString(told.text())}});
    }
    return findings;
}

FactorOrigins originsOf(const std::vector<LCM_StoredAction>& actions,
                        const std::vector<FactorColumn>& columns)
{
    FactorOrigins origins;
    for (const LCM_StoredAction& action : actions) {
        auto& ofAction = origins[action.code];
        for (const FactorColumn& column : columns) {
            const LCM_Factor& factor = lcm_factor(column.id);
            ofAction[column.id] =
                lcm_factor_origin(action.code, factor, column.label, lcm_shown_factor(action.record, factor));
        }
    }
    return origins;
}

bool usesGlobalDirections()
{
    int on = 0;
    if (auto* application = dynamic_cast<MRL_QT_Application*>(QCoreApplication::instance())) {
        application->getAppSettings(LCM_SETTINGS_GROUP, LCM_SETTING_GLOBAL_DIRECTIONS, on, 0);
    }
    return on != 0;
}

} // namespace

QVariant originData(const FactorOrigins& origins, int action, LCM_FactorId factor, int role)
{
    const auto found = origins.find(action);
    const LCM_FactorOrigin origin = found == origins.end() ? LCM_FactorOrigin() : found->second[factor];
    if (role == Qt::ToolTipRole && !origin.text.isEmpty()) {
        return origin.text;
    }
    if (role == Qt::AccessibleDescriptionRole && origin.differs) {
        return origin.text;
    }
    if (role == Qt::FontRole && origin.differs) {
        QFont font;
        font.setItalic(true);
        return font;
    }
    return {};
}

ProjectSummary summarise(int db)
{
    ProjectSummary summary;
    const designcode::Loaded loaded = designcode::ofDatabase(db);
    mrl_cdb_use(db, 0);
    if (loaded.code && mrl_dlib_ini_switch(db) >= 0) {
        summary.designCode = MRL_A_Normen::getNormLabelText(db);
    } else {
        summary.designCodeReason = designCodeFailure(db);
    }
    summary.factors = loaded.code ? report::factorColumns(db) : report::plainFactorColumns();
    summary.systemClass = lcm_system_class(db);
    summary.gravity = lcm_gravity_direction(db);
    summary.currentLoadCase = mrl_lc_current(db);
    summary.actions = readActions(db);
    readLoadCases(db, summary);
    if (loaded.code && wantsExtras()) {
        summary.origins = originsOf(summary.actions, summary.factors);
        summary.findings = trapsOf(*loaded.code);
    }
    if (loaded.code) {
        // Judged as the managers would when they open.
        const LCM_Findings ofRows = lcm_check_project(db, usesGlobalDirections());
        summary.findings.insert(summary.findings.end(), ofRows.begin(), ofRows.end());
    }
    return summary;
}

} // namespace mrl::workbench
