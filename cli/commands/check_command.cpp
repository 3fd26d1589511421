#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/finding.h"
#include "cli/project.h"
#include "cli/project_check.h"

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
    std::string file;
    bool json = false;
};

void CheckCommand::declare(Arguments& args)
{
    args.file(file);
    args.json(json);
}

ExitCode CheckCommand::run()
{
    const Project project = Project::openForReading(file);
    const std::vector<Finding> findings = checkProject(project.db());
    project.throwOnError();
    return report(findings, file, json);
}

} // namespace

std::unique_ptr<Command> checkCommand() { return std::make_unique<CheckCommand>(); }

} // namespace mrl::cli
