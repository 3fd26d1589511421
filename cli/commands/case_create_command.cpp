#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/output.h"
#include "cli/project_records.h"
#include "lcdata/load_cases.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"
#include "rules/load_case_numbers.h"
#include "rules/load_case_row.h"

namespace mrl::cli {

namespace {

class CaseCreateCommand : public Command
{
  public:
    std::string name() const override { return "create"; }
    std::string description() const override { return "Create a load case; prints its number"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    int chosenNumber(const Project& project) const;
    void create(const Project& project, int lc) const;

    std::string m_file;
    int m_number = 0;
    std::optional<std::string> m_action;
    std::optional<std::string> m_title;
};

void CaseCreateCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.number(m_number, Arguments::Need::Optional);
    args.text(
        "--action", m_action, Arguments::Need::Optional,
        "Action of the project; IMP for an imperfection, NONE (the default) for a load case without one");
    args.title(m_title);
}

/// The number given, or the one that the dialog would propose without a selection.
int CaseCreateCommand::chosenNumber(const Project& project) const
{
    if (m_number != 0) {
        if (mrl_lc_exists(project.db(), m_number)) {
            project.refuse("load case " + std::to_string(m_number) + " exists already");
        }
        return m_number;
    }
    std::vector<int> own;
    std::set<int> used;
    for (LCM_LoadCaseWalk walk(project.db()); walk.next();) {
        used.insert(walk.current().number);
        if (walk.current().isOwn()) {
            own.push_back(walk.current().number);
        }
    }
    int next = lcm_next_number(own, std::nullopt, used);
    // Without a load case of its own the dialog proposes 1, taken or not, and leaves the answer to the user.
    while (used.count(next) > 0) {
        ++next;
    }
    if (next > LC_MAX_NUMBER) {
        project.refuse("no number up to 999999 is free behind the highest load case");
    }
    return next;
}

void CaseCreateCommand::create(const Project& project, int lc) const
{
    const int db = project.db();
    const int word = m_action ? typedActionWord(db, *m_action) : LC_ACTION_NONE;
    const bool isReserved = word == LC_ACTION_NONE || word == LC_ACTION_IMPERFECTION;
    if (!isReserved && !lcm_stored_action(db, word)) {
        project.refuse("the project has no action " + *m_action + "; 'mrl-lc action create' takes one over");
    }
    tagCDB_LC_CTRL record = lcm_record_with_action({}, word);
    record.factor = 1.0f;
    lcm_title_pack(m_title ? qtext(*m_title) : QStringLiteral("Loadcase %1").arg(lc), record.title,
                   LC_TITLE_WORDS);
    mrl_lc_put(db, lc, record);
}

ExitCode CaseCreateCommand::run()
{
    Project project = Project::openForWriting(m_file);
    const int lc = chosenNumber(project);
    create(project, lc);
    project.throwOnError();
    // Ahead of the commit: when the number can't be told, there is no load case either.
    Output out;
    out.line(std::to_string(lc));
    out.finish();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseCreateCommand() { return std::make_unique<CaseCreateCommand>(); }

} // namespace mrl::cli
