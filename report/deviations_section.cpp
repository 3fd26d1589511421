#include "lcdata/values/action_code.h"
#include "report/sections.h"

namespace mrl::report {

namespace {

QString dash() { return QString(QChar(0x2013)); }

/// What the code's file says of an action as a whole; its category has no clause of its own.
void addWord(const QString& action, const QString& what, const QString& inProject, const QString& inCode,
             std::vector<Deviation>& all)
{
    if (inProject != inCode) {
        all.push_back({action, what, inProject, inCode, dash(), dash()});
    }
}

void addAction(const LCM_StoredAction& action, const designcode::DefaultAction& preset, const Source& source,
               std::vector<Deviation>& all)
{
    const QString name = plain(lcm_code_name(action.code));
    addWord(name, Text::tr("Category"), Words::partition(action.record), Words::partition(preset.record),
            all);
    addWord(name, Text::tr("Superposition"), Words::superposition(action.record),
            Words::superposition(preset.record), all);
    for (const FactorColumn& column : source.data->factors) {
        const LCM_Factor& factor = lcm_factor(column.id);
        const float value = lcm_shown_factor(action.record, factor);
        const float stated = lcm_shown_factor(preset.record, factor);
        const designcode::Origin& origin = preset.origins[column.id];
        if (value != stated) {
            const bool isStated = origin.isStated();
            all.push_back({name, plain(column.label), source.words.number(value),
                           isStated ? source.words.number(stated) : dash(),
                           isStated ? sourceText(origin, *source.data->code.code) : dash(),
                           isStated ? Words::state(origin.source.state) : dash()});
        }
    }
}

QStringList ownActions(const ProjectData& data)
{
    QStringList names;
    for (const LCM_StoredAction& action : data.actions) {
        if (data.defaultOf(action.code) == nullptr) {
            names << plain(lcm_code_name(action.code));
        }
    }
    return names;
}

} // namespace

std::vector<Deviation> deviationsOf(const Source& source)
{
    std::vector<Deviation> all;
    for (const LCM_StoredAction& action : source.data->actions) {
        if (const auto* preset = source.data->defaultOf(action.code)) {
            addAction(action, *preset, source, all);
        }
    }
    return all;
}

void addDeviations(const Source& source, Blocks& blocks)
{
    blocks.emplace_back(Heading{1, Text::tr("Deviations from the design code")});
    if (!source.data->code.code) {
        blocks.emplace_back(Paragraph{Style::Plain, Text::tr("There is no design code to deviate from.")});
        return;
    }
    std::vector<Row> rows;
    for (const Deviation& each : deviationsOf(source)) {
        rows.push_back({{each.action, each.what, each.inProject, each.inCode, each.source, each.state}});
    }
    if (rows.empty()) {
        blocks.emplace_back(
            Paragraph{Style::Plain, Text::tr("No action deviates from what the design code says of it.")});
    } else {
        blocks.emplace_back(tableOf({{Text::tr("Action", "narrow column"), 13},
                                     {Text::tr("Value"), 26},
                                     {Text::tr("In the project"), 34},
                                     {Text::tr("In the code"), 34},
                                     {Text::tr("Source")},
                                     {Text::tr("State"), 21}},
                                    std::move(rows)));
    }
    if (const QStringList own = ownActions(*source.data); !own.isEmpty()) {
        blocks.emplace_back(Paragraph{
            Style::Plain,
            Text::tr("Actions that the design code doesn't have: %1").arg(own.join(QStringLiteral(", ")))});
    }
}

} // namespace mrl::report
