#include "cli/action_table.h"
#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "lcdata/values/factors.h"

namespace mrl::cli {

namespace {

class CodeShowCommand : public Command
{
  public:
    std::string name() const override { return "show"; }
    std::string description() const override
    {
        return "Marks, limits, labels and default actions of a design code";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    std::string m_code;
    bool m_json = false;
};

void CodeShowCommand::declare(Arguments& args)
{
    args.positional("CODE", m_code, "Name of a design code, or the path of its file");
    args.json(m_json);
}

/// The label of a factor as the file has it.
std::string labelOf(const designcode::DesignCode& code, const LCM_Factor& factor)
{
    const std::string key = lcm_label_key(QString::fromLatin1(factor.key)).toStdString();
    for (const auto& label : code.texts) {
        if (label.key == key) {
            return label.text;
        }
    }
    return {};
}

Json codeJson(const designcode::DesignCode& code)
{
    Json out = identityJson(code);
    out["KFI"] = code.kfi ? jsonNumber(*code.kfi) : Json(nullptr);
    out["XSI"] = code.xsi ? jsonNumber(*code.xsi) : Json(nullptr);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        out["limits"][factor.key] = jsonNumber(code.availability.*factor.actionField);
        out["labels"][factor.key] = labelOf(code, factor);
    }
    out["actions"] = Json::array();
    for (const auto& action : code.actions) {
        Json entry = actionJson(action.code, action.record);
        entry["oldNumbers"] = action.oldNumbers;
        out["actions"].push_back(entry);
    }
    out["warnings"] = warningsJson(code);
    return out;
}

void printHead(const designcode::DesignCode& code)
{
    Output out;
    out.line(printable(qtext(code.label)));
    out.line("File:    " + printable(qtext(code.file)));
    out.line("Numbers: national code " + std::to_string(code.ntcode) + ", code " +
             std::to_string(code.idcode) + ", country " + std::to_string(code.country) + ", year " +
             std::to_string(code.year));
    if (code.kfi) {
        out.line("KFI:     " + numberText(*code.kfi));
    }
    if (code.xsi) {
        out.line("XSI:     " + numberText(*code.xsi));
    }
    out.line("");
    out.finish();
}

void printFactors(const designcode::DesignCode& code)
{
    Table table({{"Factor"}, {"Known"}, {"Limit", Table::Align::Right}, {"Label"}});
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const float limit = code.availability.*factor.actionField;
        table.add({factor.key, limit > 0.0f ? "yes" : "no", numberText(limit),
                   printable(qtext(labelOf(code, factor)))});
    }
    table.print();
}

void printActions(const designcode::DesignCode& code)
{
    Output out;
    out.line("");
    out.finish();
    Table table = actionTable();
    for (const auto& action : code.actions) {
        addActionRow(table, action.code, action.record);
    }
    table.print();
}

ExitCode CodeShowCommand::run()
{
    const designcode::DesignCode read = readDesignCode(m_code);
    if (m_json) {
        printJson(codeJson(read));
        return ExitCode::Done;
    }
    printHead(read);
    printFactors(read);
    printActions(read);
    printWarnings(read);
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> codeShowCommand() { return std::make_unique<CodeShowCommand>(); }

} // namespace mrl::cli
