#include "combine/project/project_model.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "check/finding_text.h"
#include "check/project_check.h"
#include "host/mrl_dlib.h"
#include "lcdata/guards.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keywords.h"
#include "rules/load_case_row.h"

namespace mrl::combine {

namespace {

constexpr float PACKED_STEP = 0.002f; // of the smaller one of a packed pair, see packing.h

std::string nameOf(int code) { return lcm_code_name(code).toStdString(); }

void append(std::string& text, const std::string& more) { text += (text.empty() ? "" : "; ") + more; }

class ProjectReader
{
  public:
    explicit ProjectReader(int db) : m_db(db) {}

    ProjectModel read(std::map<std::string, float> constants);

  private:
    void readFindings();
    void readAction(const LCM_StoredAction& stored);
    void readLoadCase(const LCM_StoredLoadCase& stored);
    int actionOf(int word) const;
    void leaveOut(int number, std::string reason) { m_result.leftOut.push_back({number, std::move(reason)}); }

    int m_db;
    ProjectModel m_result;
    LCM_ActionWords m_words;
    std::unordered_map<int, std::string>
        m_actionFindings; // by code; an action without one stands with an empty text
    std::unordered_map<int, std::string> m_caseFindings;
};

void ProjectReader::readFindings()
{
    for (const LCM_Finding& finding : lcm_check_project(m_db, false)) {
        const std::string text = lcm_finding_text(finding).toStdString();
        const bool isTold = finding.rule == LCM_Rule::ActionMissing ||
                            finding.rule == LCM_Rule::LoadCaseNumberAbove999999; // `prepare` does so itself
        if (finding.subject == LCM_Subject::Action) {
            append(m_actionFindings[finding.id], text);
        } else if (finding.subject == LCM_Subject::LoadCase && !isTold) {
            append(m_caseFindings[finding.id], text);
        }
    }
}

/// What an action can't be combined with, beside the findings of its rules.
std::string obstacle(const tagCDB_LC_ACT& record)
{
    const int partition = lcm_partition_id(record.partition);
    const int superposition = lcm_superposition_id(record.partition);
    const auto stands = [](const auto& list, int id) {
        return std::any_of(list.begin(), list.end(), [&](const auto& each) { return each.id == id; });
    };
    if (!lcm_is_load_group(partition) && !stands(LCM_PARTITIONS, partition)) {
        return "its category " + std::to_string(partition) + " is not known";
    }
    if (!stands(LCM_SUPERPOSITIONS, superposition)) {
        return "its superposition " + std::to_string(superposition) + " is not known";
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const float value = lcm_stored_factor(record, factor);
        if (value == LC_UNDEFINED || !std::isfinite(value)) {
            return std::string("its ") + factor.key + " is not set";
        }
    }
    return {};
}

void ProjectReader::readAction(const LCM_StoredAction& stored)
{
    const std::string name = nameOf(stored.code);
    if (lcm_is_reserved_action(stored.code) || name.empty()) {
        leaveOut(0, name.empty() ? "an action without a name" : "action " + name + ": its name is reserved");
        return;
    }
    std::string& finding = m_actionFindings[stored.code];
    if (const std::string reason = obstacle(stored.record); !reason.empty()) {
        append(finding, reason);
    }
    const int partition = lcm_partition_id(stored.record.partition);
    const bool isGroup = lcm_is_load_group(partition);
    Action action;
    action.name = name;
    action.category = isGroup ? Category::Variable : static_cast<Category>(partition);
    action.superposition = static_cast<Superposition>(lcm_superposition_id(stored.record.partition));
    action.group = isGroup ? lcm_load_group(partition) : 0;
    for (const LCM_Factor& each : LCM_FACTORS) {
        const float value = lcm_stored_factor(stored.record, each);
        // One that isn't set stays out: whoever uses the action has a finding.
        factor(action.factors, each.id) = value == LC_UNDEFINED || !std::isfinite(value) ? 0.0f : value;
    }
    m_result.model.actions.push_back(std::move(action));
}

/// The code of the action that a word means: old projects may hold the name of an action in lower case.
int ProjectReader::actionOf(int word) const
{
    return m_actionFindings.count(word) == 0 && m_actionFindings.count(lcm_lower_code(word)) != 0
               ? lcm_lower_code(word)
               : word;
}

/// The factors of a load case without an action.
/// @return nothing when it has none: all are zero or not set
std::optional<Factors> ownFactors(const tagCDB_LC_CTRL& record, std::string& finding)
{
    const LCM_LoadCaseFactors stored = lcm_stored_factors(record);
    Factors own{};
    std::string missing;
    bool hasAny = false;
    for (const LCM_Factor& each : LCM_FACTORS) {
        const float value = stored[each.id];
        const bool isSet = value != LC_UNDEFINED;
        factor(own, each.id) = isSet ? value : 0.0f;
        hasAny = hasAny || (isSet && value != 0.0f);
        missing = isSet || !missing.empty() ? missing : each.key;
    }
    if (!hasAny) {
        return std::nullopt;
    }
    if (!missing.empty()) {
        append(finding, "its " + missing + " is not set");
    }
    // The zero of `Gama` is stored as half a step of what a pair can hold.
    float& gama = factor(own, LCM_FactorId::Gama);
    gama = std::fabs(gama - PACKED_STEP) < LC_GAMA_TOLERANCE ? LC_GAMA_ZERO : gama;
    return own;
}

void ProjectReader::readLoadCase(const LCM_StoredLoadCase& stored)
{
    if (!stored.isOwn()) {
        leaveOut(stored.number, "it belongs to another module");
        return;
    }
    LoadCase loadCase;
    loadCase.number = stored.number;
    if (const auto found = m_caseFindings.find(stored.number); found != m_caseFindings.end()) {
        loadCase.finding = found->second;
    }
    const int word = m_words.resolved(stored.record.action);
    loadCase.isImperfection = word == LC_ACTION_IMPERFECTION;
    if (word == LC_ACTION_NONE) {
        loadCase.own = ownFactors(stored.record, loadCase.finding);
    } else if (!loadCase.isImperfection) {
        const int code = actionOf(word);
        loadCase.action = lcm_word_name(code).toStdString();
        const auto finding = m_actionFindings.find(code);
        if (finding != m_actionFindings.end() && !finding->second.empty()) {
            // What is wrong with the action is wrong with the load case too, and is told once.
            loadCase.finding = loadCase.finding == finding->second ? "" : loadCase.finding;
            append(loadCase.finding, "action " + loadCase.action + ": " + finding->second);
        }
    }
    m_result.model.loadCases.push_back(std::move(loadCase));
}

ProjectModel ProjectReader::read(std::map<std::string, float> constants)
{
    const LCM_CurrentDatabaseGuard guard;
    m_result.model.constants = std::move(constants);
    readFindings();
    mrl_dlib_ini_switch(m_db); // it knows what old action numbers stand for
    for (const LCM_StoredAction& stored : lcm_stored_actions(m_db)) {
        readAction(stored);
    }
    for (LCM_LoadCaseWalk walk(m_db); walk.next();) {
        readLoadCase(walk.current());
    }
    return std::move(m_result);
}

} // namespace

ProjectModel projectModel(int db, std::map<std::string, float> constants)
{
    return ProjectReader(db).read(std::move(constants));
}

} // namespace mrl::combine
