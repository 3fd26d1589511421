#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/project.h"
#include "cli/raw_records.h"
#include "host/mrl_cdb.h"

namespace mrl::cli {

namespace {

class DelCommand : public Command
{
  public:
    std::string name() const override { return "del"; }
    std::string description() const override { return "Delete a key with all its records"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string file;
    int kwh = 0;
    int kwl = 0;
};

void DelCommand::declare(Arguments& args)
{
    args.file(file);
    args.key(kwh, kwl);
}

ExitCode DelCommand::run()
{
    Project project = Project::openForWriting(file);
    if (mrl_cdb_del(project.db(), kwh, kwl) >= CD_END) {
        project.refuse("there is no key " + keyText(kwh, kwl));
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> delCommand() { return std::make_unique<DelCommand>(); }

} // namespace mrl::cli
