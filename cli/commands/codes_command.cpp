#include <cstdio>
#include <variant>

#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "cli/output.h"

namespace mrl::cli {

namespace {

class CodesCommand : public Command
{
  public:
    std::string name() const override { return "codes"; }
    std::string description() const override { return "List the design codes on the search path"; }
    void declare(Arguments& args) override { args.json(m_json); }
    ExitCode run() override;

  private:
    bool m_json = false;
};

ExitCode CodesCommand::run()
{
    ExitCode result = ExitCode::Done;
    std::vector<designcode::DesignCode> codes;
    for (const designcode::Found& found : designcode::list()) {
        auto read = designcode::read(found.file);
        if (const auto* errors = std::get_if<designcode::Errors>(&read)) {
            std::fprintf(stderr, "mrl-lc: %s\n", textOf(*errors).c_str());
            result = ExitCode::File;
            continue;
        }
        codes.push_back(std::get<designcode::DesignCode>(std::move(read)));
    }
    if (m_json) {
        Json list = Json::array();
        for (const auto& code : codes) {
            Json entry = identityJson(code);
            entry["actions"] = code.actions.size();
            entry["warnings"] = warningsJson(code);
            list.push_back(entry);
        }
        printJson(list);
        return result;
    }
    Table table({{"Name"}, {"Label"}, {"Actions", Table::Align::Right}});
    for (const auto& code : codes) {
        table.add({code.name, printable(qtext(code.label)), std::to_string(code.actions.size())});
    }
    table.print();
    for (const auto& code : codes) {
        printWarnings(code);
    }
    return result;
}

} // namespace

std::unique_ptr<Command> codesCommand() { return std::make_unique<CodesCommand>(); }

} // namespace mrl::cli
