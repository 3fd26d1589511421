#include "cli/combinations.h"

#include <algorithm>
#include <cstdio>
#include <set>

#include "cli/failure.h"
#include "combine/envelope.h"
#include "combine/remarks.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::cli {

namespace {

std::string refusal(const std::vector<combine::Remark>& refused)
{
    std::string text = "nothing is combined before this is mended:";
    for (const std::string& line : combine::gathered(refused)) {
        text += "\n  " + line;
    }
    return text;
}

} // namespace

bool PlannedSituation::hasCombination() const
{
    return std::any_of(plan.graphs.begin(), plan.graphs.end(),
                       [](const combine::Graph& graph) { return graph.end >= 0; });
}

Combinations::Combinations(const Project& project) : m_file(project.file())
{
    const designcode::Loaded loaded = designcode::ofDatabase(project.db());
    if (!loaded.code) {
        project.refuse("the design code can't be read: " + loaded.reason);
    }
    if (loaded.code->situations.empty()) {
        project.refuse("the design code " + loaded.code->name +
                       " has no situations, which tell how actions are combined");
    }
    m_situations = loaded.code->situations;
    m_project = combine::projectModel(project.db(), loaded.code->constants);
    project.throwOnError();
    tellLeftOut(m_project.leftOut);
}

void Combinations::tellLeftOut(const std::vector<combine::Remark>& remarks) const
{
    for (const std::string& line : combine::gathered(remarks)) {
        if (m_told.insert(line).second) {
            note("left out, " + line);
        }
    }
}

std::vector<std::string> Combinations::names() const
{
    std::vector<std::string> names;
    for (const LCM_Situation& situation : m_situations) {
        names.push_back(situation.name);
    }
    return names;
}

const LCM_Situation& Combinations::require(const std::string& name) const
{
    const auto found = std::find_if(m_situations.begin(), m_situations.end(),
                                    [&](const LCM_Situation& each) { return each.name == name; });
    if (found != m_situations.end()) {
        return *found;
    }
    std::string known;
    for (const LCM_Situation& each : m_situations) {
        known += (known.empty() ? "" : ", ") + each.name;
    }
    throw Failure{ExitCode::Refused,
                  m_file + ": the design code has no situation " + name + "; it has " + known};
}

PlannedSituation Combinations::plan(const std::string& name) const
{
    PlannedSituation planned;
    planned.situation = &require(name);
    planned.plan = combine::plan(m_project.model, *planned.situation);
    const combine::Prepared& prepared = planned.plan.prepared;
    if (!prepared.refused.empty()) {
        throw Failure{ExitCode::Refused, m_file + ": " + refusal(prepared.refused)};
    }
    tellLeftOut(prepared.leftOut);
    return planned;
}

std::unique_ptr<combine::ResponseFile> openResponses(const std::string& file, const std::string& numbers,
                                                     const Combinations& combinations,
                                                     const std::vector<PlannedSituation>& situations)
{
    combine::OpenedResponses opened = combine::openResponses(file, numbers);
    if (const auto* error = std::get_if<std::string>(&opened)) {
        throw Failure{ExitCode::File, file + ": " + *error};
    }
    auto responses = std::get<std::unique_ptr<combine::ResponseFile>>(std::move(opened));
    std::set<int> missing;
    for (const PlannedSituation& each : situations) {
        const combine::Envelope envelope(each.plan, responses->numbers());
        missing.insert(envelope.missing().begin(), envelope.missing().end());
    }
    if (!missing.empty()) {
        throw Failure{ExitCode::File, file + ": there is no column for " +
                                          combine::loadCasesText({missing.begin(), missing.end()})};
    }
    std::set<int> unknown(responses->numbers().begin(), responses->numbers().end());
    for (const combine::LoadCase& each : combinations.model().loadCases) {
        unknown.erase(each.number);
    }
    if (!unknown.empty()) {
        note(file + ": the project has no " + combine::loadCasesText({unknown.begin(), unknown.end()}));
    }
    return responses;
}

void note(const std::string& text) { std::fprintf(stderr, "note: %s\n", text.c_str()); }

} // namespace mrl::cli
