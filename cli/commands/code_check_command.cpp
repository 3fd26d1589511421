#include <variant>

#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "cli/failure.h"

namespace mrl::cli {

namespace {

class CodeCheckCommand : public Command
{
  public:
    std::string name() const override { return "check"; }
    std::string description() const override { return "Judge design-code files"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::vector<std::string> m_files;
    bool m_json = false;
};

void CodeCheckCommand::declare(Arguments& args)
{
    args.texts("FILE", m_files, Arguments::Need::Required,
               "Names of design codes, or the paths of their files");
    args.json(m_json);
}

/// What is wrong with a code, be it that it can't be read.
std::vector<CodeFinding> judged(const std::string& name)
{
    const auto file = designcode::find(name);
    if (!file) {
        throw Failure{ExitCode::File, name + ": there is no such design code"};
    }
    const auto result = designcode::read(*file);
    if (const auto* code = std::get_if<designcode::DesignCode>(&result)) {
        return findingsOf(*code);
    }
    std::vector<CodeFinding> findings;
    for (const designcode::Error& error : std::get<designcode::Errors>(result)) {
        findings.push_back(
            {error.file, error.line, error.column, "file-not-readable", error.reason, error.cure});
    }
    return findings;
}

ExitCode CodeCheckCommand::run()
{
    Json list = Json::array();
    Output out;
    bool isSound = true;
    for (const std::string& name : m_files) {
        Json findings = Json::array();
        for (const CodeFinding& finding : judged(name)) {
            isSound = false;
            findings.push_back(findingJson(finding));
            if (!m_json) {
                out.line(textOf(finding) + " [" + finding.rule + "]");
            }
        }
        list.push_back({{"file", name}, {"findings", findings}});
    }
    if (m_json) {
        printJson(list);
    }
    out.finish();
    return isSound ? ExitCode::Done : ExitCode::Refused;
}

} // namespace

std::unique_ptr<Command> codeCheckCommand() { return std::make_unique<CodeCheckCommand>(); }

} // namespace mrl::cli
