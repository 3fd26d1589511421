#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "hostlib/data/designcode/kept.h"
#include "lcdata/load_cases.h"
#include "lcdata/stored_actions.h"
#include "lcdata/stored_load_cases.h"
#include "lcdata/system_record.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/system_words.h"

namespace mrl::cli {

namespace {

class InfoCommand : public Command
{
  public:
    std::string name() const override { return "info"; }
    std::string description() const override
    {
        return "Design code, system, gravity, counts and current load case";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_file;
    bool m_json = false;
};

struct Info
{
    designcode::Loaded designCode;
    std::string designCodeFact;
    designcode::KeptReport kept;
    int systemClass = 0;
    std::string gravity;
    std::size_t actions = 0;
    int loadCases = 0;
    int foreignLoadCases = 0;
    int currentLoadCase = 0;
    int format = 0;
};

void InfoCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.json(m_json);
}

Info gather(const Project& project)
{
    const int db = project.db();
    Info info;
    info.designCode = designcode::ofDatabase(db);
    info.designCodeFact = cdb::fact(db, "designcode");
    info.kept = designcode::keptReport(db);
    info.systemClass = lcm_system_class(db);
    info.gravity = lcm_word_of_id(LCM_GRAVITY_AXES, lcm_gravity_direction(db));
    info.actions = lcm_stored_actions(db).size();
    info.currentLoadCase = mrl_lc_current(db);
    info.format = cdb::formatVersion(db);
    for (LCM_LoadCaseWalk walk(db); walk.next();) {
        ++(walk.current().isOwn() ? info.loadCases : info.foreignLoadCases);
    }
    project.throwOnError();
    return info;
}

Json infoJson(const Info& info, const std::string& file)
{
    Json code = {{"name", info.designCodeFact}, {"problem", info.designCode.reason}};
    if (info.designCode.code) {
        code = identityJson(*info.designCode.code);
        code["problem"] = nullptr;
    }
    Json differences = Json::array();
    for (const designcode::Difference& each : info.kept.differences) {
        differences.push_back(designcode::textOf(each));
    }
    code["kept"] = {{"state", designcode::wordOf(info.kept.state)},
                    {"text", info.kept.text.empty() ? Json(nullptr) : Json(info.kept.text)},
                    {"differences", differences}};
    return {{"file", file},
            {"designCode", code},
            {"systemClass", info.systemClass},
            {"system", lcm_word_of_id(LCM_SYSTEMS, info.systemClass)},
            {"gravity", info.gravity},
            {"actions", info.actions},
            {"loadCases", info.loadCases},
            {"foreignLoadCases", info.foreignLoadCases},
            {"currentLoadCase", info.currentLoadCase},
            {"format", info.format}};
}

ExitCode InfoCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const Info info = gather(project);
    if (m_json) {
        printJson(infoJson(info, m_file));
        return ExitCode::Done;
    }
    const auto& code = info.designCode.code;
    const std::string current = info.currentLoadCase == 0 ? "none" : std::to_string(info.currentLoadCase);
    Output out;
    out.line("Project:            " + printable(qtext(m_file)));
    out.line("Design code:        " + (code ? printable(qtext(code->name + ", " + code->label))
                                            : "none active: " + printable(qtext(info.designCode.reason))));
    if (!info.kept.text.empty()) {
        out.line("                    " + printable(qtext(info.kept.text)));
    }
    out.line("System:             " + lcm_word_of_id(LCM_SYSTEMS, info.systemClass));
    out.line("Gravity:            " + info.gravity);
    out.line("Actions:            " + std::to_string(info.actions));
    out.line("Load cases:         " + std::to_string(info.loadCases));
    if (info.foreignLoadCases > 0) {
        out.line("Of other modules:   " + std::to_string(info.foreignLoadCases));
    }
    out.line("Current load case:  " + current);
    if (info.format < cdb::CURRENT_FORMAT) {
        out.line("File format:        " + std::to_string(info.format) +
                 ", of an older version; the first write converts it");
    }
    out.finish();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> infoCommand() { return std::make_unique<InfoCommand>(); }

} // namespace mrl::cli
