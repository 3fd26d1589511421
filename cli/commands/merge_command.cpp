#include <algorithm>
#include <set>
#include <tuple>

#include "check/finding_text.h"
#include "check/project_check.h"
#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/content_io.h"
#include "cli/output.h"
#include "cli/words.h"
#include "exchange/project_merge.h"
#include "exchange/raw_records.h"
#include "host/mrl_dlib.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/records.h"

namespace mrl::cli {

namespace {

using exchange::Side;

/// What a finding says of what, for comparing those of two projects.
using FindingKey = std::tuple<LCM_Rule, LCM_Subject, int, int>;
using KnownFindings = std::set<FindingKey>;

FindingKey factsOf(const LCM_Finding& finding)
{
    return {finding.rule, finding.subject, finding.id, finding.column};
}

class MergeCommand : public Command
{
  public:
    std::string name() const override { return "merge"; }
    std::string description() const override
    {
        return "Join two changed copies of a project; what both changed differently is a conflict";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    bool isDecided() const { return m_takeOurs || m_takeTheirs; }
    Side winner() const { return m_takeTheirs ? Side::Theirs : Side::Ours; }
    void addFindings(const KnownFindings& known, const Project& project, exchange::Merge& merge) const;
    void decideFindings(const KnownFindings& known, const exchange::ProjectContent& chosen,
                        const Project& project) const;

    std::string m_base;
    std::string m_ours;
    std::string m_theirs;
    std::optional<std::string> m_out;
    bool m_takeOurs = false;
    bool m_takeTheirs = false;
    bool m_json = false;
};

void MergeCommand::declare(Arguments& args)
{
    args.positional("BASE", m_base, "The project that both sides began with");
    args.positional("OURS", m_ours, "One changed copy");
    args.positional("THEIRS", m_theirs, "The other one");
    args.text("--output,-o", m_out, Arguments::Need::Required,
              "The project to make; an existing file is refused");
    args.flag("--ours", m_takeOurs, "Conflicts take the value of OURS");
    args.flag("--theirs", m_takeTheirs, "Conflicts take the value of THEIRS");
    args.exclude("--ours", "--theirs");
    args.json(m_json);
}

void addFindingsOf(const std::string& file, KnownFindings& known)
{
    const Project project = Project::openForReading(file);
    for (const LCM_Finding& finding : lcm_check_project(project.db(), false)) {
        known.insert(factsOf(finding));
    }
}

/// What the check finds in the result and in neither side.
LCM_Findings newFindings(const KnownFindings& known, const Project& project)
{
    LCM_Findings found = lcm_check_project(project.db(), false);
    const auto isOld = [&](const LCM_Finding& finding) { return known.count(factsOf(finding)) != 0; };
    found.erase(std::remove_if(found.begin(), found.end(), isOld), found.end());
    return found;
}

std::optional<exchange::RecordKey> keyOf(const LCM_Finding& finding)
{
    if (finding.subject == LCM_Subject::LoadCase) {
        return exchange::RecordKey{LC_KWH_CASES, finding.id};
    }
    return finding.subject == LCM_Subject::Action
               ? std::optional(exchange::RecordKey{LC_KWH_ACTIONS, finding.id})
               : std::nullopt;
}

/// A result that the check refuses is a conflict too.
void MergeCommand::addFindings(const KnownFindings& known, const Project& project,
                               exchange::Merge& merge) const
{
    for (const LCM_Finding& finding : newFindings(known, project)) {
        const bool isLoadCase = finding.subject == LCM_Subject::LoadCase;
        const std::string name = isLoadCase ? std::to_string(finding.id) : actionName(finding.id);
        merge.conflicts.push_back({isLoadCase ? "loadcase" : "action", name, lcm_rule_id(finding.rule), "",
                                   "", lcm_finding_english(finding).toStdString()});
    }
}

void copyKey(const exchange::RecordKey& key, const exchange::ProjectContent& from, const Project& to)
{
    const auto records = from.keys.find(key);
    const bool isThere = records != from.keys.end();
    if (isThere || !exchange::readRecords(to.db(), key.kwh, key.kwl).empty()) {
        writeKey(key, isThere ? records->second : exchange::KeyRecords(), to);
    }
}

/// Puts what a finding is about, and the action that it names, back as the chosen side has them.
void MergeCommand::decideFindings(const KnownFindings& known, const exchange::ProjectContent& chosen,
                                  const Project& project) const
{
    for (const LCM_Finding& finding : newFindings(known, project)) {
        const auto key = keyOf(finding);
        if (!key) {
            continue;
        }
        copyKey(*key, chosen, project);
        const auto loadCase = lcm_stored_load_case(project.db(), finding.id);
        if (finding.subject == LCM_Subject::LoadCase && loadCase &&
            loadCase->record.action >= LC_BLANK_WORD) {
            copyKey({LC_KWH_ACTIONS, loadCase->record.action}, chosen, project);
        }
    }
}

void print(const std::vector<exchange::MergeConflict>& conflicts, bool isWritten)
{
    Output out;
    const auto shown = [](const std::string& text) {
        return text.empty() ? std::string("-") : printable(QString::fromStdString(text));
    };
    for (const exchange::MergeConflict& conflict : conflicts) {
        out.line("conflict " + conflict.subject + " " + shown(conflict.name) + " " + conflict.value +
                 ": base " + shown(conflict.base) + ", ours " + shown(conflict.ours) + ", theirs " +
                 shown(conflict.theirs));
    }
    out.line(std::to_string(conflicts.size()) + " conflicts" + (isWritten ? "" : "; nothing was written"));
    out.finish();
}

void printAsJson(const std::vector<exchange::MergeConflict>& conflicts, bool isWritten)
{
    Json list = Json::array();
    for (const exchange::MergeConflict& conflict : conflicts) {
        list.push_back({{"subject", conflict.subject},
                        {"name", conflict.name},
                        {"value", conflict.value},
                        {"base", conflict.base},
                        {"ours", conflict.ours},
                        {"theirs", conflict.theirs}});
    }
    printJson({{"written", isWritten}, {"conflicts", list}});
}

/// Ends the making of a project that isn't wanted.
struct Unwanted
{
};

ExitCode MergeCommand::run()
{
    const exchange::ProjectContent ours = readContent(m_ours);
    const exchange::ProjectContent theirs = readContent(m_theirs);
    exchange::Merge merge = exchange::mergeOf(readContent(m_base), ours, theirs, winner());
    KnownFindings known;
    addFindingsOf(m_ours, known);
    addFindingsOf(m_theirs, known);
    bool isWritten = true;
    try {
        Project::create(*m_out, [&](Project& project) {
            writeContent(merge.content, project);
            mrl_dlib_ini_switch(project.db());
            if (isDecided()) {
                decideFindings(known, winner() == Side::Ours ? ours : theirs, project);
            }
            addFindings(known, project, merge);
            if (!merge.conflicts.empty() && !(isDecided() && newFindings(known, project).empty())) {
                throw Unwanted{};
            }
            project.commit();
        });
    } catch (const Unwanted&) {
        isWritten = false;
    }
    m_json ? printAsJson(merge.conflicts, isWritten) : print(merge.conflicts, isWritten);
    return isWritten ? ExitCode::Done : ExitCode::Refused;
}

} // namespace

std::unique_ptr<Command> mergeCommand() { return std::make_unique<MergeCommand>(); }

} // namespace mrl::cli
