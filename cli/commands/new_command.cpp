#include <QDir>

#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "cli/failure.h"
#include "cli/project.h"
#include "lcdata/default_actions.h"
#include "lcdata/system.h"
#include "lcdata/values/system_words.h"

namespace mrl::cli {

namespace {

class NewCommand : public Command
{
  public:
    std::string name() const override { return "new"; }
    std::string description() const override { return "Make a new project"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    void fill(Project& project) const;
    std::string codeToStore() const;

    std::string file;
    std::optional<std::string> code;
    std::optional<int> system;
    std::optional<int> gravity;
    bool defaultActions = false;
};

void NewCommand::declare(Arguments& args)
{
    args.file(file);
    args.text("--code", code, Arguments::Need::Required, "Name of a design code, or the path of its file");
    args.choice("--system", system, LCM_SYSTEMS, "; spatial unless given");
    args.choice("--gravity", gravity, LCM_GRAVITY_AXES, "; -Z unless given, -Y for a plane system");
    args.flag("--default-actions", defaultActions, "Take over every default action of the design code");
}

/// A path is stored whole, so that the project finds the file from any folder.
std::string NewCommand::codeToStore() const
{
    if (code->find('/') == std::string::npos) {
        return *code;
    }
    return QDir().absoluteFilePath(qtext(*code)).toStdString();
}

void NewCommand::fill(Project& project) const
{
    const cdb::Result named = cdb::setFact(project.db(), "designcode", codeToStore());
    if (!named) {
        throw Failure{ExitCode::File, named.text};
    }
    const int chosen = system.value_or(LC_SYSTEM_SPATIAL);
    lcm_write_system(project.db(), lcm_raw_system(chosen), gravity.value_or(lcm_usual_gravity(chosen)));
    if (defaultActions) {
        lcm_store_default_actions(project.db());
    }
    project.throwOnError();
    project.commit();
}

ExitCode NewCommand::run()
{
    readDesignCode(*code);
    Project::create(file, [this](Project& project) { fill(project); });
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> newCommand() { return std::make_unique<NewCommand>(); }

} // namespace mrl::cli
