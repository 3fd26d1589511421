#include <QFileInfo>

#include <cstdio>

#include "cli/arguments.h"
#include "cli/combination_list.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/exchange_options.h"
#include "cli/failure.h"
#include "cli/output.h"
#include "exchange/file_writing.h"
#include "exchange/saf_format.h"
#include "exchange/situation_table.h"

namespace mrl::cli {

namespace {

class ExportCommand : public Command
{
  public:
    std::string name() const override { return "export"; }
    std::string description() const override
    {
        return "Write actions and load cases, or combinations, as a table";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    const exchange::Format& chosenFormat() const;
    exchange::Source sourceOf(const Project& project, const exchange::Format& format) const;
    exchange::FormatOptions formatOptions() const;
    void writeSheets(const Project& project, const exchange::Format& format) const;
    void writeCombinations(const Project& project, const exchange::Format& format) const;
    void write(const Project& project, const exchange::WriteBytes& write) const;
    void writeFile(const Project& project, const exchange::WriteBytes& write) const;
    void require(const std::optional<exchange::FormatError>& error) const;

    std::string m_file;
    std::optional<std::string> m_out;
    ExchangeOptions m_options;
    CombinationOptions m_which;
    std::optional<std::string> m_safVersion;
};

void ExportCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.text("--output,-o", m_out, Arguments::Need::Optional,
              "File to write; - (the default) is standard output");
    args.text("--saf-version", m_safVersion, Arguments::Need::Optional, "Version of SAF that is written");
    m_options.declare(args,
                      "actions, loadcases or both with a comma between, or combinations; the sheets that the "
                      "format holds unless given");
    m_which.declare(args);
}

const exchange::Format& ExportCommand::chosenFormat() const
{
    if (const exchange::Format* named = m_options.namedFormat()) {
        return *named;
    }
    const exchange::Format* found = exchange::formatOfFile(m_out.value_or("-"), {});
    return found != nullptr ? *found : *exchange::formats().front();
}

exchange::Source ExportCommand::sourceOf(const Project& project, const exchange::Format& format) const
{
    exchange::Source source;
    source.db = project.db();
    source.name = QFileInfo(qtext(m_file)).completeBaseName().toStdString();
    source.facts = project.facts();
    if (m_options.meansCombinations()) {
        return source;
    }
    source.sheets = m_options.sheets();
    if (source.sheets.empty()) {
        source.sheets = {exchange::Sheet::LoadCases};
        if (format.holdsManySheets()) {
            source.sheets.insert(source.sheets.begin(), exchange::Sheet::Actions);
        }
        source.whole = true;
    }
    return source;
}

exchange::FormatOptions ExportCommand::formatOptions() const
{
    exchange::FormatOptions options = m_options.format();
    if (m_safVersion) {
        requireOneOf("--saf-version", *m_safVersion, exchange::safVersions());
        options.version = *m_safVersion;
    }
    return options;
}

void ExportCommand::require(const std::optional<exchange::FormatError>& error) const
{
    if (error) {
        throw Failure{ExitCode::Refused, m_out.value_or("-") + ": " + error->message.english()};
    }
}

void ExportCommand::writeFile(const Project& project, const exchange::WriteBytes& write) const
{
    if (QFileInfo(qtext(*m_out)) == QFileInfo(qtext(m_file))) {
        project.refuse("the project itself can't be the file to write");
    }
    const auto isSound = [&] {
        project.throwOnError();
        return true;
    };
    if (const auto failure = exchange::writeFile(write, qtext(*m_out), isSound)) {
        throw Failure{failure->isOfFile ? ExitCode::File : ExitCode::Refused,
                      *m_out + ": " + failure->message.english()};
    }
}

void ExportCommand::write(const Project& project, const exchange::WriteBytes& write) const
{
    if (m_out && *m_out != "-") {
        writeFile(project, write);
        return;
    }
    Output out;
    require(write([&](std::string_view bytes) {
        out.bytes(bytes);
        return true;
    }));
    out.finish();
}

void ExportCommand::writeSheets(const Project& project, const exchange::Format& format) const
{
    const exchange::Source source = sourceOf(project, format);
    for (const std::string& loss : englishOf(format.losses(source))) {
        std::fprintf(stderr, "mrl-lc: not told in the file: %s\n", loss.c_str());
    }
    write(project, [&](const exchange::Sink& sink) { return format.write(source, formatOptions(), sink); });
}

void ExportCommand::writeCombinations(const Project& project, const exchange::Format& format) const
{
    const Combinations combinations(project);
    const PlannedSituation planned = m_which.plan(combinations);
    const CombinationList list(m_file, m_which, combinations, planned);
    const exchange::Source source = sourceOf(project, format);
    const exchange::CombinationTable table = exchange::situationTable(
        *planned.situation, planned.plan, [&](const exchange::VisitCombination& visit) { list.tell(visit); });
    write(project, [&](const exchange::Sink& sink) {
        return format.writeCombinations(source, table, formatOptions(), sink);
    });
}

ExitCode ExportCommand::run()
{
    const exchange::Format& format = chosenFormat();
    const Project project = Project::openForReading(m_file);
    if (m_options.meansCombinations()) {
        writeCombinations(project, format);
    } else if (m_which.isGiven()) {
        throw Failure{ExitCode::Usage,
                      "--situation, --limit, --keep and --numbers are for --what combinations"};
    } else {
        writeSheets(project, format);
    }
    project.throwOnError();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> exportCommand() { return std::make_unique<ExportCommand>(); }

} // namespace mrl::cli
