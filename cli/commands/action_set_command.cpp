#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/project.h"
#include "cli/stored_actions.h"
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

    std::string file;
    std::string action;
    std::optional<std::string> title;
    std::optional<int> partition;
    std::optional<int> superposition;
    FactorOptions factors;
};

void ActionSetCommand::declare(Arguments& args)
{
    args.file(file);
    args.positional("NAME", action, "Name of the action, such as Q_A");
    args.title(title);
    args.choice("--partition", partition, LCM_PARTITIONS);
    args.choice("--superposition", superposition, LCM_SUPERPOSITIONS);
    args.factors(factors);
    args.needsAnOption();
}

void ActionSetCommand::change(tagCDB_LC_ACT& record) const
{
    if (title) {
        lcm_title_pack(qtext(*title), record.title, LC_TITLE_WORDS);
    }
    if (partition || superposition) {
        record.partition = lcm_partition_word(partition.value_or(lcm_partition_id(record.partition)),
                                              superposition.value_or(lcm_superposition_id(record.partition)));
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        float& field = record.*factor.actionField;
        field = factors[factor.id].value_or(field);
    }
}

ExitCode ActionSetCommand::run()
{
    Project project = Project::openForWriting(file);
    LCM_StoredAction found = requireAction(project, action);
    change(found.record);
    if (!rewriteAction(project.db(), found)) {
        project.refuse("action " + action + " could not be written");
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> actionSetCommand() { return std::make_unique<ActionSetCommand>(); }

} // namespace mrl::cli
