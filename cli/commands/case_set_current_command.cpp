#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "lcdata/load_cases.h"

namespace mrl::cli {

namespace {

class CaseSetCurrentCommand : public Command
{
  public:
    std::string name() const override { return "set-current"; }
    std::string description() const override { return "Make a load case current"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    int m_number = 0;
};

void CaseSetCurrentCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.number(m_number, Arguments::Need::Required);
}

ExitCode CaseSetCurrentCommand::run()
{
    Project project = Project::openForWriting(m_file);
    if (!mrl_lc_exists(project.db(), m_number)) {
        project.refuse("there is no load case " + std::to_string(m_number));
    }
    mrl_lc_set_current(project.db(), m_number);
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseSetCurrentCommand() { return std::make_unique<CaseSetCurrentCommand>(); }

} // namespace mrl::cli
