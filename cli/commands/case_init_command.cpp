#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "lcdata/load_cases.h"
#include "lcdata/values/packed_text.h"

namespace mrl::cli {

namespace {

class CaseInitCommand : public Command
{
  public:
    std::string name() const override { return "init"; }
    std::string description() const override
    {
        return "Create a load case of the design code's default action";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    int m_number = 0;
    bool m_dead = false;
    bool m_makeCurrent = false;
    std::optional<std::string> m_title;
};

void CaseInitCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.number(m_number, Arguments::Need::Required);
    args.flag("--dead", m_dead, "Take the default dead action instead of the live one");
    args.flag("--current", m_makeCurrent, "Make the load case current");
    args.title(m_title);
}

ExitCode CaseInitCommand::run()
{
    Project project = Project::openForWriting(m_file);
    tagCDB_LC_CTRL record{};
    if (!mrl_lc_init(project.db(), m_number, record, m_dead, m_makeCurrent)) {
        project.refuse("load case " + std::to_string(m_number) + " exists already");
    }
    if (m_title) {
        lcm_title_pack(qtext(*m_title), record.title, LC_TITLE_WORDS);
        mrl_lc_put(project.db(), m_number, record);
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseInitCommand() { return std::make_unique<CaseInitCommand>(); }

} // namespace mrl::cli
