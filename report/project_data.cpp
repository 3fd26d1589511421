#include "report/project_data.h"

#include <QFileInfo>

#include <algorithm>
#include <map>

#include "combine/project/project_model.h"
#include "combine/remarks.h"
#include "findings/project_findings.h"
#include "host/mrl_cdb.h"
#include "host/mrl_dlib.h"
#include "lcdata/guards.h"
#include "lcdata/load_case_factors.h"
#include "lcdata/load_cases.h"
#include "lcdata/system_record.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "report/content_hash.h"
#include "rules/load_case_row.h"

namespace mrl::report {

namespace {

using Kind = LoadCaseGroup::Kind;

class ProjectReader
{
  public:
    ProjectReader(int db, ProjectData& data) : m_db(db), m_data(data) {}

    void readActions();
    void readLoadCases();
    void countSituations();

  private:
    std::size_t groupOf(const LCM_StoredLoadCase& loadCase);
    std::size_t groupOf(Kind kind, int word);
    int wordOf(int stored);
    void count(const LCM_Situation& situation, const combine::Model& model);
    void noteLeftOut(const std::vector<combine::Remark>& remarks);

    int m_db;
    ProjectData& m_data;
    LCM_ActionWords m_words;
    std::map<std::pair<Kind, int>, std::size_t> m_places; ///< of groups, by kind and word
};

void ProjectReader::readActions()
{
    m_data.actions = lcm_stored_actions(m_db);
    // The keys are in the order of the names' last letters.
    std::sort(m_data.actions.begin(), m_data.actions.end(),
              [](const LCM_StoredAction& a, const LCM_StoredAction& b) {
                  return lcm_code_name(a.code) < lcm_code_name(b.code);
              });
    for (const LCM_StoredAction& action : m_data.actions) {
        m_data.groups[groupOf(Kind::Action, action.code)].action = &action;
    }
}

std::size_t ProjectReader::groupOf(Kind kind, int word)
{
    const auto [place, isNew] = m_places.emplace(std::pair(kind, word), m_data.groups.size());
    if (isNew) {
        m_data.groups.push_back({kind, word, nullptr, {}});
    }
    return place->second;
}

/// The action word that counts: old projects hold old numbers, or the name of an action in lower case.
int ProjectReader::wordOf(int stored)
{
    const int word = m_words.resolved(stored);
    const bool isLower = m_places.count({Kind::Action, word}) == 0 &&
                         m_places.count({Kind::Action, lcm_lower_code(word)}) != 0;
    return isLower ? lcm_lower_code(word) : word;
}

std::size_t ProjectReader::groupOf(const LCM_StoredLoadCase& loadCase)
{
    if (!loadCase.isOwn()) {
        return groupOf(Kind::OtherModule, 0);
    }
    const int word = wordOf(loadCase.record.action);
    if (word == LC_ACTION_NONE || word == LC_ACTION_IMPERFECTION) {
        return groupOf(word == LC_ACTION_NONE ? Kind::None : Kind::Imperfection, word);
    }
    const bool isStored = m_places.count({Kind::Action, word}) != 0;
    return groupOf(isStored ? Kind::Action : Kind::MissingAction, word);
}

void ProjectReader::readLoadCases()
{
    for (LCM_LoadCaseWalk walk(m_db); walk.next();) {
        m_data.groups[groupOf(walk.current())].positions.push_back(m_data.loadCases.size());
        m_data.loadCases.push_back(walk.current());
    }
    // Behind the actions, which are by name, in the order of the kinds.
    std::stable_sort(m_data.groups.begin(), m_data.groups.end(),
                     [](const LoadCaseGroup& a, const LoadCaseGroup& b) { return a.kind < b.kind; });
}

void ProjectReader::noteLeftOut(const std::vector<combine::Remark>& remarks)
{
    for (const combine::Remark& remark : remarks) {
        auto& all = m_data.leftOut;
        auto same = std::find_if(all.begin(), all.end(),
                                 [&](const LeftOut& each) { return each.reason == remark.reason; });
        if (same == all.end()) {
            same = all.insert(all.end(), {remark.reason, {}});
        }
        if (remark.number > 0) {
            same->numbers.insert(remark.number);
        }
    }
}

void ProjectReader::count(const LCM_Situation& situation, const combine::Model& model)
{
    const combine::Plan plan = combine::plan(model, situation);
    if (!plan.prepared.refused.empty()) {
        m_data.refused = combine::gathered(plan.prepared.refused);
        return;
    }
    noteLeftOut(plan.prepared.leftOut);
    m_data.situations.push_back(
        {situation, combine::countChoices(plan), combine::countDistinct(plan), plan.idle});
}

void ProjectReader::countSituations()
{
    if (!m_data.code.code || m_data.code.code->situations.empty()) {
        return;
    }
    const combine::ProjectModel project = combine::projectModel(m_db, m_data.code.code->constants);
    noteLeftOut(project.leftOut);
    for (const LCM_Situation& situation : m_data.code.code->situations) {
        if (m_data.refused.empty()) {
            count(situation, project.model);
        }
    }
}

} // namespace

const designcode::DefaultAction* ProjectData::defaultOf(int action) const
{
    if (!code.code) {
        return nullptr;
    }
    const auto& all = code.code->actions;
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& each) { return each.code == action; });
    return found == all.end() ? nullptr : &*found;
}

std::shared_ptr<const ProjectData> readProject(int db, const QString& file)
{
    const LCM_CurrentDatabaseGuard guard;
    auto data = std::make_shared<ProjectData>();
    data->file = QFileInfo(file).fileName();
    data->hash = contentHash(db);
    data->code = designcode::ofDatabase(db);
    data->kept = designcode::keptReport(db);
    const bool isActive = mrl_dlib_ini_switch(db) >= 0;
    data->factors = isActive ? factorColumns(db) : plainFactorColumns();
    data->systemClass = lcm_system_class(db);
    data->gravity = lcm_gravity_direction(db);
    data->currentLoadCase = mrl_lc_current(db);
    ProjectReader reader(db, *data);
    reader.readActions();
    reader.readLoadCases();
    data->findings = findings::ofProject(db, false);
    reader.countSituations();
    return data;
}

} // namespace mrl::report
