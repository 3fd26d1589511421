#include <algorithm>
#include <set>

#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/partition.h"
#include "report/sections.h"

namespace mrl::report {

namespace {

constexpr double FACTOR_WIDTH = 12;

/// Without the letter that the names of the actions begin with.
QString superpositionWord(const tagCDB_LC_ACT& action)
{
    return Words::superposition(action).section(QLatin1Char(' '), 0, 0);
}

Row rowOf(const LoadCaseGroup& group, const Source& source)
{
    const tagCDB_LC_ACT& record = group.action->record;
    Row row{{nameOf(group), titleOf(group), Words::partition(record), superpositionWord(record)}};
    for (const FactorColumn& column : source.data->factors) {
        row.cells.push_back(source.words.number(lcm_shown_factor(record, lcm_factor(column.id))));
    }
    row.cells.push_back(source.words.count(group.positions.size()));
    return row;
}

QString superpositionsText(const ProjectData& data)
{
    std::set<QString> used;
    for (const LCM_StoredAction& action : data.actions) {
        used.insert(Words::superposition(action.record));
    }
    QStringList captions;
    for (const QString& caption : used) {
        captions << caption.section(QLatin1Char(' '), 0, 0) + QStringLiteral(": ") +
                        caption.section(QLatin1Char(' '), 1);
    }
    return captions.join(QStringLiteral("; "));
}

} // namespace

void addActions(const Source& source, Blocks& blocks)
{
    blocks.emplace_back(Heading{1, Text::tr("Actions")});
    if (source.data->actions.empty()) {
        blocks.emplace_back(Paragraph{Style::Plain, Text::tr("The project has no actions.")});
        return;
    }
    std::vector<Column> columns{{Text::tr("Action", "narrow column"), 13},
                                {Text::tr("Title")},
                                {Text::tr("Category"), 24},
                                {Text::tr("Superp."), 14.5}};
    for (const FactorColumn& column : source.data->factors) {
        columns.push_back({plain(column.label), FACTOR_WIDTH, Align::Right});
    }
    columns.push_back({Text::tr("Load cases", "narrow column"), 12, Align::Right});
    std::vector<Row> rows;
    for (const LoadCaseGroup& group : source.data->groups) {
        if (group.kind == LoadCaseGroup::Kind::Action) {
            rows.push_back(rowOf(group, source));
        }
    }
    blocks.emplace_back(tableOf(std::move(columns), std::move(rows)));
    blocks.emplace_back(Paragraph{
        Style::Remark,
        Text::tr("How the load cases of an action act together: %1.").arg(superpositionsText(*source.data))});
}

} // namespace mrl::report
