#include "check/record_check.h"
#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/finding_report.h"
#include "exchange/all_keys.h"
#include "exchange/raw_records.h"

namespace mrl::cli {

namespace {

class VerifyCommand : public Command
{
  public:
    std::string name() const override { return "verify"; }
    std::string description() const override
    {
        return "Check the integrity of the file and the size and kind of every record";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    bool m_json = false;
};

void VerifyCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.json(m_json);
}

void verifyRecords(const Project& project, LCM_Findings& findings)
{
    exchange::AllKeys keys(project.db());
    while (keys.next()) {
        const std::vector<std::string> records = exchange::readRecords(project.db(), keys.kwh(), keys.kwl());
        for (std::size_t i = 0; i < records.size(); ++i) {
            if (auto finding = lcm_check_record({keys.kwh(), keys.kwl(), i == 0, records[i]})) {
                findings.push_back(std::move(*finding));
            }
        }
    }
    project.throwOnError();
}

ExitCode VerifyCommand::run()
{
    const Project project = Project::openForReading(m_file);
    LCM_Findings findings;
    if (const cdb::Result result = cdb::integrityCheck(project.db()); !result) {
        findings.push_back(
            {LCM_Rule::FileDamaged, LCM_Subject::Project, 0, 0, {QString::fromStdString(result.text)}});
    }
    verifyRecords(project, findings);
    return report(findings, m_file, m_json);
}

} // namespace

std::unique_ptr<Command> verifyCommand() { return std::make_unique<VerifyCommand>(); }

} // namespace mrl::cli
