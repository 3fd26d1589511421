#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/content_io.h"
#include "cli/output.h"
#include "exchange/project_diff.h"

namespace mrl::cli {

namespace {

class DiffCommand : public Command
{
  public:
    std::string name() const override { return "diff"; }
    std::string description() const override
    {
        return "Compare two projects; exit status 1 when they differ";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_a;
    std::string m_b;
    bool m_json = false;
};

void DiffCommand::declare(Arguments& args)
{
    args.positional("A", m_a, "The project as it was");
    args.positional("B", m_b, "The project as it is");
    args.json(m_json);
}

const char* wordOf(exchange::Difference kind)
{
    return kind == exchange::Difference::Added     ? "added"
           : kind == exchange::Difference::Removed ? "removed"
                                                   : "changed";
}

Json jsonOf(const exchange::ProjectDifference& difference)
{
    Json out = {{"kind", wordOf(difference.kind)},
                {"subject", difference.subject},
                {"name", difference.name},
                {"values", Json::array()}};
    for (const exchange::DifferentValue& value : difference.values) {
        out["values"].push_back({{"name", value.name}, {"before", value.before}, {"after", value.after}});
    }
    return out;
}

std::string shown(const std::string& text)
{
    return text.empty() ? "-" : printable(QString::fromStdString(text));
}

void print(Output& out, const exchange::ProjectDifference& difference)
{
    out.line(std::string(wordOf(difference.kind)) + " " + difference.subject + " " +
             printable(QString::fromStdString(difference.name)));
    for (const exchange::DifferentValue& value : difference.values) {
        const bool isChange = difference.kind == exchange::Difference::Changed;
        const std::string& only = value.before.empty() ? value.after : value.before;
        if (isChange) {
            out.line("  " + value.name + ": " + shown(value.before) + " -> " + shown(value.after));
        } else if (!only.empty()) {
            out.line("  " + value.name + ": " + shown(only));
        }
    }
}

ExitCode DiffCommand::run()
{
    const Project a = Project::openForReading(m_a);
    const Project b = Project::openForReading(m_b);
    const auto [before, after] = differingContent(a, b);
    const auto differences = exchange::differencesOf(before, after);
    if (m_json) {
        Json list = Json::array();
        for (const auto& difference : differences) {
            list.push_back(jsonOf(difference));
        }
        printJson({{"a", m_a}, {"b", m_b}, {"differences", list}});
    } else {
        Output out;
        for (const auto& difference : differences) {
            print(out, difference);
        }
        out.finish();
    }
    return differences.empty() ? ExitCode::Done : ExitCode::Refused;
}

} // namespace

std::unique_ptr<Command> diffCommand() { return std::make_unique<DiffCommand>(); }

} // namespace mrl::cli
