#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/failure.h"
#include "cli/project.h"
#include "cli/raw_records.h"
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

    std::string file;
    int kwh = 0;
    int kwl = 0;
    std::string hex;
    bool append = false;
};

void PutCommand::declare(Arguments& args)
{
    args.file(file);
    args.key(kwh, kwl);
    args.hex(hex);
    args.flag("--append", append, "Add the record behind those that the key holds");
}

void PutCommand::write(const Project& project, const std::string& bytes) const
{
    const int length = static_cast<int>(bytes.size());
    if (append) {
        const cdb::Result result = cdb::append(project.db(), kwh, kwl, bytes.data(), length);
        if (!result) {
            throw Failure{ExitCode::File, result.text};
        }
        return;
    }
    if (mrl_cdb_put(project.db(), kwh, kwl, bytes.data(), &length, 0) >= CD_END) {
        project.refuse("the record could not be written");
    }
    mrl_cdb_free_ex(project.db(), kwh, kwl);
}

ExitCode PutCommand::run()
{
    std::string bytes;
    fromHex(hex, bytes);
    Project project = Project::openForWriting(file);
    write(project, bytes);
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> putCommand() { return std::make_unique<PutCommand>(); }

} // namespace mrl::cli
