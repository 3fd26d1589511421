#include "cli/project_check.h"

#include <map>
#include <set>

#include "cli/arguments.h"
#include "cli/design_code_columns.h"
#include "cli/load_case_reader.h"
#include "cli/raw_records.h"
#include "cli/stored_actions.h"
#include "cli/words.h"
#include "lcdata/action_code.h"
#include "lcdata/system.h"
#include "model/rules/action_row.h"
#include "model/rules/action_rules.h"
#include "model/rules/loadcase_numbers.h"
#include "model/rules/loadcase_rules.h"

namespace mrl::cli {

namespace {

const char* fieldName(int column)
{
    switch (column) {
    case ACT_COL_GAMU:
        return "Gamu";
    case ACT_COL_GAMF:
        return "Gamf";
    case ACT_COL_GAMA:
        return "Gama";
    case ACT_COL_PSI0:
        return "Psi0";
    case ACT_COL_PSI1:
        return "Psi1";
    case ACT_COL_PSI2:
        return "Psi2";
    case ACT_COL_PSI1S:
        return "Psi1s";
    default:
        return "";
    }
}
// Both tables number the columns of the factors alike.
static_assert(int(ACT_COL_GAMU) == int(LC_COL_GAMU) && int(ACT_COL_PSI1S) == int(LC_COL_PSI1S));

/// Gathers the findings of one project.
class Check
{
  public:
    Check(int index, const designcode::DesignCode& design)
        : db(index), code(design),
          columns(columnsOf(design)), identity{design.ntcode, design.idcode, design.country, design.year},
          loadCaseSetup(setup())
    {
    }

    std::vector<Finding> run();

  private:
    void checkActions();
    void checkAction(const StoredAction& action);
    void addFallbackActions();
    void checkLoadCases();
    void checkLoadCase(const StoredLoadCase& loadCase);
    void checkSharedNumber(int number);
    tagCDB_LC_ACT asShown(const tagCDB_LC_ACT& record) const;
    const tagCDB_LC_ACT* findAction(int word) const;
    LCM_LoadcaseSetup setup() const;
    void add(const char* subject, const std::string& name, const LCM_Findings& found);

