#include <QFileInfo>
#include <QSaveFile>

#include <cstdio>

#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/exchange_options.h"
#include "cli/failure.h"
#include "cli/output.h"
#include "exchange/saf_format.h"

namespace mrl::cli {

namespace {

class ExportCommand : public Command
{
  public:
    std::string name() const override { return "export"; }
    std::string description() const override { return "Write actions and load cases as a table"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    const exchange::Format& chosenFormat() const;
    exchange::Source sourceOf(const Project& project, const exchange::Format& format) const;
    void writeTo(const exchange::Format& format, const exchange::Source& source,
                 const exchange::Sink& sink) const;
    void writeFile(const Project& project, const exchange::Format& format,
                   const exchange::Source& source) const;

    std::string m_file;
    std::optional<std::string> m_out;
    ExchangeOptions m_options;
    std::optional<std::string> m_safVersion;
};

void ExportCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.text("--output,-o", m_out, Arguments::Need::Optional,
              "File to write; - (the default) is standard output");
    args.text("--saf-version", m_safVersion, Arguments::Need::Optional, "Version of SAF that is written");
    m_options.declare(args,
                      "actions, loadcases or both with a comma between; what the format holds unless given");
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

void ExportCommand::writeTo(const exchange::Format& format, const exchange::Source& source,
                            const exchange::Sink& sink) const
{
    exchange::FormatOptions options = m_options.format();
    if (m_safVersion) {
        requireOneOf("--saf-version", *m_safVersion, exchange::safVersions());
        options.version = *m_safVersion;
    }
    if (const auto error = format.write(source, options, sink)) {
        throw Failure{ExitCode::Refused, m_out.value_or("-") + ": " + error->text};
    }
}

/// The file is there whole, or as it was before.
void ExportCommand::writeFile(const Project& project, const exchange::Format& format,
                              const exchange::Source& source) const
{
    if (QFileInfo(qtext(*m_out)) == QFileInfo(qtext(m_file))) {
        project.refuse("the project itself can't be the file to write");
    }
    QSaveFile file(qtext(*m_out));
    const auto fail = [&] {
        throw Failure{ExitCode::File, *m_out + ": " + file.errorString().toStdString()};
    };
    if (!file.open(QIODevice::WriteOnly)) {
        fail();
    }
    writeTo(format, source, [&](std::string_view bytes) {
        const auto size = static_cast<qint64>(bytes.size());
        if (file.write(bytes.data(), size) != size) {
            fail();
        }
        return true;
    });
    project.throwOnError();
    // The commit alone doesn't notice that the last block didn't fit.
    if (!file.flush() || !file.commit()) {
        fail();
    }
}

ExitCode ExportCommand::run()
{
    const exchange::Format& format = chosenFormat();
    const Project project = Project::openForReading(m_file);
    const exchange::Source source = sourceOf(project, format);
    for (const std::string& loss : format.losses(source)) {
        std::fprintf(stderr, "mrl-lc: not told in the file: %s\n", loss.c_str());
    }
    if (m_out && *m_out != "-") {
        writeFile(project, format, source);
    } else {
        Output out;
        writeTo(format, source, [&](std::string_view bytes) {
            out.write(bytes);
            return true;
        });
        out.finish();
    }
    project.throwOnError();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> exportCommand() { return std::make_unique<ExportCommand>(); }

} // namespace mrl::cli
