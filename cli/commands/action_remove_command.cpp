#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/own_actions.h"

namespace mrl::cli {

namespace {

class ActionRemoveCommand : public Command
{
  public:
    std::string name() const override { return "remove"; }
    std::string description() const override { return "Remove an action that no load case uses"; }
    void declare(Arguments& args) override
    {
        args.file(m_file);
        args.positional("NAME", m_action, "Name of the action, such as Q_A");
    }
    ExitCode run() override
    {
        Project project = Project::openForWriting(m_file);
        removeAction(m_action, project);
        project.throwOnError();
        project.commit();
        return ExitCode::Done;
    }

  private:
    std::string m_file;
    std::string m_action;
};

} // namespace

std::unique_ptr<Command> actionRemoveCommand() { return std::make_unique<ActionRemoveCommand>(); }

} // namespace mrl::cli
