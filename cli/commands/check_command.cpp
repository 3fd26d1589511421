#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/finding_report.h"
#include "findings/project_findings.h"

namespace mrl::cli {

namespace {

class CheckCommand : public Command
{
  public:
    std::string name() const override { return "check"; }
    std::string description() const override
    {
        return "Judge actions and load cases by the rules of the dialog";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    bool m_json = false;
};

void CheckCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.json(m_json);
}

ExitCode CheckCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const LCM_Findings found = findings::ofProject(project.db(), false);
    project.throwOnError();
    return report(found, m_file, m_json);
}

} // namespace

std::unique_ptr<Command> checkCommand() { return std::make_unique<CheckCommand>(); }

} // namespace mrl::cli
