#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/project_records.h"
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
    std::string m_file;
    int m_number = 0;
    bool m_force = false;
};

void CaseRemoveCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.number(m_number, Arguments::Need::Required);
    args.flag("--force", m_force, "Remove it even if it belongs to another module");
}

ExitCode CaseRemoveCommand::run()
{
    Project project = Project::openForWriting(m_file);
    const std::string text = "load case " + std::to_string(m_number);
    const LCM_StoredLoadCase loadCase = requireLoadCase(project, m_number);
    if (!m_force && !loadCase.isOwn()) {
        project.refuse(text + " belongs to another module; --force removes it all the same");
    }
    if (!mrl_lc_remove(project.db(), m_number)) {
        project.refuse(text + " could not be removed");
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseRemoveCommand() { return std::make_unique<CaseRemoveCommand>(); }

} // namespace mrl::cli
