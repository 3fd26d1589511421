#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/project_records.h"
#include "exchange/raw_records.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/packing.h"
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

    std::string m_file;
    int m_number = 0;
    std::optional<std::string> m_action;
    std::optional<std::string> m_title;
    std::optional<float> m_dlx, m_dly, m_dlz, m_factor;
    FactorOptions m_factors;
};

void CaseSetCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.number(m_number, Arguments::Need::Required);
    args.text(
        "--action", m_action, Arguments::Need::Optional,
        "Action of the project, whose factors the load case follows; IMP for an imperfection, NONE for no "
        "action and factors of 0");
    args.title(m_title);
    args.real("--dlx", m_dlx, "DLX, component of automatic dead weight in X");
    args.real("--dly", m_dly, "DLY, component in Y");
    args.real("--dlz", m_dlz, "DLZ, component in Z");
    args.real("--factor", m_factor, "Factor of the load case");
    args.factors(m_factors);
    args.needsAnOption();
}

void CaseSetCommand::changeAction(const Project& project, tagCDB_LC_CTRL& record) const
{
    if (!m_action) {
        return;
    }
    const int word = typedActionWord(project.db(), *m_action);
    if (word != LC_ACTION_NONE && word != LC_ACTION_IMPERFECTION) {
        requireAction(project, *m_action);
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

/// The value of an action's factor as a load case stores it.
float ofAction(const tagCDB_LC_ACT& action, const LCM_Factor& factor)
{
    return lcm_factor_to_store(factor, lcm_shown_factor(action, factor));
}

void CaseSetCommand::changeFactors(const Project& project, tagCDB_LC_CTRL& record) const
{
    const auto stored = lcm_stored_action(project.db(), actionWordOf(record));
    const tagCDB_LC_ACT action = stored ? stored->record : tagCDB_LC_ACT{};
    for (const LCM_Factor& factor : LCM_FACTORS) {
        float& field = record.*factor.loadCaseField;
        if (factor.packing == LCM_FactorPacking::Alone) {
            field = m_factors[factor.id].value_or(field);
        } else if (factor.packing == LCM_FactorPacking::Main) {
            const LCM_Factor& minor = *lcm_partner_of(factor);
            setPair(field, m_factors[factor.id], m_factors[minor.id], ofAction(action, factor),
                    ofAction(action, minor));
        }
    }
}

ExitCode CaseSetCommand::run()
{
    Project project = Project::openForWriting(m_file);
    LCM_StoredLoadCase loadCase = requireLoadCase(project, m_number);
    if (!loadCase.isOwn()) {
        project.refuse("load case " + std::to_string(m_number) + " belongs to another module");
    }
    tagCDB_LC_CTRL& record = loadCase.record;
    changeAction(project, record);
    changeFactors(project, record);
    if (m_title) {
        lcm_title_pack(qtext(*m_title), record.title, LC_TITLE_WORDS);
    }
    record.dlx = m_dlx.value_or(record.dlx);
    record.dly = m_dly.value_or(record.dly);
    record.dlz = m_dlz.value_or(record.dlz);
    record.factor = m_factor.value_or(record.factor);
    if (!exchange::overwriteRecord(project.db(), LC_KWH_CASES, m_number, 0, &record, sizeof record)) {
        project.refuse("load case " + std::to_string(m_number) + " could not be written");
    }
    project.throwOnError();
    project.commit();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> caseSetCommand() { return std::make_unique<CaseSetCommand>(); }

} // namespace mrl::cli
