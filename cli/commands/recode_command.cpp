#include <map>

#include "check/finding_text.h"
#include "check/recode.h"
#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "cli/failure.h"
#include "cli/project_records.h"
#include "cli/words.h"
#include "exchange/raw_records.h"
#include "host/mrl_cdb.h"
#include "hostlib/data/designcode/kept.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"

namespace mrl::cli {

namespace {

class RecodeCommand : public Command
{
  public:
    std::string name() const override { return "recode"; }
    std::string description() const override { return "Give a project another design code"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::map<int, int> mapping() const;
    LCM_RecodePlan plan(const Project& project) const;
    void write(Project& project, const LCM_RecodePlan& plan) const;
    void moveActions(const Project& project, const LCM_RecodePlan& plan) const;

    std::string m_file;
    std::optional<std::string> m_code;
    std::vector<std::string> m_map;
    bool m_dryRun = false;
    bool m_json = false;
    designcode::DesignCode m_new;
    std::map<int, std::vector<int>> m_loadCases; ///< by the code of their action
};

void RecodeCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.text("--code", m_code, Arguments::Need::Required,
              "Name of the new design code, or the path of its file");
    args.texts("--map", m_map, Arguments::Need::Optional,
               "OLD=NEW: the action of the new code that an action of the project becomes");
    args.flag("--dry-run", m_dryRun, "Tell the plan and write nothing");
    args.json(m_json);
}

std::map<int, int> RecodeCommand::mapping() const
{
    std::map<int, int> map;
    for (const std::string& pair : m_map) {
        const auto sign = pair.find('=');
        if (sign == std::string::npos || sign == 0 || sign + 1 == pair.size()) {
            throw Failure{ExitCode::Usage, "--map " + pair + ": write OLD=NEW, such as Q_A=L"};
        }
        map[lcm_pack_word(qtext(pair.substr(0, sign)))] = lcm_pack_word(qtext(pair.substr(sign + 1)));
    }
    return map;
}

LCM_RecodePlan RecodeCommand::plan(const Project& project) const
{
    const designcode::Loaded old = designcode::ofDatabase(project.db());
    const LCM_DesignCodeData from = old.code ? dataOf(*old.code) : LCM_DesignCodeData();
    return lcm_plan_recode(lcm_stored_actions(project.db()), from, dataOf(m_new), mapping());
}

const char* wordOf(LCM_RecodeFate fate)
{
    switch (fate) {
    case LCM_RecodeFate::TakesDefault:
        return "takes the new default";
    case LCM_RecodeFate::KeepsValues:
        return "keeps its values";
    case LCM_RecodeFate::BecomesOwn:
        break;
    }
    return "stays as an own action";
}

std::string joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : ", ") + word;
    }
    return text;
}

std::vector<std::string> changesOf(const LCM_RecodeRow& row)
{
    std::vector<std::string> changes;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const float before = lcm_shown_factor(row.before, factor);
        const float after = lcm_shown_factor(row.after, factor);
        if (lcm_stored_factor(row.before, factor) != lcm_stored_factor(row.after, factor)) {
            changes.push_back(std::string(factor.key) + " " + factorText(before) + " > " + factorText(after));
        }
    }
    return changes;
}

std::vector<std::string> textsOf(const LCM_Findings& findings)
{
    std::vector<std::string> texts;
    for (const LCM_Finding& finding : findings) {
        texts.push_back(lcm_finding_english(finding).toStdString());
    }
    return texts;
}

void printPlan(const LCM_RecodePlan& plan, const std::map<int, std::vector<int>>& loadCases)
{
    Table table({{"Action"}, {"Becomes"}, {"What"}, {"Changes"}, {"Lost on OK"}, {"Breaks"}, {"Load cases"}});
    for (const LCM_RecodeRow& row : plan.rows) {
        std::vector<std::string> numbers;
        if (const auto found = loadCases.find(row.oldCode); found != loadCases.end()) {
            for (const int number : found->second) {
                numbers.push_back(std::to_string(number));
            }
        }
        table.add({actionName(row.oldCode), actionName(row.newCode), wordOf(row.fate), joined(changesOf(row)),
                   joined(row.dropped), joined(textsOf(row.broken)), joined(numbers)});
    }
    table.print();
}

