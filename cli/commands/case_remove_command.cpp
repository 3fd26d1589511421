#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/project.h"
#include "cli/stored_load_cases.h"
#include "lcdata/load_cases.h"

namespace mrl::cli {

namespace {

class CaseRemoveCommand : public Command
{
  public:
    std::string name() const override { return "remove"; }
    std::string description() const override { return "Remove a load case"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string file;
    int number = 0;
    bool force = false;
};

void CaseRemoveCommand::declare(Arguments& args)
{
    args.file(file);
    args.number(number, Arguments::Need::Required);
    args.flag("--force", force, "Remove it even if it belongs to another module");
}

ExitCode CaseRemoveCommand::run()
{
    Project project = Project::openForWriting(file);
    const std::string text = "load case " + std::to_string(number);
    const LCM_StoredLoadCase loadCase = requireLoadCase(project, number);
    if (!force && !loadCase.isOwn()) {
        project.refuse(text + " belongs to another module; --force removes it all the same");
    }
    if (!mrl_lc_remove(project.db(), number)) {
        project.refuse(text + " could not be removed");
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseRemoveCommand() { return std::make_unique<CaseRemoveCommand>(); }

} // namespace mrl::cli
