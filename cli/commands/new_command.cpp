#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/content_io.h"
#include "cli/design_codes.h"
#include "cli/failure.h"
#include "cli/input_file.h"
#include "exchange/json_text.h"
#include "hostlib/data/designcode/kept.h"
#include "lcdata/default_actions.h"
#include "lcdata/system_record.h"
#include "lcdata/values/system_words.h"

namespace mrl::cli {

namespace {

class NewCommand : public Command
{
  public:
    std::string name() const override { return "new"; }
    std::string description() const override { return "Make a new project"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    void fill(Project& project) const;
    ExitCode restore() const;

    std::string m_file;
    std::optional<std::string> m_code;
    std::optional<std::string> m_from;
    std::optional<int> m_system;
    std::optional<int> m_gravity;
    bool m_defaultActions = false;
    designcode::DesignCode m_read;
};

void NewCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.text("--code", m_code, Arguments::Need::Optional, "Name of a design code, or the path of its file");
    args.text("--from", m_from, Arguments::Need::Optional,
              "Take everything from this file, which 'export --format json' wrote; - is standard input");
    args.choice("--system", m_system, LCM_SYSTEMS, "; spatial unless given");
    args.choice("--gravity", m_gravity, LCM_GRAVITY_AXES, "; -Z unless given, -Y for a plane system");
    args.flag("--default-actions", m_defaultActions, "Take over every default action of the design code");
    args.needsEither("--code", "--from");
    for (const char* option : {"--code", "--system", "--gravity", "--default-actions"}) {
        args.exclude("--from", option);
    }
}

void NewCommand::fill(Project& project) const
{
    const cdb::Result named = cdb::setFact(project.db(), "designcode", storedCodeName(*m_code));
    if (!named) {
        throw Failure{ExitCode::File, named.text};
    }
    if (const cdb::Result kept = designcode::keep(project.db(), m_read); !kept) {
        throw Failure{ExitCode::File, kept.text};
    }
    const int chosen = m_system.value_or(LC_SYSTEM_SPATIAL);
    lcm_write_system(project.db(), lcm_raw_system(chosen), m_gravity.value_or(lcm_usual_gravity(chosen)));
    if (m_defaultActions) {
        lcm_store_default_actions(project.db());
    }
    project.throwOnError();
    project.commit();
}

/// Every record and fact as the file has it, judged by no rule.
ExitCode NewCommand::restore() const
{
    const QByteArray bytes = readInput(*m_from);
    const auto read = exchange::projectOfJson(viewOf(bytes));
    if (const auto* error = std::get_if<exchange::FormatError>(&read)) {
        throw Failure{ExitCode::Refused, *m_from + ": " + error->message.english()};
    }
    Project::create(m_file, [&](Project& project) {
        writeContent(std::get<exchange::ProjectContent>(read), project);
        project.commit();
    });
    return ExitCode::Done;
}

ExitCode NewCommand::run()
{
    if (m_from) {
        return restore();
    }
    m_read = readDesignCode(*m_code);
    Project::create(m_file, [this](Project& project) { fill(project); });
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> newCommand() { return std::make_unique<NewCommand>(); }

} // namespace mrl::cli
