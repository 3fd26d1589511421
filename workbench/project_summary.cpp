#include "workbench/project_summary.h"

#include <QCoreApplication>
#include <algorithm>

#include "host/mrl_alib.h"
#include "host/mrl_cdb.h"
#include "host/mrl_dlib.h"
#include "host/mrl_widgets.h"
#include "hostlib/data/designcode/designcode.h"
#include "lcdata/action_code.h"
#include "lcdata/load_cases.h"
#include "lcdata/system.h"
#include "model/check/project_check.h"

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
        if (walk.current().isOwn())
            summary.loadCases.push_back(walk.current());
        else
            ++summary.foreignLoadCases;
    }
}

struct FactorName
{
    FactorColumn::Factor factor;
    const char* name;
    const char* key;
    float tagCDB_LC_ACT::*mark;
};

constexpr FactorName FACTORS[] = {
    {FactorColumn::Gamu, "Gamu", "TXT_GAMU", &tagCDB_LC_ACT::gamu},
    {FactorColumn::Gamf, "Gamf", "TXT_GAMF", &tagCDB_LC_ACT::gamf},
    {FactorColumn::Gama, "Gama", "TXT_GAMA", &tagCDB_LC_ACT::gama},
    {FactorColumn::Psi0, "Psi0", "TXT_PSI0", &tagCDB_LC_ACT::psi0},
    {FactorColumn::Psi1, "Psi1", "TXT_PSI1", &tagCDB_LC_ACT::psi1},
    {FactorColumn::Psi1s, "Psi1s", "TXT_PSI1S", &tagCDB_LC_ACT::psi1s},
    {FactorColumn::Psi2, "Psi2", "TXT_PSI2", &tagCDB_LC_ACT::psi2},
};

QString labelOf(const designcode::DesignCode& code, const FactorName& factor)
{
    for (const auto& entry : code.texts) {
        if (entry.key == factor.key)
            return QString::fromStdString(entry.text).simplified();
    }
    return QString::fromLatin1(factor.name);
}

/// The factors that the design code knows; all of them under their plain names where there is none.
std::vector<FactorColumn> factorColumns(const designcode::DesignCode* code)
{
    std::vector<FactorColumn> columns;
    for (const auto& factor : FACTORS) {
        if (code && code->availability.*factor.mark <= 0.0f)
            continue;
        const QString label = code ? labelOf(*code, factor) : QString::fromLatin1(factor.name);
        if (label != QLatin1String("none"))
            columns.push_back({factor.factor, label});
    }
    return columns;
}

bool usesGlobalDirections()
{
    int on = 0;
    if (auto* application = dynamic_cast<MRL_QT_Application*>(QCoreApplication::instance()))
        application->getAppSettings(QStringLiteral("LF_Manager"), QStringLiteral("checkDeadload"), on, 0);
    return on != 0;
}

/// Judged as the managers would when they open.
std::vector<CheckFinding> findings(int db)
{
    std::vector<CheckFinding> worded;
    for (const LCM_ProjectFinding& finding : lcm_check_project(db, usesGlobalDirections())) {
        const QString where =
            finding.subject == LCM_ProjectFinding::Subject::Action
                ? QCoreApplication::translate("Workbench", "Action %1").arg(lcm_code_name(finding.id))
                : QCoreApplication::translate("Workbench", "Load case %1").arg(finding.id);
        worded.push_back({where, finding.message});
    }
    return worded;
}

} // namespace

ProjectSummary summarise(int db)
{
    ProjectSummary summary;
    const designcode::Loaded loaded = designcode::ofDatabase(db);
    mrl_cdb_use(db, 0);
    if (loaded.code && mrl_dlib_ini_switch(db) >= 0)
        summary.designCode = MRL_A_Normen::getNormLabelText(db);
    else
        summary.designCodeReason = QString::fromStdString(loaded.reason);
    summary.factors = factorColumns(loaded.code.get());
    summary.systemClass = lcm_system_class(db);
    summary.gravity = lcm_gravity_direction(db);
    summary.currentLoadCase = mrl_lc_current(db);
    summary.actions = readActions(db);
    readLoadCases(db, summary);
    if (loaded.code)
        summary.findings = findings(db);
    return summary;
}

} // namespace mrl::workbench
