#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/failure.h"
#include "exchange/raw_records.h"
#include "host/mrl_cdb.h"

namespace mrl::cli {

namespace {

class PutCommand : public Command
{
  public:
    std::string name() const override { return "put"; }
    std::string description() const override { return "Write a raw record; it replaces the key's records"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    void write(const Project& project, const std::string& bytes) const;

    std::string m_file;
    int m_kwh = 0;
    int m_kwl = 0;
    std::string m_hex;
    bool m_append = false;
};

void PutCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.key(m_kwh, m_kwl);
    args.hex(m_hex);
    args.flag("--append", m_append, "Add the record behind those that the key holds");
}

void PutCommand::write(const Project& project, const std::string& bytes) const
{
    const int length = static_cast<int>(bytes.size());
    if (m_append) {
        const cdb::Result result = cdb::append(project.db(), m_kwh, m_kwl, bytes.data(), length);
        if (!result) {
            throw Failure{ExitCode::File, result.text};
        }
        return;
    }
    if (mrl_cdb_put(project.db(), m_kwh, m_kwl, bytes.data(), &length, 0) >= CD_END) {
        project.refuse("the record could not be written");
    }
    mrl_cdb_free_ex(project.db(), m_kwh, m_kwl);
}

ExitCode PutCommand::run()
{
    std::string bytes;
    exchange::fromHex(m_hex, bytes);
    Project project = Project::openForWriting(m_file);
    write(project, bytes);
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> putCommand() { return std::make_unique<PutCommand>(); }

} // namespace mrl::cli
