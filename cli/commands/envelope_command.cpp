#include <algorithm>

#include "cli/arguments.h"
#include "cli/combinations.h"
#include "cli/commands/commands.h"
#include "cli/envelope_run.h"
#include "cli/failure.h"

namespace mrl::cli {

namespace {

class EnvelopeCommand : public Command
{
  public:
    std::string name() const override { return "envelope"; }
    std::string description() const override
    {
        return "Greatest and least value of responses over all combinations, and what governs";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::vector<PlannedSituation> planned(const Combinations& combinations) const;

    std::string m_file;
    std::string m_responses;
    std::vector<std::string> m_situations;
    std::optional<std::string> m_numbers;
    bool m_concurrent = false;
    bool m_json = false;
    bool m_csv = false;
};

void EnvelopeCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.positional("RESPONSES", m_responses,
                    "CSV: a row for each response, its name first, then a column for each load case by "
                    "number; or a matrix as NPY");
    args.texts("--situation", m_situations, Arguments::Need::Optional,
               "Situations of the design code; all of them if not given");
    args.flag("--concurrent", m_concurrent,
              "Also the values of the responses with the same text in the column 'set'");
    args.text("--numbers", m_numbers, Arguments::Need::Optional,
              "The load cases of the columns of an NPY file, in a text file");
    args.json(m_json);
    args.flag("--csv", m_csv, "Print CSV");
    args.exclude("--csv", "--json");
}

/// The situations that were asked for. Of all of the code, those that have a combination.
std::vector<PlannedSituation> EnvelopeCommand::planned(const Combinations& combinations) const
{
    std::vector<PlannedSituation> planned;
    for (const std::string& name : m_situations.empty() ? combinations.names() : m_situations) {
        PlannedSituation each = combinations.plan(name);
        if (each.hasCombination()) {
            planned.push_back(std::move(each));
            continue;
        }
        const std::string reason =
            "situation " + name + " has no combination: no action that must act in it has a load case";
        if (!m_situations.empty()) {
            throw Failure{ExitCode::Refused, m_file + ": " + reason};
        }
        note(reason);
    }
    return planned;
}

ExitCode EnvelopeCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const Combinations combinations(project);
    const std::vector<PlannedSituation> situations = planned(combinations);
    const auto responses = openResponses(m_responses, m_numbers.value_or(""), combinations, situations);
    if (m_concurrent && !responses->hasSets()) {
        throw Failure{ExitCode::File, m_responses + ": --concurrent needs a column 'set'"};
    }
    const EnvelopeFormat format = m_json  ? EnvelopeFormat::Json
                                  : m_csv ? EnvelopeFormat::Csv
                                          : EnvelopeFormat::Lines;
    printEnvelope(m_responses, *responses, situations, EnvelopePrinter(format, m_concurrent), m_concurrent);
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> envelopeCommand() { return std::make_unique<EnvelopeCommand>(); }

} // namespace mrl::cli
