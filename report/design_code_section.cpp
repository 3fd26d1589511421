#include <QFileInfo>

#include <algorithm>
#include <tuple>

#include "lcdata/values/action_code.h"
#include "report/sections.h"

namespace mrl::report {

namespace {

using designcode::Origin;

/// Values of an action with one source.
struct Sourced
{
    QStringList values;
    QString source;
    QString state;
    QString note;
    bool isMarked = false;

    bool hasSameSource(const Sourced& other) const
    {
        return std::tie(source, state, note, isMarked) ==
               std::tie(other.source, other.state, other.note, other.isMarked);
    }
};

/// Values with the same source in one, in the order of the first of each.
void join(std::vector<Sourced>& all, Sourced next)
{
    const auto same =
        std::find_if(all.begin(), all.end(), [&](const Sourced& each) { return each.hasSameSource(next); });
    if (same == all.end()) {
        all.push_back(std::move(next));
    } else {
        same->values << next.values;
    }
}

QString dash() { return QString(QChar(0x2013)); }

class CodeValues
{
  public:
    explicit CodeValues(const Source& source) : m_source(source), m_code(*source.data->code.code) {}

    std::vector<Row> rows() const;

  private:
    Sourced valueOf(const LCM_StoredAction& action, const designcode::DefaultAction* preset,
                    const FactorColumn& column) const;
    Sourced stated(const Origin& origin) const;
    void add(const QString& name, const std::vector<Sourced>& all, std::vector<Row>& rows) const;

    const Source& m_source;
    const designcode::DesignCode& m_code;
};

Sourced CodeValues::stated(const Origin& origin) const
{
    Sourced result;
    result.source = sourceText(origin, m_code);
    result.state = Words::state(origin.source.state);
    result.note = plain(origin.source.note);
    result.isMarked = origin.source.state == designcode::State::Unverified;
    return result;
}

Sourced CodeValues::valueOf(const LCM_StoredAction& action, const designcode::DefaultAction* preset,
                            const FactorColumn& column) const
{
    const LCM_Factor& factor = lcm_factor(column.id);
    const float value = lcm_shown_factor(action.record, factor);
    Sourced result;
    if (preset != nullptr && preset->origins[column.id].isStated() &&
        lcm_shown_factor(preset->record, factor) == value) {
        result = stated(preset->origins[column.id]);
    } else {
        result.source = dash();
        result.state = Text::tr("set by hand");
        result.note = preset == nullptr                        ? Text::tr("the code doesn't have the action")
                      : !preset->origins[column.id].isStated() ? Text::tr("the code states no value")
                                                               : Text::tr("see the deviations");
        result.isMarked = true;
    }
    result.values = QStringList(plain(column.label) + QChar(QChar::Nbsp) + m_source.words.number(value));
    return result;
}

void CodeValues::add(const QString& name, const std::vector<Sourced>& all, std::vector<Row>& rows) const
{
    for (const Sourced& each : all) {
        rows.push_back({{name, each.values.join(QStringLiteral(",  ")), each.source, each.state, each.note},
                        each.isMarked});
    }
}

std::vector<Row> CodeValues::rows() const
{
    std::vector<Row> rows;
    for (const LCM_StoredAction& action : m_source.data->actions) {
        const auto* preset = m_source.data->defaultOf(action.code);
        std::vector<Sourced> all;
        for (const FactorColumn& column : m_source.data->factors) {
            join(all, valueOf(action, preset, column));
        }
        add(plain(lcm_code_name(action.code)), all, rows);
    }
    for (const auto& [name, origin] : m_code.constantOrigins) {
        Sourced constant = stated(origin);
        const auto value = m_code.constants.find(name);
        constant.values << m_source.words.number(value == m_code.constants.end() ? 1.0f : value->second);
        add(plain(name), {constant}, rows);
    }
    return rows;
}

/// "din-en1990-na, on en1990".
QString chainText(const designcode::DesignCode& code)
{
    QStringList names;
    for (const designcode::FileText& file : code.files) {
        names << plain(QFileInfo(QString::fromStdString(file.file)).completeBaseName());
    }
    const QString own = names.isEmpty() ? plain(code.name) : names.takeFirst();
    return names.isEmpty() ? own : Text::tr("%1, on %2").arg(own, names.join(QStringLiteral(", ")));
}

} // namespace

QString sourceText(const Origin& origin, const designcode::DesignCode& code)
{
    const QString clause = origin.source.clause.empty() ? dash() : plain(origin.source.clause);
    const bool isOfBase = !code.files.empty() && origin.file != code.files.front().file;
    return isOfBase ? QStringLiteral("%1 (%2)").arg(
                          clause, plain(QFileInfo(QString::fromStdString(origin.file)).completeBaseName()))
                    : clause;
}

StateCounts stateCounts(const Source& source)
{
    StateCounts counts;
    for (const LCM_StoredAction& action : source.data->actions) {
        const auto* preset = source.data->defaultOf(action.code);
        for (const FactorColumn& column : source.data->factors) {
            const LCM_Factor& factor = lcm_factor(column.id);
            const bool isOfCode =
                preset != nullptr && preset->origins[column.id].isStated() &&
                lcm_shown_factor(preset->record, factor) == lcm_shown_factor(action.record, factor);
            if (isOfCode) {
                ++counts.ofStates[preset->origins[column.id].source.state];
            } else {
                ++counts.byHand;
            }
        }
    }
    return counts;
}

void addDesignCode(const Source& source, Blocks& blocks)
{
    const ProjectData& data = *source.data;
    blocks.emplace_back(Heading{1, Text::tr("Design code and its values")});
    if (!data.code.code) {
        blocks.emplace_back(Paragraph{
            Style::Warning,
            Text::tr("No design code is active: %1. No value has a source, and nothing can be combined.")
                .arg(plain(data.code.reason))});
        return;
    }
    blocks.emplace_back(Paragraph{Style::Plain, QStringLiteral("%1: %2").arg(chainText(*data.code.code),
                                                                             plain(data.code.code->label))});
    blocks.emplace_back(Paragraph{
        Style::Remark,
        Text::tr(
            "States: \"verified\": two independent public transcriptions of the standard or more agree; "
            "\"one source\": there is one; \"own choice\": the standard leaves it open, and the author of "
            "the design-code file chose; \"unverified\": nobody vouches for it. None of these was read in "
            "the printed standard, against which each value is to be checked.")});
    blocks.emplace_back(tableOf({{Text::tr("Action", "narrow column"), 13},
                                 {Text::tr("Values")},
                                 {Text::tr("Source"), 44},
                                 {Text::tr("State"), 21},
                                 {Text::tr("Remark"), 40}},
                                CodeValues(source).rows()));
}

} // namespace mrl::report
