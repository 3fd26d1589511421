#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "cli/failure.h"
#include "hostlib/data/designcode/template.h"

namespace mrl::cli {

namespace {

class CodeNewCommand : public Command
{
  public:
    std::string name() const override { return "new"; }
    std::string description() const override { return "Write a commented design-code file to fill in"; }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string path() const;

    std::string m_name;
    std::optional<std::string> m_base;
};

void CodeNewCommand::declare(Arguments& args)
{
    args.positional("NAME", m_name, "Name of the new code, stored in your own folder, or a path with a '/'");
    args.text("--base", m_base, Arguments::Need::Required,
              "Name of the design code of which the new one states the differences");
}

std::string CodeNewCommand::path() const
{
    const bool hasEnding = m_name.size() > 4 && m_name.compare(m_name.size() - 4, 4, ".ini") == 0;
    const std::string file = m_name + (hasEnding ? "" : ".ini");
    return file.find('/') == std::string::npos ? designcode::userFolder() + "/" + file : file;
}

ExitCode CodeNewCommand::run()
{
    if (m_base->find('/') != std::string::npos) {
        throw Failure{ExitCode::Usage, *m_base + ": a base is a name without folders, such as en1990"};
    }
    const std::string text = designcode::templateText(readDesignCode(*m_base));
    const std::string file = path();
    QFile out(qtext(file));
    QDir().mkpath(QFileInfo(out).path());
    if (!out.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        throw Failure{ExitCode::File, file + ": " + out.errorString().toStdString()};
    }
    const auto size = static_cast<qint64>(text.size());
    if (out.write(text.data(), size) != size || !out.flush()) {
        throw Failure{ExitCode::File, file + ": " + out.errorString().toStdString()};
    }
    Output said;
    said.line(file);
    said.finish();
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> codeNewCommand() { return std::make_unique<CodeNewCommand>(); }

} // namespace mrl::cli
