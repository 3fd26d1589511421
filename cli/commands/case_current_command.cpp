#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/output.h"
#include "lcdata/load_cases.h"

namespace mrl::cli {

namespace {

class CaseCurrentCommand : public Command
{
  public:
    std::string name() const override { return "current"; }
    std::string description() const override
    {
        return "Print the number of the current load case, 0 for none";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    bool m_json = false;
};

void CaseCurrentCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.json(m_json);
}

ExitCode CaseCurrentCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const int current = mrl_lc_current(project.db());
    project.throwOnError();
    if (m_json) {
        printJson({{"currentLoadCase", current}});
        return ExitCode::Done;
    }
    Output out;
    out.line(std::to_string(current));
    out.finish();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseCurrentCommand() { return std::make_unique<CaseCurrentCommand>(); }

} // namespace mrl::cli
