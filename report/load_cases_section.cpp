#include <array>

#include "lcdata/values/packed_text.h"
#include "report/sections.h"
#include "rules/load_case_row.h"

namespace mrl::report {

namespace {

constexpr double NUMBER_WIDTH = 15;
constexpr double VALUE_WIDTH = 16;
constexpr double NARROW_VALUE_WIDTH = 13; // beside the factors
constexpr double FACTOR_WIDTH = 12;

struct Component
{
    const char* name;
    float tagCDB_LC_CTRL::*value;
};
constexpr std::array<Component, 3> COMPONENTS{
    {{"DLX", &tagCDB_LC_CTRL::dlx}, {"DLY", &tagCDB_LC_CTRL::dly}, {"DLZ", &tagCDB_LC_CTRL::dlz}}};

/// Which components of dead weight have a column: those of the system, and others that some load case has.
std::array<bool, 3> shownComponents(const ProjectData& data)
{
    std::array<bool, 3> shown = lcm_shown_components(data.systemClass);
    for (const LCM_StoredLoadCase& loadCase : data.loadCases) {
        for (std::size_t i = 0; i < COMPONENTS.size(); ++i) {
            shown[i] = shown[i] || (loadCase.isOwn() && loadCase.record.*COMPONENTS[i].value != 0.0f);
        }
    }
    return shown;
}

/// What the tables of all groups have in common.
struct Layout
{
    std::array<bool, 3> components;
};

Table ofOtherModules(const Source& source, const LoadCaseGroup& group)
{
    Table table;
    table.columns = {{Text::tr("Number"), NUMBER_WIDTH, Align::Right}, {Text::tr("Kind of the record")}};
    table.count = group.positions.size();
    table.row = [source, &group](std::size_t i) {
        const LCM_StoredLoadCase& loadCase = source.data->loadCases[group.positions[i]];
        return Row{{QString::number(loadCase.number), QString::number(loadCase.record.kind)}};
    };
    return table;
}

std::vector<Column> columnsOf(const Source& source, const Layout& layout, bool hasFactors)
{
    std::vector<Column> columns{{Text::tr("Number"), NUMBER_WIDTH, Align::Right}, {Text::tr("Title")}};
    const double width = hasFactors ? NARROW_VALUE_WIDTH : VALUE_WIDTH;
    for (std::size_t i = 0; i < COMPONENTS.size(); ++i) {
        if (layout.components[i]) {
            columns.push_back({QLatin1String(COMPONENTS[i].name), width, Align::Right});
        }
    }
    columns.push_back({Text::tr("Factor"), width, Align::Right});
    if (hasFactors) {
        for (const FactorColumn& column : source.data->factors) {
            columns.push_back({plain(column.label), FACTOR_WIDTH, Align::Right});
        }
    }
    return columns;
}

Row rowOf(const LCM_StoredLoadCase& loadCase, const Source& source, const Layout& layout, bool hasFactors)
{
    const tagCDB_LC_CTRL& record = loadCase.record;
    Row row{{QString::number(loadCase.number), plain(lcm_title_text(record.title))}};
    for (std::size_t i = 0; i < COMPONENTS.size(); ++i) {
        if (layout.components[i]) {
            row.cells.push_back(source.words.sparse(record.*COMPONENTS[i].value));
        }
    }
    row.cells.push_back(source.words.number(record.factor));
    if (hasFactors) {
        const LCM_LoadCaseFactors factors = lcm_stored_factors(record);
        for (const FactorColumn& column : source.data->factors) {
            row.cells.push_back(source.words.number(factors[column.id]));
        }
    }
    return row;
}

Table ofOwn(const Source& source, const LoadCaseGroup& group, const Layout& layout)
{
    const bool hasFactors = group.kind == LoadCaseGroup::Kind::None;
    Table table;
    table.columns = columnsOf(source, layout, hasFactors);
    table.count = group.positions.size();
    // The group lives in the data, which the source holds.
    table.row = [source, &group, layout, hasFactors](std::size_t i) {
        return rowOf(source.data->loadCases[group.positions[i]], source, layout, hasFactors);
    };
    return table;
}

QString headingOf(const LoadCaseGroup& group)
{
    const QString title = titleOf(group);
    const bool isNamed =
        group.kind != LoadCaseGroup::Kind::None && group.kind != LoadCaseGroup::Kind::OtherModule;
    return isNamed ? nameOf(group) + QStringLiteral("  ") + title : title;
}

} // namespace

void addLoadCases(const Source& source, Blocks& blocks)
{
    if (source.data->loadCases.empty()) {
        return;
    }
    blocks.emplace_back(Heading{1, Text::tr("Load cases by action")});
    blocks.emplace_back(Paragraph{
        Style::Remark,
        Text::tr(
            "DLX, DLY and DLZ are the components of automatic dead weight, a dash stands for 0. The safety "
            "and combination factors of a load case are those of its action; one without an action has its "
            "own.")});
    const Layout layout{shownComponents(*source.data)};
    for (const LoadCaseGroup& group : source.data->groups) {
        if (!group.positions.empty()) {
            blocks.emplace_back(Heading{2, headingOf(group)});
            blocks.emplace_back(group.kind == LoadCaseGroup::Kind::OtherModule
                                    ? ofOtherModules(source, group)
                                    : ofOwn(source, group, layout));
        }
    }
}

} // namespace mrl::report
