#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/key_text.h"
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
    std::string m_file;
    int m_kwh = 0;
    int m_kwl = 0;
};

void DelCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.key(m_kwh, m_kwl);
}

ExitCode DelCommand::run()
{
    Project project = Project::openForWriting(m_file);
    if (mrl_cdb_del(project.db(), m_kwh, m_kwl) >= CD_END) {
        project.refuse("there is no key " + keyText(m_kwh, m_kwl));
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> delCommand() { return std::make_unique<DelCommand>(); }

} // namespace mrl::cli
