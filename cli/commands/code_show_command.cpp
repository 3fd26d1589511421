#include "cli/action_table.h"
#include "cli/arguments.h"
#include "cli/commands/commands.h"
#include "cli/design_codes.h"
#include "hostlib/data/designcode/effective.h"
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

Json originJson(const designcode::Origin& origin)
{
    return {{"clause", origin.source.clause},
            {"state", designcode::wordOf(origin.source.state)},
            {"note", origin.source.note},
            {"file", origin.file},
            {"line", origin.line}};
}

/// By factor; one that the file doesn't state has none.
Json originsJson(const designcode::DefaultAction& action)
{
    Json out = Json::object();
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (action.origins[factor.id].isStated()) {
            out[factor.key] = originJson(action.origins[factor.id]);
        }
    }
    return out;
}

constexpr std::string_view SITUATION = "situation ";

/// The entries of a section of a situation, "persistent-ab" or "persistent-ab / 6.10a", as a file writes them.
Json termsJson(const std::vector<designcode::EffectiveValue>& values, const std::string& section)
{
    Json terms = Json::object();
    for (const designcode::EffectiveValue& value : values) {
        if (value.subject == std::string(SITUATION) + section) {
            terms[value.name] = value.value;
        }
    }
    return terms;
}

Json situationsJson(const designcode::DesignCode& code)
{
    const auto values = designcode::effectiveValues(code);
    Json out = Json::array();
    for (const LCM_Situation& situation : code.situations) {
        Json expressions = Json::array();
        for (const LCM_Expression& expression : situation.expressions) {
            expressions.push_back(
                {{"name", expression.name},
                 {"clause", expression.clause.empty() ? situation.clause : expression.clause},
                 {"state", expression.state.empty() ? situation.state : expression.state},
                 {"terms", expression.name.empty()
                               ? Json::object()
                               : termsJson(values, situation.name + " / " + expression.name)}});
        }
        out.push_back({{"name", situation.name},
                       {"kind", situation.kind},
                       {"clause", situation.clause},
                       {"state", situation.state},
                       {"title", situation.title},
                       {"terms", termsJson(values, situation.name)},
                       {"expressions", expressions}});
    }
    return out;
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
        entry["titles"] = action.titles;
        entry["origins"] = originsJson(action);
        out["actions"].push_back(entry);
    }
    out["situations"] = situationsJson(code);
    for (const auto& [name, origin] : code.constantOrigins) {
        out["constants"][name] = originJson(origin);
        out["constants"][name]["value"] = jsonNumber(code.constants.at(name));
    }
    out["files"] = Json::array();
    for (const designcode::FileText& file : code.files) {
        out["files"].push_back(file.file);
    }
    out["warnings"] = warningsJson(code);
    return out;
}

/// " {Table A1.1, verified} note", as the file writes it; empty where it says nothing.
std::string sourceText(const designcode::Origin& origin)
{
    const designcode::Source& source = origin.source;
    if (source.clause.empty() && source.note.empty()) {
        return {};
    }
    return " {" + printable(qtext(source.clause)) + ", " + std::string(designcode::wordOf(source.state)) +
           "}" + (source.note.empty() ? "" : " " + printable(qtext(source.note)));
}

void printHead(const designcode::DesignCode& code)
{
    Output out;
    out.line(printable(qtext(code.label)));
    out.line("File:    " + printable(qtext(code.file)));
    out.line("Numbers: national code " + std::to_string(code.ntcode) + ", code " +
             std::to_string(code.idcode) + ", country " + std::to_string(code.country) + ", year " +
             std::to_string(code.year));
    for (std::size_t i = 1; i < code.files.size(); ++i) {
        out.line("Base:    " + code.files[i].file);
    }
    for (const auto& [name, origin] : code.constantOrigins) {
        out.line(padded(name + ":", 9) + numberText(code.constants.at(name)) + sourceText(origin));
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

void printTitle(const std::string& title)
{
    Output out;
    out.line("");
    out.line(title);
    out.finish();
}

bool isKnown(const designcode::DesignCode& code, const LCM_Factor& factor)
{
    return code.availability.*factor.actionField > 0.0f;
}

/// With the factors that the code knows alone: a 0 in the column of another one would read as a value.
void printActions(const designcode::DesignCode& code)
{
    std::vector<Table::Column> columns{{"Name"}, {"Title"}, {"Partition"}, {"Superposition"}};
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (isKnown(code, factor)) {
            columns.push_back({factor.key, Table::Align::Right});
        }
    }
    Table table(columns);
    for (const auto& action : code.actions) {
        const Json json = actionJson(action.code, action.record);
        std::vector<std::string> row{json["name"], json["title"], json["partition"], json["superposition"]};
        for (const LCM_Factor& factor : LCM_FACTORS) {
            if (isKnown(code, factor)) {
                const float value = lcm_shown_factor(action.record, factor);
                row.push_back(action.origins[factor.id].isStated() ? factorText(value) : "-");
            }
        }
        table.add(row);
    }
    printTitle("Actions");
    table.print();
}

void printOrigins(const designcode::DesignCode& code)
{
    Table table({{"Action"}, {"Factor"}, {"Value", Table::Align::Right}, {"State"}, {"Clause"}, {"Note"}});
    for (const auto& action : code.actions) {
        for (const LCM_Factor& factor : LCM_FACTORS) {
            const designcode::Origin& origin = action.origins[factor.id];
            if (origin.isStated()) {
                table.add({action.name, factor.key, factorText(lcm_shown_factor(action.record, factor)),
                           std::string(designcode::wordOf(origin.source.state)),
                           printable(qtext(origin.source.clause)), printable(qtext(origin.source.note))});
            }
        }
    }
    printTitle("Where the values come from");
    table.print();
}

void printSituations(const designcode::DesignCode& code)
{
    Table table({{"Situation"}, {"Kind"}, {"State"}, {"Clause"}});
    for (const LCM_Situation& situation : code.situations) {
        table.add({situation.name, situation.kind, situation.state, situation.clause});
        for (const LCM_Expression& expression : situation.expressions) {
            if (!expression.name.empty()) {
                table.add({"  " + expression.name, "", expression.state, expression.clause});
            }
        }
    }
    printTitle("Situations");
    table.print();
}

/// What stands in their sections: whoever changes one term of a base has to repeat the others.
void printTerms(const designcode::DesignCode& code)
{
    Table table({{"Section"}, {"Entry"}, {"Value"}});
    for (const designcode::EffectiveValue& value : designcode::effectiveValues(code)) {
        if (value.subject.rfind(SITUATION, 0) == 0) {
            table.add({value.subject.substr(SITUATION.size()), value.name, printable(qtext(value.value))});
        }
    }
    printTitle("Terms of the situations");
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
    printOrigins(read);
    printSituations(read);
    printTerms(read);
    printWarnings(read);
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> codeShowCommand() { return std::make_unique<CodeShowCommand>(); }

} // namespace mrl::cli
