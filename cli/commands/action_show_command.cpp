#include "cli/action_table.h"
#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/project_records.h"

namespace mrl::cli {

namespace {

class ActionShowCommand : public Command
{
  public:
    std::string name() const override { return "show"; }
    std::string description() const override { return "Show one action of a project"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    std::string m_action;
    bool m_json = false;
};

void ActionShowCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.positional("NAME", m_action, "Name of the action, such as Q_A");
    args.json(m_json);
}

ExitCode ActionShowCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const LCM_StoredAction found = requireAction(project, m_action);
    if (m_json) {
        printJson(actionJson(found.code, found.record));
        return ExitCode::Done;
    }
    Table table = actionTable();
    addActionRow(table, found.code, found.record);
    table.print();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> actionShowCommand() { return std::make_unique<ActionShowCommand>(); }

} // namespace mrl::cli