Json planJson(const LCM_RecodePlan& plan, const std::map<int, std::vector<int>>& loadCases)
{
    Json rows = Json::array();
    for (const LCM_RecodeRow& row : plan.rows) {
        const auto found = loadCases.find(row.oldCode);
        rows.push_back({{"action", actionName(row.oldCode)},
                        {"becomes", actionName(row.newCode)},
                        {"what", wordOf(row.fate)},
                        {"changes", changesOf(row)},
                        {"dropped", row.dropped},
                        {"breaks", textsOf(row.broken)},
                        {"loadCases", found == loadCases.end() ? std::vector<int>() : found->second}});
    }
    return {{"refusal", plan.refusal.empty() ? Json(nullptr) : Json(plan.refusal)}, {"actions", rows}};
}

[[noreturn]] void notWritten(const Project& project, const std::string& what)
{
    project.refuse(what + " could not be written");
}

/// With the foreign records of the key. The new one is written only when all old ones are gone, since names may be
/// exchanged.
void RecodeCommand::moveActions(const Project& project, const LCM_RecodePlan& plan) const
{
    const int db = project.db();
    std::map<int, std::vector<std::string>> moved;
    for (const LCM_RecodeRow& row : plan.rows) {
        if (row.oldCode != row.newCode) {
            moved[row.newCode] = exchange::readRecords(db, LC_KWH_ACTIONS, row.oldCode);
            mrl_cdb_del(db, LC_KWH_ACTIONS, row.oldCode);
        }
    }
    for (const auto& [code, records] : moved) {
        for (const std::string& record : records) {
            if (!cdb::append(db, LC_KWH_ACTIONS, code, record.data(), static_cast<int>(record.size()))) {
                notWritten(project, "action " + actionName(code));
            }
        }
    }
}

void RecodeCommand::write(Project& project, const LCM_RecodePlan& plan) const
{
    const int db = project.db();
    moveActions(project, plan);
    for (const LCM_RecodeRow& row : plan.rows) {
        auto stored = lcm_stored_action(db, row.newCode);
        if (row.isChanged() && stored) {
            stored->record = row.after;
            if (!rewriteAction(db, *stored)) {
                notWritten(project, "action " + actionName(row.newCode));
            }
        }
        const auto found = m_loadCases.find(row.oldCode);
        if (row.oldCode == row.newCode || found == m_loadCases.end()) {
            continue;
        }
        for (const int number : found->second) {
            tagCDB_LC_CTRL record = lcm_stored_load_case(db, number)->record;
            record.action = row.newCode;
            if (!exchange::overwriteRecord(db, LC_KWH_CASES, number, 0, &record, sizeof record)) {
                notWritten(project, "load case " + std::to_string(number));
            }
        }
    }
    const std::string code = storedCodeName(*m_code);
    for (const cdb::Result& result : {cdb::setFact(db, "designcode", code), designcode::keep(db, m_new)}) {
        if (!result) {
            throw Failure{ExitCode::File, project.file() + ": " + result.text};
        }
    }
    project.throwOnError();
    project.commit();
}

ExitCode RecodeCommand::run()
{
    m_new = readDesignCode(*m_code);
    Project project = m_dryRun ? Project::openForReading(m_file) : Project::openForWriting(m_file);
    for (LCM_LoadCaseWalk walk(project.db()); walk.next();) {
        if (walk.current().isOwn()) {
            m_loadCases[actionWordOf(walk.current().record)].push_back(walk.current().number);
        }
    }
    const LCM_RecodePlan planned = plan(project);
    project.throwOnError();
    if (m_json) {
        printJson(planJson(planned, m_loadCases));
    } else {
        printPlan(planned, m_loadCases);
    }
    if (!planned.refusal.empty()) {
        project.refuse(planned.refusal);
    }
    if (!m_dryRun) {
        write(project, planned);
    }
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> recodeCommand() { return std::make_unique<RecodeCommand>(); }

} // namespace mrl::cli
