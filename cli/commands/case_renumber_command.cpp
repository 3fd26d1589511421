#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/output.h"
#include "cli/renumbering.h"

namespace mrl::cli {

namespace {

class CaseRenumberCommand : public Command
{
  public:
    std::string name() const override { return "renumber"; }
    std::string description() const override { return "Give load cases other numbers, all at once"; }
    void declare(Arguments& args) override
    {
        args.file(m_file);
        args.texts("MOVE", m_moves, Arguments::Need::Required,
                   "A=B; A-B=C: the range, from C on; A-B:+N or A-B:-N: by an offset");
        args.flag("--force", m_force, "Renumber even if records of other modules stay under an old number");
    }
    ExitCode run() override;

  private:
    std::string m_file;
    std::vector<std::string> m_moves;
    bool m_force = false;
};

ExitCode CaseRenumberCommand::run()
{
    Project project = Project::openForWriting(m_file);
    const Moves moves = movesOf(m_moves, project);
    Output out;
    const std::vector<std::string> stranded = StrandedKeys(project).of(moves);
    for (const std::string& key : stranded) {
        out.line("record " + key + " keeps its number");
    }
    out.finish();
    if (!stranded.empty() && !m_force) {
        project.refuse("records of other modules stay under old numbers; --force renumbers all the same");
    }
    renumber(moves, project);
    project.throwOnError();
    project.commit();
    for (const auto& [from, to] : moves) {
        out.line(std::to_string(from) + " -> " + std::to_string(to));
    }
    out.finish();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseRenumberCommand() { return std::make_unique<CaseRenumberCommand>(); }

} // namespace mrl::cli
