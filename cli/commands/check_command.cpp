#include "check/project_check.h"
#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/finding_report.h"
#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/kept.h"

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

/// The findings of the whole project, ahead of them that its design code can't be read.
LCM_Findings findingsOf(int db)
{
    LCM_Findings findings = lcm_check_project(db, false);
    if (const designcode::Loaded loaded = designcode::ofDatabase(db); !loaded.code) {
        findings.insert(findings.begin(), {LCM_Rule::DesignCodeUnreadable,
                                           LCM_Subject::Project,
                                           0,
                                           0,
                                           {QString::fromStdString(loaded.reason)}});
    }
    if (const designcode::KeptReport kept = designcode::keptReport(db); !kept.text.empty()) {
        findings.insert(
            findings.begin(),
            {LCM_Rule::DesignCodeNotAsKept, LCM_Subject::Project, 0, 0, {QString::fromStdString(kept.text)}});
    }
    return findings;
}

ExitCode CheckCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const LCM_Findings findings = findingsOf(project.db());
    project.throwOnError();
    return report(findings, m_file, m_json);
}

} // namespace

std::unique_ptr<Command> checkCommand() { return std::make_unique<CheckCommand>(); }

} // namespace mrl::cli
