#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/load_case_table.h"
#include "cli/project.h"
#include "cli/stored_load_cases.h"
#include "lcdata/load_cases.h"

namespace mrl::cli {

namespace {

class CaseShowCommand : public Command
{
  public:
    std::string name() const override { return "show"; }
    std::string description() const override { return "Show one load case"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string file;
    int number = 0;
    bool json = false;
};

void CaseShowCommand::declare(Arguments& args)
{
    args.file(file);
    args.number(number, Arguments::Need::Required);
    args.json(json);
}

ExitCode CaseShowCommand::run()
{
    const Project project = Project::openForReading(file);
    const int currentNumber = mrl_lc_current(project.db());
    const LCM_StoredLoadCase loadCase = requireLoadCase(project, number);
    if (json) {
        printJson(loadCaseJson(loadCase, currentNumber));
        return ExitCode::Done;
    }
    Output out;
    out.line(loadCaseHead());
    out.line(loadCaseLine(loadCase, currentNumber));
    out.finish();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseShowCommand() { return std::make_unique<CaseShowCommand>(); }

} // namespace mrl::cli
