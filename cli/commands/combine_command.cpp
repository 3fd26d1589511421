#include "cli/arguments.h"
#include "cli/combinations.h"
#include "cli/commands/commands.h"
#include "cli/failure.h"
#include "cli/output.h"
#include "cli/progress.h"
#include "combine/count.h"
#include "combine/decimal.h"
#include "combine/enumerate.h"

namespace mrl::cli {

namespace {

constexpr int DEFAULT_LIMIT = 10000;
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
    void list(const PlannedSituation& planned) const;
    void keep(const PlannedSituation& planned, const Combinations& combinations) const;

    std::string m_file;
    std::optional<std::string> m_situation;
    std::optional<std::string> m_keep;
    std::optional<std::string> m_numbers;
    std::optional<int> m_limit;
    bool m_count = false;
    bool m_json = false;
};

void CombineCommand::declare(Arguments& args)
{
    args.file(m_file);
    args.text("--situation", m_situation, Arguments::Need::Optional,
              "Situation of the design code; persistent if not given");
    args.flag("--count", m_count, "Count only, each expression by itself");
    args.integer("--limit", m_limit, "List at most so many, more is refused; 10000 if not given");
    args.text("--keep", m_keep, Arguments::Need::Optional,
              "List only those that govern a response of this file, as for 'envelope'");
    args.text("--numbers", m_numbers, Arguments::Need::Optional,
              "The load cases of the columns of an NPY file, in a text file");
    args.json(m_json);
    args.exclude("--count", "--limit");
    args.exclude("--keep", "--limit");
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

void CombineCommand::list(const PlannedSituation& planned) const
{
    const int limit = m_limit.value_or(DEFAULT_LIMIT);
    const combine::BigInt choices = combine::countChoices(planned.plan).all;
    if (choices > limit) {
        throw Failure{ExitCode::Refused, m_file + ": situation " + planned.situation->name + " has " +
                                             choices.str() + " combinations, more than " +
                                             std::to_string(limit) +
                                             "; --limit allows more, --count only counts, --keep lists "
                                             "those that govern"};
    }
    CombinationPrinter printer(planned, m_json);
    combine::enumerate(planned.plan, choices, [&](const combine::Combination& combination) {
        printer.print(combination);
        return true;
    });
    printer.finish();
}

void CombineCommand::keep(const PlannedSituation& planned, const Combinations& combinations) const
{
    const std::vector<PlannedSituation> situations{planned};
    const auto file = openResponses(*m_keep, m_numbers.value_or(""), combinations, situations);
    combine::GoverningList governing(planned.plan, file->numbers());
    Progress progress;
    combine::RawResponse raw;
    combine::Response response;
    while (file->next(raw)) {
        if (const std::string error = file->read(raw, response); !error.empty()) {
            throw Failure{ExitCode::File, *m_keep + ": " + error};
        }
        governing.add(response.values.data());
        progress.show(raw.row, file->progress());
    }
    if (!file->error().empty()) {
        throw Failure{ExitCode::File, *m_keep + ": " + file->error()};
    }
    CombinationPrinter printer(planned, m_json);
    for (const combine::Combination& combination : governing.combinations()) {
        printer.print(combination);
    }
    printer.finish();
}

ExitCode CombineCommand::run()
{
    const Project project = Project::openForReading(m_file);
    const Combinations combinations(project);
    const PlannedSituation planned = combinations.plan(m_situation.value_or("persistent"));
    for (const std::string& action : planned.plan.idle) {
        note("action " + action + " doesn't act in situation " + planned.situation->name);
    }
    if (m_count) {
        count(planned);
    } else if (m_keep) {
        keep(planned, combinations);
    } else {
        list(planned);
    }
    return ExitCode::Done;
}

} // namespace

std::unique_ptr<Command> combineCommand() { return std::make_unique<CombineCommand>(); }

} // namespace mrl::cli
