#include "check/project_check.h"

#include <QCoreApplication>

#include <map>

#include "check/stored_definitions.h"
#include "host/mrl_dlib.h"
#include "lcdata/actions.h"
#include "lcdata/guards.h"
#include "lcdata/key_walk.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/stored_actions.h"
#include "lcdata/values/action_code.h"
#include "rules/action_row.h"
#include "rules/action_rules.h"
#include "rules/design_code_label.h"
#include "rules/load_case_numbers.h"
#include "rules/load_case_rules.h"
#include "rules/project_setup.h"

namespace {

/// Gathers the findings of one project.
class Check
{
    Q_DECLARE_TR_FUNCTIONS(LCM_ProjectCheck)
  public:
    Check(int index, bool globalDirections);
    std::vector<LCM_ProjectFinding> run();

  private:
    using Subject = LCM_ProjectFinding::Subject;

    void checkActions();
    void checkAction(int key, const tagCDB_LC_ACT& record);
    void addDefaultActions();
    void checkLoadCases();
    void checkLoadCase(const LCM_CheckedLoadCase& loadCase);
    tagCDB_LC_ACT asShown(const tagCDB_LC_ACT& record) const;
    const tagCDB_LC_ACT* findAction(int word) const;
    void add(Subject subject, int id, const QString& message)
    {
        findings.push_back({subject, id, 0, message});
    }
    void add(Subject subject, int id, const LCM_Findings& found);

    int db;
    tagCDB_LC_ACT limits{};
    LCM_DesignCodeIdentity identity;
    LCM_LoadCaseSetup setup;
    std::map<int, tagCDB_LC_ACT> actions; ///< as their rows show them, by code
    LCM_ActionWords words;
    std::vector<LCM_ProjectFinding> findings;
};

Check::Check(int index, bool globalDirections) : db(index)
{
    MRL_LC_Action_Info info;
    info.init(db);
    mrl_dlib_lcact_info(0, &limits);
    identity = lcm_active_design_code();
    setup.factorColumns = lcm_factor_columns(info, lcm_design_code_file(db).value_or(QString()));
    lcm_read_system(db, setup);
    setup.globalDirections = globalDirections;
}

void Check::add(Subject subject, int id, const LCM_Findings& found)
{
    for (const auto& [column, message] : found) {
        findings.push_back({subject, id, column, message});
    }
}

/// The record that a row of the action gives back: a factor without a column reads as 0.
tagCDB_LC_ACT Check::asShown(const tagCDB_LC_ACT& record) const
{
    LCM_ActionCells cells = lcm_action_cells(record);
    for (std::size_t i = 0; i < cells.factors.size(); ++i) {
        if (!setup.hasColumn(LCM_ACTION_FACTORS[i].column)) {
            cells.factors[i] = 0.0f;
        }
    }
    tagCDB_LC_ACT result{};
    lcm_action_record(cells, result);
    return result;
}

void Check::checkAction(int key, const tagCDB_LC_ACT& record)
{
    if (lcm_is_reserved_action(key)) {
        add(Subject::Action, key, tr("names that begin with Y are reserved; the dialog never loads it"));
        return;
    }
    if (key == LC_BLANK_WORD) {
        add(Subject::Action, key, tr("an action without a name; the dialog never loads it"));
        return;
    }
    const int code = lcm_action_code(record);
    if (code != key) {
        add(Subject::Action, key,
            tr("the record names the action %1 and will move there when the dialog is accepted")
                .arg(lcm_word_name(code)));
    }
    const tagCDB_LC_ACT shown = asShown(record);
    add(Subject::Action, key, lcm_check_action(shown, limits, identity));
    actions[code] = shown;
}

void Check::checkActions()
{
    const std::set<int> known = lcm_design_code_keys();
    bool anyOfTheCode = false;
    for (const LCM_StoredAction& action : lcm_stored_actions(db)) {
        checkAction(action.code, action.record);
        anyOfTheCode = anyOfTheCode || known.count(action.code) != 0;
    }
    if (!anyOfTheCode) {
        addDefaultActions();
    }
}

/// A project without an action of its design code is shown with the two default ones.
void Check::addDefaultActions()
{
    for (const bool dead : {true, false}) {
        tagCDB_LC_ACT record{};
        const int code = mrl_lc_get_default_action(db, dead, record);
        actions.emplace(code, asShown(record));
    }
}

/// As the dialog finds it when it opens: old projects may hold the name of an action in lower case, but a
/// load case that names one so isn't taken for that of the upper-case name.
const tagCDB_LC_ACT* Check::findAction(int word) const
{
    for (const int candidate : {word, lcm_lower_code(word)}) {
        if (const auto it = actions.find(candidate); it != actions.end()) {
            return &it->second;
        }
    }
    return nullptr;
}

void Check::checkLoadCase(const LCM_CheckedLoadCase& loadCase)
{
    const int number = loadCase.stored.number;
    if (number > LC_MAX_NUMBER) {
        add(Subject::LoadCase, number, tr("the number is above 999999"));
    }
    tagCDB_LC_CTRL record = loadCase.stored.record;
    record.action = words.resolved(record.action);
    const LCM_LoadCaseVerdict verdict =
        lcm_judge_stored_load_case(number, record, findAction(record.action), setup, limits);
    if (verdict.actionMissing) {
        add(Subject::LoadCase, number, tr("the project has no action %1").arg(lcm_word_name(record.action)));
    }
    add(Subject::LoadCase, number, verdict.findings);
    if (loadCase.foreignKind) {
        add(Subject::LoadCase, number,
            tr("another module keeps a record of kind %1 under this number; accepting the dialog drops it")
                .arg(*loadCase.foreignKind));
    }
}

void Check::checkLoadCases()
{
    LCM_KeyWalk walk(db, LC_KWH_CASES);
    while (walk.next()) {
        if (const auto loadCase = lcm_checked_load_case(db, walk.kwl())) {
            checkLoadCase(*loadCase);
        }
    }
}

std::vector<LCM_ProjectFinding> Check::run()
{
    checkActions();
    checkLoadCases();
    return std::move(findings);
}

} // namespace

std::vector<LCM_ProjectFinding> lcm_check_project(int db, bool globalDirections)
{
    const LCM_CurrentDatabaseGuard guard;
    return Check(db, globalDirections).run();
}
