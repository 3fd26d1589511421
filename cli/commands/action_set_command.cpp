#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/project.h"
#include "cli/stored_actions.h"
#include "cli/words.h"
#include "lcdata/values/gama.h"
#include "lcdata/values/packed_text.h"
#include "rules/action_row.h"

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
    std::optional<std::string> partition;
    std::optional<std::string> superposition;
    FactorOptions factors;
};

void ActionSetCommand::declare(Arguments& args)
{
    args.file(file);
    args.positional("NAME", action, "Name of the action, such as Q_A");
    args.title(title);
    args.choice("--partition", partition, partitionIds(), "G, P, Q, Q_1 to Q_5, A or E");
    args.choice("--superposition", superposition, superpositionIds(),
                "PERM, COND, EXCL, UNSI, USEX, ALEX, EXEX or PERC");
    args.factors(factors);
    args.needsAnOption();
}

void ActionSetCommand::change(tagCDB_LC_ACT& record) const
{
    if (title) {
        lcm_title_pack(qtext(*title), record.title, LC_TITLE_WORDS);
    }
    if (partition || superposition) {
        const int partitionId =
            partition ? partitionIds().at(*partition) : lcm_partition_id(record.partition);
        const int superpositionId =
            superposition ? superpositionIds().at(*superposition) : lcm_superposition_id(record.partition);
        record.partition = lcm_partition_word(partitionId, superpositionId);
    }
    record.gamu = factors.gamu.value_or(record.gamu);
    record.gamf = factors.gamf.value_or(record.gamf);
    record.gama = factors.gama ? lcm_gama_to_store(*factors.gama) : record.gama;
    record.psi0 = factors.psi0.value_or(record.psi0);
    record.psi1 = factors.psi1.value_or(record.psi1);
    record.psi2 = factors.psi2.value_or(record.psi2);
    record.psi1s = factors.psi1s.value_or(record.psi1s);
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
