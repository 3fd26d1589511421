#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/finding.h"
#include "cli/key_list.h"
#include "cli/project.h"
#include "cli/raw_records.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/records.h"

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
    std::string file;
    bool json = false;
};

void VerifyCommand::declare(Arguments& args)
{
    args.file(file);
    args.json(json);
}

std::string sizeProblem(const char* what, const std::string& record, std::size_t expected)
{
    return record.size() == expected ? std::string()
                                     : std::string(what) + " has " + std::to_string(record.size()) +
                                           " bytes instead of " + std::to_string(expected);
}

std::string currentProblem(const std::string& record)
{
    const std::string size = sizeProblem("the current-load-case record", record, LC_CURRENT_BYTES);
    return size.empty() && kindOf(record) != 0 ? "the current-load-case record has the kind " +
                                                     std::to_string(kindOf(record)) + " and counts as absent"
                                               : size;
}

std::string loadCaseProblem(int kwl, const std::string& record)
{
    if (kwl <= 0) {
        return "a load-case number is above 0; no walk meets this key";
    }
    return lcm_is_own_kind(kindOf(record)) ? sizeProblem("the load case", record, sizeof(tagCDB_LC_CTRL))
                                           : std::string();
}

/// Numeric keys, those that begin with Y and records of other kinds are other modules' business.
std::string actionProblem(int kwl, const std::string& record)
{
    if (kwl < LC_BLANK_WORD || lcm_is_reserved_action(kwl) || kindOf(record) != 1) {
        return {};
    }
    return sizeProblem("the action", record, sizeof(tagCDB_LC_ACT));
}

/// What is wrong with a record, empty when nothing is or when this system knows nothing of its group.
/// @param first the first of its key; behind it other modules may keep what they like
std::string problemOf(int kwh, int kwl, const std::string& record, bool first)
{
    if (kwh == LC_KWH_ACTIONS) {
        return actionProblem(kwl, record);
    }
    if (!first) {
        return {};
    }
    if (kwh == LC_KWH_CASES) {
        return loadCaseProblem(kwl, record);
    }
    if (kwh == LC_KWH_CURRENT && kwl == LC_KWL_CURRENT) {
        return currentProblem(record);
    }
    return kwh == LC_KWH_SYSTEM && kwl == 0 ? sizeProblem("the system record", record, LC_SYSTEM_BYTES)
                                            : std::string();
}

void verifyRecords(const Project& project, std::vector<Finding>& findings)
{
    AllKeys keys(project.db());
    while (keys.next()) {
        const std::vector<std::string> records = readRecords(project.db(), keys.kwh(), keys.kwl());
        for (std::size_t i = 0; i < records.size(); ++i) {
            const std::string problem = problemOf(keys.kwh(), keys.kwl(), records[i], i == 0);
            if (!problem.empty()) {
                findings.push_back(
                    {"key", std::to_string(keys.kwh()) + "/" + std::to_string(keys.kwl()), "", problem});
            }
        }
    }
    project.throwOnError();
}

ExitCode VerifyCommand::run()
{
    const Project project = Project::openForReading(file);
    std::vector<Finding> findings;
    if (const cdb::Result result = cdb::integrityCheck(project.db()); !result) {
        findings.push_back({"project", "", "", result.text});
    }
    verifyRecords(project, findings);
    return report(findings, file, json);
}

} // namespace

std::unique_ptr<Command> verifyCommand() { return std::make_unique<VerifyCommand>(); }

} // namespace mrl::cli
