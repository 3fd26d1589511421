#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/output.h"
#include "cli/words.h"
#include "exchange/all_keys.h"
#include "lcdata/values/keys.h"

namespace mrl::cli {

namespace {

class KeysCommand : public Command
{
  public:
    std::string name() const override { return "keys"; }
    std::string description() const override
    {
        return "List the keys in their order; action codes with their name";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    std::optional<int> m_kwh;
    bool m_json = false;
};

void KeysCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.integer("--kwh", m_kwh, "Only the keys of one group");
    args.json(m_json);
}

std::string nameOf(int kwh, int kwl)
{
    return kwh == LC_KWH_ACTIONS && kwl >= LC_BLANK_WORD ? actionName(kwl) : std::string();
}

std::string asText(int kwh, int kwl)
{
    const std::string name = nameOf(kwh, kwl);
    return std::to_string(kwh) + " " + std::to_string(kwl) + (name.empty() ? "" : " " + name);
}

std::string asJson(int kwh, int kwl)
{
    const std::string name = nameOf(kwh, kwl);
    return jsonText({{"kwh", kwh}, {"kwl", kwl}, {"name", name.empty() ? Json(nullptr) : Json(name)}});
}

ExitCode KeysCommand::run()
{
    const Project project = Project::openForReading(m_file);
    exchange::AllKeys keys =
        m_kwh ? exchange::AllKeys(project.db(), *m_kwh) : exchange::AllKeys(project.db());
    Output out;
    const char* separator = "\n";
    if (m_json) {
        out.write("[");
    }
    while (keys.next()) {
        if (m_json) {
            out.write(separator);
            out.write(asJson(keys.kwh(), keys.kwl()));
            separator = ",\n";
        } else {
            out.line(asText(keys.kwh(), keys.kwl()));
        }
    }
    project.throwOnError();
    if (m_json) {
        out.line("\n]");
    }
    out.finish();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> keysCommand() { return std::make_unique<KeysCommand>(); }

} // namespace mrl::cli