    int db;
    const designcode::DesignCode& code;
    MRL_LC_Action_Info columns;
    LCM_DesignCodeIdentity identity;
    LCM_LoadcaseSetup loadCaseSetup;
    std::map<int, tagCDB_LC_ACT> actions; ///< as their rows show them, by code
    std::vector<Finding> findings;
};

void Check::add(const char* subject, const std::string& name, const LCM_Findings& found)
{
    for (const auto& [column, message] : found) {
        findings.push_back({subject, name, fieldName(column), message.toStdString()});
    }
}

/// The record that a row of the action gives back: a factor without a column reads as 0.
tagCDB_LC_ACT Check::asShown(const tagCDB_LC_ACT& record) const
{
    const bool shown[] = {columns.gamu, columns.gamf, columns.gama, columns.psi0,
                          columns.psi1, columns.psi2, columns.psi1s};
    LCM_ActionCells cells = lcm_action_cells(record);
    for (std::size_t i = 0; i < cells.factors.size(); ++i) {
        cells.factors[i] = shown[i] ? cells.factors[i] : 0.0f;
    }
    tagCDB_LC_ACT result{};
    lcm_action_record(cells, result);
    return result;
}

void Check::checkAction(const StoredAction& action)
{
    const std::string name = actionName(action.code);
    if (lcm_is_reserved_action(action.code)) {
        findings.push_back(
            {"action", name, "", "names that begin with Y are reserved; the dialog never loads it"});
        return;
    }
    if (action.code == LC_BLANK_WORD) {
        findings.push_back({"action", "", "", "an action without a name; the dialog never loads it"});
        return;
    }
    if (lcm_action_code(action.record) != action.code) {
        findings.push_back({"action", name, "",
                            "the record names the action " + actionName(lcm_action_code(action.record)) +
                                " and will move there when the dialog is accepted"});
    }
    const tagCDB_LC_ACT shown = asShown(action.record);
    add("action", name, lcm_check_action(shown, code.availability, identity));
    actions[action.code] = shown;
}

void Check::checkActions()
{
    std::set<int> known;
    for (const auto& action : code.actions) {
        known.insert(action.code);
    }
    bool anyKnown = false;
    for (const StoredAction& action : readActions(db)) {
        checkAction(action);
        anyKnown = anyKnown || known.count(action.code) > 0;
    }
    if (!anyKnown) {
        addFallbackActions();
    }
}

/// A project without an action of its design code is shown with the two default ones.
void Check::addFallbackActions()
{
    for (const bool dead : {true, false}) {
        tagCDB_LC_ACT record{};
        const int word = mrl_lc_get_default_action(db, dead, record);
        actions.emplace(word, asShown(record));
    }
}

/// Old projects may hold the name of an action in the other case.
const tagCDB_LC_ACT* Check::findAction(int word) const
{
    for (const int candidate : {word, lcm_lower_code(word)}) {
        if (const auto it = actions.find(candidate); it != actions.end()) {
            return &it->second;
        }
    }
    return nullptr;
}

LCM_LoadcaseSetup Check::setup() const
{
    LCM_LoadcaseSetup result;
    const auto set = [&](int column, bool shown) {
        result.factorColumns[static_cast<std::size_t>(column - LC_COL_GAMU)] = shown;
    };
    set(LC_COL_GAMU, columns.gamu);
    set(LC_COL_GAMF, columns.gamf);
    set(LC_COL_GAMA, columns.gama);
    set(LC_COL_PSI0, columns.psi0);
    set(LC_COL_PSI1, columns.psi1);
    set(LC_COL_PSI2, columns.psi2);
    set(LC_COL_PSI1S, columns.psi1s);
    result.gravity = lcm_gravity_direction(db);
    result.systemClass = lcm_system_class(db);
    return result;
}

/// Another module may keep records of its own behind the load case; an acceptance of the dialog drops them.
void Check::checkSharedNumber(int number)
{
    const std::vector<std::string> records = readRecords(db, LC_KWH_CASES, number);
    for (std::size_t i = 1; i < records.size(); ++i) {
        const int kind = kindOf(records[i]);
        if (kind != 0 && kind != 1) {
            findings.push_back({"loadcase", std::to_string(number), "",
                                "another module keeps a record of kind " + std::to_string(kind) +
                                    " under this number; accepting the dialog drops it"});
            return;
        }
    }
}

void Check::checkLoadCase(const StoredLoadCase& loadCase)
{
    const std::string number = std::to_string(loadCase.number);
    if (loadCase.number > LC_MAX_NUMBER) {
        findings.push_back({"loadcase", number, "", "the number is above 999999"});
    }
    tagCDB_LC_CTRL record = loadCase.record;
    record.action = fieldsOf(record).action;
    const LCM_LoadcaseVerdict verdict = lcm_judge_stored_loadcase(
        loadCase.number, record, findAction(record.action), loadCaseSetup, code.availability);
    if (verdict.actionMissing) {
        findings.push_back(
            {"loadcase", number, "", "the project has no action " + actionWordText(record.action)});
    }
    add("loadcase", number, verdict.findings);
    checkSharedNumber(loadCase.number);
}

void Check::checkLoadCases()
{
    LoadCaseReader reader(db);
    while (reader.next()) {
        if (reader.current().own()) {
            checkLoadCase(reader.current());
        }
    }
}

std::vector<Finding> Check::run()
{
    checkActions();
    checkLoadCases();
    return std::move(findings);
}

} // namespace

std::vector<Finding> checkProject(int db)
{
    const designcode::Loaded loaded = designcode::ofDatabase(db);
    // Without a design code nothing is marked, and only what needs no limit is judged.
    const designcode::DesignCode none;
    std::vector<Finding> findings = Check(db, loaded.code ? *loaded.code : none).run();
    if (!loaded.code) {
        findings.insert(findings.begin(), {"project", "", "", loaded.reason});
    }
    return findings;
}

} // namespace mrl::cli
