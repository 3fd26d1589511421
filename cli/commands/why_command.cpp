#include <algorithm>

#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "cli/failure.h"
#include "cli/project_records.h"
#include "cli/words.h"
#include "lcdata/values/keys.h"

namespace mrl::cli {

namespace {

class WhyCommand : public Command
{
  public:
    std::string name() const override { return "why"; }
    std::string description() const override { return "Where a factor of a load case comes from"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    const LCM_Factor& factor() const;

    std::string m_file;
    int m_number = 0;
    std::string m_factor;
};

void WhyCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.number(m_number, Arguments::Need::Required);
    args.positional("FACTOR", m_factor, "Gamu, Gamf, Gama, Psi0, Psi1, Psi2 or Psi1s");
}

const LCM_Factor& WhyCommand::factor() const
{
    const auto* const found =
        std::find_if(LCM_FACTORS.begin(), LCM_FACTORS.end(), [&](const LCM_Factor& each) {
            return qtext(m_factor).compare(QLatin1String(each.key), Qt::CaseInsensitive) == 0;
        });
    if (found == LCM_FACTORS.end()) {
        throw Failure{ExitCode::Usage,
                      m_factor + ": a factor is Gamu, Gamf, Gama, Psi0, Psi1, Psi2 or Psi1s"};
    }
    return *found;
}

/// What the design code says of a factor of an action.
void tellCode(Output& out, int db, int action, const LCM_Factor& factor, float stored)
{
    const designcode::Loaded loaded = designcode::ofDatabase(db);
    if (!loaded.code) {
        out.line("Design code:  none active: " + loaded.reason);
        return;
    }
    const auto& actions = loaded.code->actions;
    const auto found =
        std::find_if(actions.begin(), actions.end(), [&](const auto& each) { return each.code == action; });
    if (found == actions.end()) {
        out.line("Design code:  " + loaded.code->name + " doesn't have the action: set by hand");
        return;
    }
    const designcode::Origin& origin = found->origins[factor.id];
    const float value = found->record.*factor.actionField;
    if (!origin.isStated()) {
        out.line("Design code:  " + loaded.code->name + " doesn't state it: set by hand");
        return;
    }
    out.line("Design code:  " + loaded.code->name + ", " +
             factorText(lcm_shown_factor(found->record, factor)) +
             (value == stored ? "" : ": the action's is set by hand"));
    out.line("File:         " + origin.file + ":" + std::to_string(origin.line));
    out.line("Clause:       " +
             (origin.source.clause.empty() ? "none stated" : printable(qtext(origin.source.clause))));
    out.line("State:        " + std::string(designcode::wordOf(origin.source.state)));
    if (!origin.source.note.empty()) {
        out.line("Note:         " + printable(qtext(origin.source.note)));
    }
}

ExitCode WhyCommand::run()
{
    const LCM_Factor& asked = factor();
    const Project project = Project::openForReading(m_file);
    const LCM_StoredLoadCase loadCase = requireLoadCase(project, m_number);
    const int word = actionWordOf(loadCase.record);
    Output out;
    out.line("Load case:    " + std::to_string(m_number));
    const auto action = lcm_stored_action(project.db(), word);
    if (!action) {
        const std::string name = actionWordText(word);
        out.line(name.empty() || word < LC_BLANK_WORD
                     ? "Action:       none: set by hand, if at all"
                     : "Action:       " + name + ", which the project doesn't have");
    } else {
        const float stored = lcm_stored_factor(action->record, asked);
        out.line("Action:       " + actionName(word) + ", " + asked.key + " " +
                 factorText(lcm_shown_factor(action->record, asked)));
        tellCode(out, project.db(), word, asked, stored);
    }
    project.throwOnError();
    out.finish();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> whyCommand() { return std::make_unique<WhyCommand>(); }

} // namespace mrl::cli
