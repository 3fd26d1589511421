#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "cli/failure.h"
#include "cli/project_records.h"
#include "cli/recode_report.h"
#include "exchange/recode.h"
#include "hostlib/data/cdb/move_keys.h"
#include "hostlib/data/designcode/kept.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "lcdata/values/system_words.h"

namespace mrl::cli {

namespace {

class RecodeCommand : public Command
{
  public:
    std::string name() const override { return "recode"; }
    std::string description() const override { return "Give a project another design code"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    LCM_RecodeWish wish() const;
    void write(Project& project, const LCM_RecodePlan& plan, const designcode::DesignCode& code) const;

    std::string m_file;
    std::optional<std::string> m_code;
    std::vector<std::string> m_map;
    std::optional<int> m_system;
    std::optional<int> m_gravity;
    bool m_movesDeadWeight = false;
    bool m_dryRun = false;
    bool m_json = false;
};

void RecodeCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.text("--code", m_code, Arguments::Need::Required,
              "Name of the new design code, or the path of its file");
    args.texts("--map", m_map, Arguments::Need::Optional,
               "OLD=NEW: the action of the new code that an action of the project becomes");
    args.choice("--system", m_system, LCM_SYSTEMS, "; as it is unless given");
    args.choice("--gravity", m_gravity, LCM_GRAVITY_AXES, "; as it is unless given");
    args.flag("--move-dead-weight", m_movesDeadWeight,
              "Dead weight along the old direction of gravity acts along the new one");
    args.flag("--dry-run", m_dryRun, "Tell the plan and write nothing");
    args.json(m_json);
}

LCM_RecodeWish RecodeCommand::wish() const
{
    LCM_RecodeWish wish{{}, m_system, m_gravity, m_movesDeadWeight};
    for (const std::string& pair : m_map) {
        const auto sign = pair.find('=');
        if (sign == std::string::npos || sign == 0 || sign + 1 == pair.size()) {
            throw Failure{ExitCode::Usage, "--map " + pair + ": write OLD=NEW, such as Q_A=L"};
        }
        wish.map[lcm_pack_word(qtext(pair.substr(0, sign)))] = lcm_pack_word(qtext(pair.substr(sign + 1)));
    }
    return wish;
}

void RecodeCommand::write(Project& project, const LCM_RecodePlan& plan,
                          const designcode::DesignCode& code) const
{
    const int db = project.db();
    if (const std::string failed = exchange::applyRecode(db, plan); !failed.empty()) {
        project.refuse(failed + " could not be written");
    }
    for (const cdb::Result& result :
         {cdb::moveKeys(db, LC_KWH_ACTIONS, plan.moves()),
          cdb::setFact(db, "designcode", storedCodeName(*m_code)), designcode::keep(db, code)}) {
        if (!result) {
            throw Failure{ExitCode::File, project.file() + ": " + result.text};
        }
    }
    project.throwOnError();
    project.commit();
}

ExitCode RecodeCommand::run()
{
    const designcode::DesignCode code = readDesignCode(*m_code);
    Project project = m_dryRun ? Project::openForReading(m_file) : Project::openForWriting(m_file);
    const LCM_RecodeProject before = exchange::recodeProjectOf(project.db());
    const designcode::Loaded old = designcode::ofDatabase(project.db());
    const LCM_RecodePlan plan = lcm_plan_recode(before, old.code ? recodeCodeOf(*old.code) : LCM_RecodeCode(),
                                                recodeCodeOf(code), wish());
    project.throwOnError();
    if (m_json) {
        printJson(planJson(plan, before));
    } else {
        printPlan(plan, before);
    }
    if (!plan.refusal.empty()) {
        project.refuse(plan.refusal);
    }
    if (!m_dryRun) {
        write(project, plan, code);
    }
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> recodeCommand() { return std::make_unique<RecodeCommand>(); }

} // namespace mrl::cli
