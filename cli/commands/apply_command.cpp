#include <algorithm>

#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/input_file.h"
#include "cli/output.h"
#include "cli/script.h"

namespace mrl::cli {

namespace {

class ApplyCommand : public Command
{
  public:
    std::string name() const override { return "apply"; }
    std::string description() const override
    {
        return "Do the operations of a script, a line of JSON each; all of them or none";
    }
    void declare(Arguments& args) override
    {
        args.file(m_file);
        args.positional("SCRIPT", m_script, "File with the operations; - is standard input");
    }
    ExitCode run() override;

  private:
    std::string m_file;
    std::string m_script;
};

ExitCode ApplyCommand::run()
{
    Project project = Project::openForWriting(m_file);
    const QByteArray bytes = readInput(m_script);
    Script script(project);
    std::string results;
    int number = 0;
    for (std::string_view rest = viewOf(bytes); !rest.empty();) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        ++number;
        if (line.find_first_not_of(" \t\r") != std::string_view::npos) {
            script.run(number, line, results);
        }
    }
    project.throwOnError();
    project.commit();
    Output out;
    out.write(results);
    out.finish();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> applyCommand() { return std::make_unique<ApplyCommand>(); }

} // namespace mrl::cli
