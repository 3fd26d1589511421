#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/project_records.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/partition.h"

namespace mrl::cli {

namespace {

class ActionSetCommand : public Command
{
  public:
    std::string name() const override { return "set"; }
    std::string description() const override { return "Change an action of a project"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    void change(tagCDB_LC_ACT& record) const;

    std::string m_file;
    std::string m_action;
    std::optional<std::string> m_title;
    std::optional<int> m_partition;
    std::optional<int> m_superposition;
    FactorOptions m_factors;
};

void ActionSetCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.positional("NAME", m_action, "Name of the action, such as Q_A");
    args.title(m_title);
    args.choice("--partition", m_partition, LCM_PARTITIONS);
    args.choice("--superposition", m_superposition, LCM_SUPERPOSITIONS);
    args.factors(m_factors);
    args.needsAnOption();
}

void ActionSetCommand::change(tagCDB_LC_ACT& record) const
{
    if (m_title) {
        lcm_title_pack(qtext(*m_title), record.title, LC_TITLE_WORDS);
    }
    if (m_partition || m_superposition) {
        record.partition =
            lcm_partition_word(m_partition.value_or(lcm_partition_id(record.partition)),
                               m_superposition.value_or(lcm_superposition_id(record.partition)));
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        float& field = record.*factor.actionField;
        field = m_factors[factor.id].value_or(field);
    }
}

ExitCode ActionSetCommand::run()
{
    Project project = Project::openForWriting(m_file);
    LCM_StoredAction found = requireAction(project, m_action);
    change(found.record);
    if (!rewriteAction(project.db(), found)) {
        project.refuse("action " + m_action + " could not be written");
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> actionSetCommand() { return std::make_unique<ActionSetCommand>(); }

} // namespace mrl::cli
