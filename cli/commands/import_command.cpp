#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/exchange_options.h"
#include "cli/failure.h"
#include "cli/import_report.h"
#include "cli/input_file.h"
#include "exchange/apply_plan.h"

namespace mrl::cli {

namespace {

class ImportCommand : public Command
{
  public:
    std::string name() const override { return "import"; }
    std::string description() const override
    {
        return "Take actions and load cases from a table; all rows or none";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    exchange::ReadTables readTables(const exchange::PlanOptions& options) const;
    exchange::PlanOptions planOptions() const;
    std::map<std::string, std::string> columnsByHand() const;
    void write(const exchange::Plan& plan, const exchange::ProjectState& state, Project& project) const;
    ExitCode runOn(Project& project) const;

    std::string m_file;
    std::string m_table;
    ExchangeOptions m_options;
    std::vector<std::string> m_columns;
    std::optional<std::string> m_match;
    std::optional<std::string> m_hash;
    bool m_createActions = false;
    bool m_dryRun = false;
    bool m_skipRefused = false;
    bool m_json = false;
};

void ImportCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.positional("TABLE", m_table, "File with the table; - is standard input");
    m_options.declare(args, "actions or loadcases: what a file holds whose headings don't tell");
    args.texts("--column", m_columns, Arguments::Need::Optional,
               "HEADING=COLUMN: what a column of the file means; HEADING= passes it over");
    args.text("--match", m_match, Arguments::Need::Optional,
              "number (the default) or title: by what a row finds its load case");
    args.flag("--create-actions", m_createActions,
              "Take actions that load cases name and the project lacks from the design code");
    args.flag("--dry-run", m_dryRun, "Show what would be done and write nothing");
    args.flag("--skip-refused", m_skipRefused, "Leave out the rows that are refused and take the others");
    args.text("--apply-plan", m_hash, Arguments::Need::Optional,
              "Apply only if the plan still is the one of this hash, which --dry-run printed");
    args.json(m_json);
}

exchange::PlanOptions ImportCommand::planOptions() const
{
    exchange::PlanOptions options;
    if (m_match) {
        requireOneOf("--match", *m_match, {"number", "title"});
        options.match = *m_match == "title" ? exchange::Match::Title : exchange::Match::Number;
    }
    options.createActions = m_createActions;
    return options;
}

std::map<std::string, std::string> ImportCommand::columnsByHand() const
{
    std::map<std::string, std::string> columns;
    for (const std::string& pair : m_columns) {
        const auto sign = pair.rfind('=');
        const std::string name = sign == std::string::npos ? std::string() : pair.substr(sign + 1);
        const bool isKnown = name.empty() || exchange::columnOfHeading(exchange::Sheet::Actions, name) >= 0 ||
                             exchange::columnOfHeading(exchange::Sheet::LoadCases, name) >= 0;
        if (sign == std::string::npos || sign == 0 || !isKnown) {
            throw Failure{ExitCode::Usage,
                          "--column " + pair + ": write HEADING=COLUMN, such as Nummer=number"};
        }
        columns[pair.substr(0, sign)] = name;
    }
    return columns;
}

exchange::ReadTables ImportCommand::readTables(const exchange::PlanOptions& options) const
{
    exchange::FormatOptions told = m_options.format();
    const exchange::Format* format = m_options.namedFormat();
    if (const auto sheets = m_options.sheets(); !sheets.empty()) {
        told.sheet = sheets.front();
    }
    told.byTitle = options.match == exchange::Match::Title;
    told.columns = columnsByHand();
    const QByteArray bytes = readInput(m_table);
    if (format == nullptr) {
        format = exchange::formatOfFile(m_table, viewOf(bytes));
    }
    auto read =
        exchange::readTables(format == nullptr ? *exchange::formats().front() : *format, viewOf(bytes), told);
    if (const auto* error = std::get_if<exchange::FormatError>(&read)) {
        throw Failure{ExitCode::Refused, m_table + ": " + error->message.english()};
    }
    return std::get<exchange::ReadTables>(std::move(read));
}

void ImportCommand::write(const exchange::Plan& plan, const exchange::ProjectState& state,
                          Project& project) const
{
    if (const exchange::PlannedRow* failed = exchange::apply(plan, state, project.db())) {
        project.refuse(failed->name + " could not be written");
    }
    project.throwOnError();
    project.commit();
}

ExitCode ImportCommand::runOn(Project& project) const
{
    const exchange::PlanOptions options = planOptions();
    const exchange::ReadTables tables = readTables(options);
    const exchange::ProjectState state = exchange::stateOf(project.db());
    project.throwOnError();
    const exchange::Plan plan = exchange::planOf(state, tables.tables, options);
    if (m_hash && *m_hash != plan.hash()) {
        project.refuse("the project or the table changed since the plan " + *m_hash + " was made");
    }
    const bool isTaken = m_skipRefused || plan.count(exchange::Outcome::Refused) == 0;
    if (isTaken && !m_dryRun) {
        write(plan, state, project);
    }
    reportImport({plan, tables.notes, isTaken && !m_dryRun}, m_json);
    return isTaken ? ExitCode::Done : ExitCode::Refused;
}

ExitCode ImportCommand::run()
{
    Project project = m_dryRun ? Project::openForReading(m_file) : Project::openForWriting(m_file);
    return runOn(project);
}

} // namespace

std::unique_ptr<Command> importCommand() { return std::make_unique<ImportCommand>(); }

} // namespace mrl::cli
