#include <cstdio>

#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/load_case_table.h"
#include "cli/project_records.h"
#include "lcdata/load_cases.h"

namespace mrl::cli {

namespace {

class CaseListCommand : public Command
{
  public:
    std::string name() const override { return "list"; }
    std::string description() const override { return "List the load cases of a project"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    bool wanted(const LCM_StoredLoadCase& loadCase) const;
    void printJsonList(const Project& project) const;
    void printTable(const Project& project) const;

    std::string m_file;
    std::optional<std::string> m_action;
    std::optional<int> m_actionWord;
    bool m_json = false;
};

void CaseListCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.text("--action", m_action, Arguments::Need::Optional,
              "Only those of an action; IMP for imperfections, NONE for those without");
    args.json(m_json);
}

bool CaseListCommand::wanted(const LCM_StoredLoadCase& loadCase) const
{
    return !m_actionWord || (loadCase.isOwn() && actionWordOf(loadCase.record) == *m_actionWord);
}

/// Written one by one, so that a hundred thousand load cases need no memory of their own.
void CaseListCommand::printJsonList(const Project& project) const
{
    const int currentNumber = mrl_lc_current(project.db());
    Output out;
    const char* separator = "\n";
    out.write("[");
    for (LCM_LoadCaseWalk walk(project.db()); walk.next();) {
        if (wanted(walk.current())) {
            out.write(separator);
            out.write(jsonText(loadCaseJson(walk.current(), currentNumber)));
            separator = ",\n";
        }
    }
    project.throwOnError();
    out.line("\n]");
    out.finish();
}

void CaseListCommand::printTable(const Project& project) const
{
    const int currentNumber = mrl_lc_current(project.db());
    Output out;
    out.line(loadCaseHead());
    for (LCM_LoadCaseWalk walk(project.db()); walk.next();) {
        if (wanted(walk.current())) {
            out.line(loadCaseLine(walk.current(), currentNumber));
        }
    }
    project.throwOnError();
    out.finish();
}

ExitCode CaseListCommand::run()
{
    const Project project = Project::openForReading(m_file);
    if (m_action) {
        m_actionWord = typedActionWord(project.db(), *m_action);
    }
    m_json ? printJsonList(project) : printTable(project);
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseListCommand() { return std::make_unique<CaseListCommand>(); }

} // namespace mrl::cli
