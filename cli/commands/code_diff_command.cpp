#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "hostlib/data/designcode/effective.h"

namespace mrl::cli {

namespace {

class CodeDiffCommand : public Command
{
  public:
    std::string name() const override { return "diff"; }
    std::string description() const override { return "What differs between two design codes"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_a;
    std::string m_b;
    bool m_json = false;
};

void CodeDiffCommand::declare(Arguments& args)
{
    args.positional("A", m_a, "Name of a design code, or the path of its file");
    args.positional("B", m_b, "Another one");
    args.json(m_json);
}

Json jsonOf(const std::optional<std::string>& value) { return value ? Json(*value) : Json(nullptr); }

void print(const std::vector<designcode::Difference>& differences, const std::string& a, const std::string& b)
{
    const auto cell = [](const std::optional<std::string>& value, bool isWhole) {
        return value ? (isWhole ? "there" : printable(qtext(*value))) : "-";
    };
    Table table({{"Where"}, {"What"}, {a}, {b}});
    for (const designcode::Difference& each : differences) {
        table.add(
            {each.subject, each.name, cell(each.a, each.name.empty()), cell(each.b, each.name.empty())});
    }
    table.print();
}

ExitCode CodeDiffCommand::run()
{
    const auto differences = designcode::differences(readDesignCode(m_a), readDesignCode(m_b));
    if (m_json) {
        Json list = Json::array();
        for (const designcode::Difference& each : differences) {
            list.push_back(
                {{"where", each.subject}, {"what", each.name}, {"a", jsonOf(each.a)}, {"b", jsonOf(each.b)}});
        }
        printJson(list);
    } else if (!differences.empty()) {
        print(differences, m_a, m_b);
    }
    return differences.empty() ? ExitCode::Done : ExitCode::Refused;
}

} // namespace

std::unique_ptr<Command> codeDiffCommand() { return std::make_unique<CodeDiffCommand>(); }

} // namespace mrl::cli
