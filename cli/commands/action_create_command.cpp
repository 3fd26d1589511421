#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/own_actions.h"
#include "cli/project_records.h"
#include "lcdata/actions.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/partition.h"

namespace mrl::cli {

namespace {

class ActionCreateCommand : public Command
{
  public:
    std::string name() const override { return "create"; }
    std::string description() const override
    {
        return "Take a default action of the design code over, or make one of one's own";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    std::string m_action;
    OwnAction m_own;
    std::optional<int> m_partition;
    std::optional<int> m_superposition;
    bool m_force = false;
};

void ActionCreateCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.positional("NAME", m_action, "Name of the action, such as Q_A");
    args.flag("--force", m_force, "Overwrite a stored action");
    args.choice("--partition", m_partition, LCM_PARTITIONS,
                "; makes an action that the design code doesn't have");
    args.choice("--superposition", m_superposition, LCM_SUPERPOSITIONS, "; EXCL unless given");
    args.title(m_own.title);
    args.factors(m_own.factors);
    args.need("--partition", {"--superposition", "--title"});
    args.needForFactors("--partition");
    args.exclude("--force", "--partition");
}

ExitCode ActionCreateCommand::run()
{
    Project project = Project::openForWriting(m_file);
    if (m_partition) {
        m_own.name = m_action;
        m_own.partition = *m_partition;
        m_own.superposition = m_superposition.value_or(LC_SUPERPOSITION_EXCL);
        createOwnAction(m_own, project);
        project.throwOnError();
        project.commit();
        return ExitCode::Done;
    }
    // The function for names has the last word on what a name means.
    const int code = lcm_normalise_code(qtext(m_action));
    if (!m_force && isStored(project.db(), code)) {
        project.refuse("action " + m_action + " is stored already; --force overwrites it");
    }
    if (!mrl_lc_create_default_action(project.db(), code)) {
        project.refuse("the design code has no action " + m_action);
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> actionCreateCommand() { return std::make_unique<ActionCreateCommand>(); }

} // namespace mrl::cli
