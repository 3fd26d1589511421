#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/project.h"
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
    std::string file;
    int number = 0;
    bool dead = false;
    bool makeCurrent = false;
    std::optional<std::string> title;
};

void CaseInitCommand::declare(Arguments& args)
{
    args.file(file);
    args.number(number, Arguments::Need::Required);
    args.flag("--dead", dead, "Take the default dead action instead of the live one");
    args.flag("--current", makeCurrent, "Make the load case current");
    args.title(title);
}

ExitCode CaseInitCommand::run()
{
    Project project = Project::openForWriting(file);
    tagCDB_LC_CTRL record{};
    if (!mrl_lc_init(project.db(), number, record, dead, makeCurrent)) {
        project.refuse("load case " + std::to_string(number) + " exists already");
    }
    if (title) {
        lcm_title_pack(qtext(*title), record.title, LC_TITLE_WORDS);
        mrl_lc_put(project.db(), number, record);
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseInitCommand() { return std::make_unique<CaseInitCommand>(); }

} // namespace mrl::cli
