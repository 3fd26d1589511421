#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/project_records.h"
#include "cli/words.h"
#include "lcdata/actions.h"

namespace mrl::cli {

namespace {

class ActionCreateAllCommand : public Command
{
  public:
    std::string name() const override { return "create-all"; }
    std::string description() const override { return "Take every default action of the design code over"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::vector<int> codesToCreate(const Project& project) const;

    std::string m_file;
    bool m_force = false;
    bool m_missing = false;
};

void ActionCreateAllCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.flag("--force", m_force, "Overwrite stored actions");
    args.flag("--missing", m_missing, "Leave stored actions as they are and create the others");
    args.exclude("--missing", "--force");
}

std::vector<int> ActionCreateAllCommand::codesToCreate(const Project& project) const
{
    std::vector<int> defaults;
    mrl_lc_get_default_action_list(project.db(), defaults);
    if (m_force) {
        return defaults;
    }
    std::vector<int> codes;
    std::string stored;
    for (const int code : defaults) {
        if (isStored(project.db(), code)) {
            stored += " " + actionName(code);
        } else {
            codes.push_back(code);
        }
    }
    if (!stored.empty() && !m_missing) {
        project.refuse("stored already:" + stored + "; --force overwrites them, --missing leaves them");
    }
    return codes;
}

ExitCode ActionCreateAllCommand::run()
{
    Project project = Project::openForWriting(m_file);
    for (const int code : codesToCreate(project)) {
        mrl_lc_create_default_action(project.db(), code);
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> actionCreateAllCommand() { return std::make_unique<ActionCreateAllCommand>(); }

} // namespace mrl::cli
