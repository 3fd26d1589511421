#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/load_case_table.h"
#include "cli/project_records.h"
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
    std::string m_file;
    int m_number = 0;
    bool m_json = false;
};

void CaseShowCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.number(m_number, Arguments::Need::Required);
    args.json(m_json);
}

ExitCode CaseShowCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const int currentNumber = mrl_lc_current(project.db());
    const LCM_StoredLoadCase loadCase = requireLoadCase(project, m_number);
    if (m_json) {
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
