#include "check/project_check.h"
#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
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

LCM_Finding ofProject(LCM_Rule rule, const std::string& text)
{
    return {rule, LCM_Subject::Project, 0, 0, {QString::fromStdString(text)}};
}

/// The findings of the whole project, ahead of them those of its design code.
LCM_Findings findingsOf(int db)
{
    LCM_Findings findings;
    if (const designcode::KeptReport kept = designcode::keptReport(db); !kept.text.empty()) {
        findings.push_back(ofProject(LCM_Rule::DesignCodeNotAsKept, kept.text));
    }
    const designcode::Loaded loaded = designcode::ofDatabase(db);
    if (!loaded.code) {
        findings.push_back(ofProject(LCM_Rule::DesignCodeUnreadable, loaded.reason));
    } else {
        for (const CodeFinding& finding : cli::findingsOf(*loaded.code)) {
            findings.push_back(ofProject(LCM_Rule::DesignCodeTrap, textOf(finding)));
        }
    }
    const LCM_Findings ofRows = lcm_check_project(db, false);
    findings.insert(findings.end(), ofRows.begin(), ofRows.end());
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
