#include <algorithm>
#include <iterator>

#include "report/readable.h"
#include "report/sections.h"

namespace mrl::report {

namespace {

QString orDash(const std::string& text) { return text.empty() ? QString(QChar(0x2013)) : plain(text); }

const std::string& own(const std::string& ofExpression, const std::string& ofSituation)
{
    return ofExpression.empty() ? ofSituation : ofExpression;
}

bool isUnverified(const std::string& state)
{
    return state.empty() || state == designcode::wordOf(designcode::State::Unverified);
}

/// The reasons that combine/ has for single load cases.
constexpr const char* REASONS[] = {
    QT_TRANSLATE_NOOP("Report", "an imperfection, which the situation doesn't bring in"),
    QT_TRANSLATE_NOOP("Report", "it has neither an action nor factors"),
    QT_TRANSLATE_NOOP("Report", "it belongs to another module")};

QString reasonText(const std::string& reason)
{
    const auto* known = std::find(std::begin(REASONS), std::end(REASONS), reason);
    return known == std::end(REASONS) ? plain(reason) : Text::tr(*known);
}

QString leftOutText(const LeftOut& left)
{
    constexpr int MOST = 200;
    if (left.numbers.empty()) {
        return Text::tr("Left out: %1").arg(reasonText(left.reason));
    }
    const std::vector<int> numbers(left.numbers.begin(), left.numbers.end());
    std::vector<Run> runs;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (i > 0 && numbers[i] == numbers[i - 1] + 1) {
            runs.back().last = i;
        } else {
            runs.push_back({i, i});
        }
    }
    return Text::tr("Left out, load cases %1: %2")
        .arg(rangesText(numbers, runs, MOST), reasonText(left.reason));
}

QString headOf(const LCM_Situation& situation)
{
    const QString name = plain(situation.name);
    const QString title = plain(situationTitle(situation));
    return title == name ? name : QStringLiteral("%1: %2").arg(name, title);
}

/// What the formulas of a situation can't show, a line each with a line feed ahead.
QString remarksOf(const CountedSituation& counted)
{
    QStringList remarks = situationRemarks(counted.situation).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QStringList idle;
    for (const std::string& action : counted.idle) {
        idle << plain(action);
    }
    if (!idle.isEmpty()) {
        remarks << Text::tr("doesn't act: %1").arg(idle.join(QStringLiteral(", ")));
    }
    QString text;
    for (const QString& remark : remarks) {
        text += QLatin1Char('\n') + plain(remark);
    }
    return text;
}

/// A row for each expression; where there are several, one for their sum ahead.
void addRows(const CountedSituation& counted, const Words& words, std::vector<Row>& rows)
{
    const LCM_Situation& situation = counted.situation;
    const bool hasMany = situation.expressions.size() > 1;
    const QString remarks = remarksOf(counted);
    if (hasMany) {
        rows.push_back({{headOf(situation) + remarks, QString(), QString(), words.count(counted.choices.all),
                         words.count(counted.distinct.all)}});
    }
    for (std::size_t i = 0; i < situation.expressions.size(); ++i) {
        const LCM_Expression& expression = situation.expressions[i];
        const std::string& state = own(expression.state, situation.state);
        const QString head = hasMany ? plain(situation.name + " / " + expression.name) : headOf(situation);
        rows.push_back(
            {{head + QLatin1Char('\n') + plain(expressionFormula(expression)) +
                  (hasMany ? QString() : remarks),
              orDash(own(expression.clause, situation.clause)), Words::state(state),
              words.count(counted.choices.ofExpressions[i]), words.count(counted.distinct.ofExpressions[i])},
             isUnverified(state)});
    }
}

} // namespace

void addSituations(const Source& source, Blocks& blocks)
{
    const ProjectData& data = *source.data;
    blocks.emplace_back(Heading{1, Text::tr("Design situations and combinations")});
    if (!data.code.code || data.code.code->situations.empty()) {
        blocks.emplace_back(
            Paragraph{Style::Plain, Text::tr("The design code doesn't tell how actions are combined.")});
        return;
    }
    if (!data.refused.empty()) {
        blocks.emplace_back(
            Paragraph{Style::Warning, Text::tr("Nothing is combined before this is mended:")});
        for (const std::string& line : data.refused) {
            blocks.emplace_back(Paragraph{Style::Plain, plain(line)});
        }
        return;
    }
    std::vector<Row> rows;
    for (const CountedSituation& counted : data.situations) {
        addRows(counted, source.words, rows);
    }
    blocks.emplace_back(tableOf({{Text::tr("Situation")},
                                 {Text::tr("Source"), 34},
                                 {Text::tr("State"), 20},
                                 {Text::tr("Combinations"), 26, Align::Right},
                                 {Text::tr("Different"), 24, Align::Right}},
                                std::move(rows)));
    blocks.emplace_back(Paragraph{
        Style::Remark,
        Text::tr(
            "All combinations that may govern are counted, as mrl-lc combine --count does: each choice of "
            "factors for the permanent actions, of load cases that act together and of the leading action. "
            "Different ones have different factors.")});
    for (const LeftOut& each : data.leftOut) {
        blocks.emplace_back(Paragraph{Style::Remark, leftOutText(each)});
    }
}

} // namespace mrl::report
