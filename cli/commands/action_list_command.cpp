#include "cli/action_table.h"
#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "lcdata/stored_actions.h"

namespace mrl::cli {

namespace {

class ActionListCommand : public Command
{
  public:
    std::string name() const override { return "list"; }
    std::string description() const override { return "List the actions of a project"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    bool m_json = false;
};

void ActionListCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.json(m_json);
}

ExitCode ActionListCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const std::vector<LCM_StoredAction> actions = lcm_stored_actions(project.db());
    project.throwOnError();
    if (m_json) {
        Json list = Json::array();
        for (const LCM_StoredAction& action : actions) {
            list.push_back(actionJson(action.code, action.record));
        }
        printJson(list);
        return ExitCode::Done;
    }
    Table table = actionTable();
    for (const LCM_StoredAction& action : actions) {
        addActionRow(table, action.code, action.record);
    }
    table.print();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> actionListCommand() { return std::make_unique<ActionListCommand>(); }

} // namespace mrl::cli
