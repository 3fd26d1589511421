#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/project.h"
#include "cli/raw_records.h"
#include "cli/stored_actions.h"
#include "cli/stored_load_cases.h"
#include "lcdata/values/gama.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/packing.h"
#include "rules/action_row.h"
#include "rules/load_case_row.h"

namespace mrl::cli {

namespace {

class CaseSetCommand : public Command
{
  public:
    std::string name() const override { return "set"; }
    std::string description() const override { return "Change a load case"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    void changeAction(const Project& project, tagCDB_LC_CTRL& record) const;
    void changeFactors(const Project& project, tagCDB_LC_CTRL& record) const;

    std::string file;
    int number = 0;
    std::optional<std::string> action;
    std::optional<std::string> title;
    std::optional<float> dlx, dly, dlz, factor;
    FactorOptions factors;
};

void CaseSetCommand::declare(Arguments& args)
{
    args.file(file);
    args.number(number, Arguments::Need::Required);
    args.text(
        "--action", action, Arguments::Need::Optional,
        "Action of the project, whose factors the load case follows; IMP for an imperfection, NONE for no "
        "action and factors of 0");
    args.title(title);
    args.real("--dlx", dlx, "DLX, component of automatic dead weight in X");
    args.real("--dly", dly, "DLY, component in Y");
    args.real("--dlz", dlz, "DLZ, component in Z");
    args.real("--factor", factor, "Factor of the load case");
    args.factors(factors);
    args.needsAnOption();
}

void CaseSetCommand::changeAction(const Project& project, tagCDB_LC_CTRL& record) const
{
    if (!action) {
        return;
    }
    const int word = typedActionWord(project.db(), *action);
    if (word != LC_ACTION_NONE && word != LC_ACTION_IMPERFECTION) {
        requireAction(project, *action);
    }
    const float oldFactor = record.factor;
    record = lcm_record_with_action(record, word);
    record.factor = oldFactor;
}

/// Sets one or both of a pair. A mate that follows the action takes the action's value, since a field holds
/// either both or none.
void setPair(float& field, std::optional<float> main, std::optional<float> minor, float actionMain,
             float actionMinor)
{
    if (!main && !minor) {
        return;
    }
    const LCM_FactorPair old = lcm_unpack_pair(field);
    const bool follows = old.main == LC_UNDEFINED;
    field = lcm_pack_pair(main.value_or(follows ? actionMain : old.main),
                          minor.value_or(follows ? actionMinor : old.minor));
}

void CaseSetCommand::changeFactors(const Project& project, tagCDB_LC_CTRL& record) const
{
    const int word = actionWordOf(record);
    const auto stored = lcm_stored_action(project.db(), word);
    const tagCDB_LC_ACT values = stored ? stored->record : tagCDB_LC_ACT{};
    const std::optional<float> gama =
        factors.gama ? std::optional(lcm_gama_to_store(*factors.gama)) : std::nullopt;
    setPair(record.gamu, factors.gamu, gama, values.gamu, lcm_gama_to_store(lcm_shown_gama(values.gama)));
    setPair(record.psi1, factors.psi1, factors.psi1s, values.psi1, values.psi1s);
    record.gamf = factors.gamf.value_or(record.gamf);
    record.psi0 = factors.psi0.value_or(record.psi0);
    record.psi2 = factors.psi2.value_or(record.psi2);
}

ExitCode CaseSetCommand::run()
{
    Project project = Project::openForWriting(file);
    LCM_StoredLoadCase loadCase = requireLoadCase(project, number);
    if (!loadCase.isOwn()) {
        project.refuse("load case " + std::to_string(number) + " belongs to another module");
    }
    tagCDB_LC_CTRL& record = loadCase.record;
    changeAction(project, record);
    changeFactors(project, record);
    if (title) {
        lcm_title_pack(qtext(*title), record.title, LC_TITLE_WORDS);
    }
    record.dlx = dlx.value_or(record.dlx);
    record.dly = dly.value_or(record.dly);
    record.dlz = dlz.value_or(record.dlz);
    record.factor = factor.value_or(record.factor);
    if (!overwriteRecord(project.db(), LC_KWH_CASES, number, 0, &record, sizeof record)) {
        project.refuse("load case " + std::to_string(number) + " could not be written");
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseSetCommand() { return std::make_unique<CaseSetCommand>(); }

} // namespace mrl::cli
