#include <variant>

#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/output.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::cli {

namespace {

class CodeListCommand : public Command
{
  public:
    std::string name() const override { return "list"; }
    std::string description() const override
    {
        return "Where the design codes lie, and which files hide others of their name";
    }
    void declare(Arguments& args) override { args.json(m_json); }
    ExitCode run() override;

  private:
    bool m_json = false;
};

std::string labelOf(const designcode::Found& found)
{
    const auto read = designcode::read(found.file);
    const auto* code = std::get_if<designcode::DesignCode>(&read);
    return code != nullptr ? code->label : std::string();
}

ExitCode CodeListCommand::run()
{
    const auto codes = designcode::list();
    if (m_json) {
        Json list = Json::array();
        for (const designcode::Found& each : codes) {
            const std::string label = labelOf(each);
            list.push_back({{"name", each.name},
                            {"label", label.empty() ? Json(nullptr) : Json(label)},
                            {"file", each.file},
                            {"hides", each.shadowed}});
        }
        printJson(
            {{"folders", designcode::searchPath()}, {"own", designcode::userFolder()}, {"codes", list}});
        return ExitCode::Done;
    }
    Table table({{"Name"}, {"Label"}, {"File"}});
    for (const designcode::Found& each : codes) {
        const std::string label = labelOf(each);
        table.add({each.name, label.empty() ? "can't be read" : printable(qtext(label)), each.file});
        for (const std::string& hidden : each.shadowed) {
            table.add({"", "hides", hidden});
        }
    }
    table.print();
    Output out;
    out.line("");
    out.line("Your own design codes: " + designcode::userFolder());
    out.finish();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> codeListCommand() { return std::make_unique<CodeListCommand>(); }

} // namespace mrl::cli
