#include "check/project_check.h"

#include <map>

#include "check/design_code_check.h"
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
  public:
    Check(int db, bool globalDirections);
    LCM_Findings run();

  private:
    void checkActions();
    void checkAction(int key, const tagCDB_LC_ACT& record);
    void addDefaultActions();
    void checkLoadCases();
    void checkLoadCase(const LCM_CheckedLoadCase& loadCase);
    tagCDB_LC_ACT asShown(const tagCDB_LC_ACT& record) const;
    const tagCDB_LC_ACT* findAction(int word) const;
    void add(LCM_Subject subject, int id, LCM_Rule rule, std::vector<LCM_Argument> arguments = {})
    {
        m_findings.push_back({rule, subject, id, 0, std::move(arguments)});
    }
    void add(int id, LCM_Findings found);

    int m_db;
    tagCDB_LC_ACT m_limits{};
    LCM_DesignCodeIdentity m_identity;
    LCM_LoadCaseSetup m_setup;
    std::map<int, tagCDB_LC_ACT> m_actions; ///< as their rows show them, by code
    std::map<int, tagCDB_LC_ACT> m_stored;  ///< as they are stored, by code
    LCM_ActionWords m_words;
    LCM_Findings m_findings;
};

Check::Check(int db, bool globalDirections) : m_db(db)
{
    MRL_LC_Action_Info info;
    info.init(m_db);
    mrl_dlib_lcact_info(0, &m_limits);
    m_identity = lcm_active_design_code();
    m_setup.factorColumns = lcm_factor_columns(info, lcm_design_code_file(m_db).value_or(QString()));
    lcm_read_system(m_db, m_setup);
    m_setup.globalDirections = globalDirections;
}

void Check::add(int id, LCM_Findings found)
{
    for (LCM_Finding& finding : found) {
        finding.id = id;
        m_findings.push_back(std::move(finding));
    }
}

/// The record that a row of the action gives back: a factor without a column reads as 0.
tagCDB_LC_ACT Check::asShown(const tagCDB_LC_ACT& record) const
{
    LCM_ActionCells cells = lcm_action_cells(record);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (!m_setup.factorColumns[factor.id]) {
            cells.factors[factor.id] = 0.0f;
        }
    }
    tagCDB_LC_ACT result{};
    lcm_action_record(cells, result);
    return result;
}

void Check::checkAction(int key, const tagCDB_LC_ACT& record)
{
    if (lcm_is_reserved_action(key)) {
        add(LCM_Subject::Action, key, LCM_Rule::ActionNameReserved);
        return;
    }
    if (key == LC_BLANK_WORD) {
        add(LCM_Subject::Action, key, LCM_Rule::ActionWithoutName);
        return;
    }
    const int code = lcm_action_code(record);
    if (code != key) {
        add(LCM_Subject::Action, key, LCM_Rule::ActionNameDiffersFromKey, {lcm_word_name(code)});
    }
    const tagCDB_LC_ACT shown = asShown(record);
    if (lcm_action_code(shown) != code) {
        add(LCM_Subject::Action, key, LCM_Rule::ActionNameShortened, {lcm_word_name(lcm_action_code(shown))});
    }
    add(key, lcm_check_action(shown, m_limits, m_identity));
    m_actions[code] = shown;
    m_stored[code] = record;
}

void Check::checkActions()
{
    const std::set<int> known = lcm_design_code_keys();
    bool anyOfTheCode = false;
    for (const LCM_StoredAction& action : lcm_stored_actions(m_db)) {
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
        const int code = mrl_lc_get_default_action(m_db, dead, record);
        m_actions.emplace(code, asShown(record));
    }
}

/// As the dialog finds it when it opens: old projects may hold the name of an action in lower case, but a
/// load case that names one so isn't taken for that of the upper-case name.
const tagCDB_LC_ACT* Check::findAction(int word) const
{
    auto found = m_actions.find(word);
    if (found == m_actions.end()) {
        found = m_actions.find(lcm_lower_code(word));
    }
    return found == m_actions.end() ? nullptr : &found->second;
}

void Check::checkLoadCase(const LCM_CheckedLoadCase& loadCase)
{
    const int number = loadCase.stored.number;
    if (number > LC_MAX_NUMBER) {
        add(LCM_Subject::LoadCase, number, LCM_Rule::LoadCaseNumberAbove999999);
    }
    tagCDB_LC_CTRL record = loadCase.stored.record;
    record.action = m_words.resolved(record.action);
    LCM_LoadCaseVerdict verdict =
        lcm_judge_stored_load_case(record, findAction(record.action), m_setup, m_limits);
    if (verdict.actionMissing) {
        add(LCM_Subject::LoadCase, number, LCM_Rule::ActionMissing, {lcm_word_name(record.action)});
    }
    add(number, std::move(verdict.findings));
    const auto action = m_stored.find(record.action);
    if (action != m_stored.end() && lcm_copies_differ(record, action->second)) {
        add(LCM_Subject::LoadCase, number, LCM_Rule::LoadCaseFactorsDifferFromAction,
            {lcm_word_name(record.action)});
    }
    if (loadCase.foreignKind) {
        add(LCM_Subject::LoadCase, number, LCM_Rule::LoadCaseNumberSharedWithModule, {*loadCase.foreignKind});
    }
}

void Check::checkLoadCases()
{
    LCM_KeyWalk walk(m_db, LC_KWH_CASES);
    while (walk.next()) {
        if (const auto loadCase = lcm_checked_load_case(m_db, walk.kwl())) {
            checkLoadCase(*loadCase);
        }
    }
}

LCM_Findings Check::run()
{
    checkActions();
    checkLoadCases();
    return std::move(m_findings);
}

} // namespace

LCM_Findings lcm_check_project(int db, bool globalDirections)
{
    const LCM_CurrentDatabaseGuard guard;
    return Check(db, globalDirections).run();
}
