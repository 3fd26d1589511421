#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/project.h"
#include "cli/project_records.h"
#include "lcdata/actions.h"
#include "lcdata/values/action_code.h"

namespace mrl::cli {

namespace {

class ActionCreateCommand : public Command
{
  public:
    std::string name() const override { return "create"; }
    std::string description() const override { return "Take a default action of the design code over"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    std::string m_action;
    bool m_force = false;
};

void ActionCreateCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.positional("NAME", m_action, "Name of the action, such as Q_A");
    args.flag("--force", m_force, "Overwrite a stored action");
}

ExitCode ActionCreateCommand::run()
{
    Project project = Project::openForWriting(m_file);
    // The function for names has the last word on what a name means.
    const int code = lcm_normalise_code(qtext(m_action));
    if (!m_force && isStored(project.db(), code)) {
        project.refuse("action " + m_action + " is stored already; --force overwrites it");
    }
    if (!mrl_lc_create_default_action(project.db(), code)) {
        project.refuse("the design code has no action " + m_action);
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> actionCreateCommand() { return std::make_unique<ActionCreateCommand>(); }

} // namespace mrl::cli
