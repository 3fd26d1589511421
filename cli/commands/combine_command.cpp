#include "cli/arguments.h"
#include "cli/combination_list.h"
#include "cli/commands/commands.h"
#include "cli/output.h"
#include "combine/count.h"
#include "combine/decimal.h"

namespace mrl::cli {

namespace {

constexpr std::size_t LEADING_WIDTH = 12;

class CombineCommand : public Command
{
  public:
    std::string name() const override { return "combine"; }
    std::string description() const override
    {
        return "Count and list the combinations of a project in a situation of its design code";
    }
    void declare(Arguments& args) override;
    ExitCode run() override;

  private:
    void count(const PlannedSituation& planned) const;
    void list(const PlannedSituation& planned, const Combinations& combinations) const;

    std::string m_file;
    CombinationOptions m_which;
    bool m_count = false;
    bool m_json = false;
};

void CombineCommand::declare(Arguments& args)
{
    args.file(m_file);
    m_which.declare(args);
    args.flag("--count", m_count, "Count only, each expression by itself");
    args.json(m_json);
    args.exclude("--count", "--limit");
    args.exclude("--keep", "--count");
}

Json orNull(const std::string& text) { return text.empty() ? Json(nullptr) : Json(text); }

struct Counted
{
    explicit Counted(const combine::Plan& plan)
        : choices(combine::countChoices(plan)), distinct(combine::countDistinct(plan))
    {
    }

    combine::Count choices;
    combine::Count distinct;
};

Json headJson(const PlannedSituation& planned, const Counted& counted)
{
    return {{"situation", planned.situation->name},
            {"count", counted.choices.all.str()},
            {"distinct", counted.distinct.all.str()}};
}

std::string countsText(const combine::BigInt& choices, const combine::BigInt& distinct)
{
    return choices.str() + " combinations, " + distinct.str() + " different";
}

/// Prints combinations one by one, as a list or as JSON.
class CombinationPrinter
{
  public:
    CombinationPrinter(const PlannedSituation& planned, bool json) : m_planned(planned), m_json(json)
    {
        const Counted counted(planned.plan);
        if (m_json) {
            // The head without the brace that closes it.
            const std::string head = headJson(planned, counted).dump();
            m_output.write(head.substr(0, head.size() - 1) + ",\"combinations\":[");
            return;
        }
        m_output.line(planned.situation->name + ": " + countsText(counted.choices.all, counted.distinct.all));
        m_output.line(line("Leading", "Expression", "Key"));
    }

    void print(const combine::Combination& combination)
    {
        const std::string key = combine::keyText(combination.key);
        const std::string& expression = m_planned.expression(combination.expression);
        if (!m_json) {
            m_output.line(line(combination.leading.empty() ? "-" : combination.leading,
                               expression.empty() ? "-" : expression, key));
            return;
        }
        m_output.write(m_isFirst ? "\n" : ",\n");
        m_output.write(
            Json{{"key", key}, {"leading", orNull(combination.leading)}, {"expression", orNull(expression)}}
                .dump());
        m_isFirst = false;
    }

    void finish()
    {
        m_output.write(!m_json ? "" : m_isFirst ? "]}\n" : "\n]}\n");
        m_output.finish();
    }

  private:
    static std::string line(const std::string& leading, const std::string& expression, const std::string& key)
    {
        return padded(leading, LEADING_WIDTH) + "  " + padded(expression, LEADING_WIDTH) + "  " + key;
    }

    const PlannedSituation& m_planned;
    bool m_json;
    bool m_isFirst = true;
    Output m_output;
};

void CombineCommand::count(const PlannedSituation& planned) const
{
    const Counted counted(planned.plan);
    const std::vector<std::string>& names = planned.plan.expressions;
    if (m_json) {
        Json out = headJson(planned, counted);
        out["expressions"] = Json::array();
        for (std::size_t i = 0; i < names.size(); ++i) {
            out["expressions"].push_back({{"expression", orNull(names[i])},
                                          {"count", counted.choices.ofExpressions[i].str()},
                                          {"distinct", counted.distinct.ofExpressions[i].str()}});
        }
        printJson(out);
        return;
    }
    Output out;
    for (std::size_t i = 0; names.size() > 1 && i < names.size(); ++i) {
        out.line(planned.situation->name + " / " + names[i] + ": " +
                 countsText(counted.choices.ofExpressions[i], counted.distinct.ofExpressions[i]));
    }
    out.line(planned.situation->name + ": " + countsText(counted.choices.all, counted.distinct.all));
    out.finish();
}

void CombineCommand::list(const PlannedSituation& planned, const Combinations& combinations) const
{
    const CombinationList list(m_file, m_which, combinations, planned);
    CombinationPrinter printer(planned, m_json);
    list.tell([&](const combine::Combination& combination) { printer.print(combination); });
    printer.finish();
}

ExitCode CombineCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const Combinations combinations(project);
    const PlannedSituation planned = m_which.plan(combinations);
    for (const std::string& action : planned.plan.idle) {
        note("action " + action + " doesn't act in situation " + planned.situation->name);
    }
    if (m_count) {
        count(planned);
    } else {
        list(planned, combinations);
    }
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> combineCommand() { return std::make_unique<CombineCommand>(); }

} // namespace mrl::cli
