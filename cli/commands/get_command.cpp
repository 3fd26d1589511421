#include "cli/arguments.h"
#include "cli/command_project.h"
#include "cli/commands/commands.h"
#include "cli/key_text.h"
#include "cli/output.h"
#include "exchange/raw_records.h"

namespace mrl::cli {

namespace {

constexpr std::size_t WORD_DIGITS = 8;

class GetCommand : public Command
{
  public:
    std::string name() const override { return "get"; }
    std::string description() const override
    {
        return "Print the raw records of a key: position, length, bytes";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    void printLines(const std::vector<std::string>& records) const;

    std::string m_file;
    int m_kwh = 0;
    int m_kwl = 0;
    bool m_hex = false;
    bool m_json = false;
};

void GetCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.key(m_kwh, m_kwl);
    args.flag("--hex", m_hex, "Bytes in one run, as 'put' takes them, instead of word by word");
    args.json(m_json);
}

std::string inWords(const std::string& digits)
{
    std::string text;
    for (std::size_t i = 0; i < digits.size(); i += WORD_DIGITS) {
        text += (i == 0 ? "" : " ") + digits.substr(i, WORD_DIGITS);
    }
    return text;
}

void GetCommand::printLines(const std::vector<std::string>& records) const
{
    Output out;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const std::string digits = exchange::toHex(records[i]);
        out.line(std::to_string(i) + " " + std::to_string(records[i].size()) + " " +
                 (m_hex ? digits : inWords(digits)));
    }
    out.finish();
}

ExitCode GetCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const std::vector<std::string> records = exchange::readRecords(project.db(), m_kwh, m_kwl);
    project.throwOnError();
    if (records.empty()) {
        project.refuse("there is no key " + keyText(m_kwh, m_kwl));
    }
    if (!m_json) {
        printLines(records);
        return ExitCode::Done;
    }
    Json list = Json::array();
    for (std::size_t i = 0; i < records.size(); ++i) {
        list.push_back(
            {{"position", i}, {"length", records[i].size()}, {"bytes", exchange::toHex(records[i])}});
    }
    printJson(list);
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> getCommand() { return std::make_unique<GetCommand>(); }

} // namespace mrl::cli
