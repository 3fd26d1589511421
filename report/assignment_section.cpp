#include <algorithm>

#include "lcdata/values/partition.h"
#include "report/sections.h"

namespace mrl::report {

namespace {

constexpr int MOST_CHARACTERS = 140; // three lines beneath a bar
constexpr auto OTHER_COLOUR = "#6b6b6b";

struct CategoryColour
{
    int category;
    const char* colour;
};

/// They can be told apart without seeing red and green, and in grey.
constexpr CategoryColour COLOURS[] = {{LC_CATEGORY_PERMANENT, "#44546a"},
                                      {LC_CATEGORY_PRESTRESS, "#8064a2"},
                                      {LC_CATEGORY_VARIABLE, "#d55e00"},
                                      {LC_CATEGORY_ACCIDENTAL, "#9a2617"},
                                      {LC_CATEGORY_EARTHQUAKE, "#0072b2"}};

int categoryOf(const LoadCaseGroup& group)
{
    if (group.action == nullptr) {
        return 0;
    }
    const int partition = lcm_partition_id(group.action->record.partition);
    return lcm_is_load_group(partition) ? static_cast<int>(LC_CATEGORY_VARIABLE) : partition;
}

QString colourOf(int category)
{
    const auto* found = std::find_if(std::begin(COLOURS), std::end(COLOURS),
                                     [&](const CategoryColour& each) { return each.category == category; });
    return QLatin1String(found == std::end(COLOURS) ? OTHER_COLOUR : found->colour);
}

void addToLegend(const LoadCaseGroup& group, const QString& colour, Assignment& picture)
{
    const bool isKnown = std::any_of(picture.legend.begin(), picture.legend.end(),
                                     [&](const auto& each) { return each.first == colour; });
    if (!isKnown) {
        tagCDB_LC_ACT plainCategory{};
        plainCategory.partition = lcm_partition_word(categoryOf(group), 0);
        picture.legend.emplace_back(colour, colour == QLatin1String(OTHER_COLOUR)
                                                ? Text::tr("no action")
                                                : Words::partition(plainCategory));
    }
}

} // namespace

void addAssignment(const Source& source, Blocks& blocks)
{
    const ProjectData& data = *source.data;
    blocks.emplace_back(Heading{1, Text::tr("Load cases of each action")});
    if (data.loadCases.empty()) {
        blocks.emplace_back(Paragraph{Style::Plain, Text::tr("The project has no load cases.")});
        return;
    }
    Assignment picture;
    picture.nameHead = Text::tr("Action");
    picture.loadCasesHead = Text::tr("Load cases in the order of their numbers");
    picture.countHead = Text::tr("Count");
    for (const LCM_StoredLoadCase& loadCase : data.loadCases) {
        picture.numbers.push_back(loadCase.number);
    }
    for (const LoadCaseGroup& group : data.groups) {
        const QString colour = colourOf(categoryOf(group));
        const std::vector<Run> runs = runsOf(group.positions);
        picture.rows.push_back({nameOf(group), titleOf(group), colour,
                                source.words.count(group.positions.size()),
                                rangesText(picture.numbers, runs, MOST_CHARACTERS), runs});
        addToLegend(group, colour, picture);
    }
    blocks.emplace_back(std::move(picture));
    blocks.emplace_back(Paragraph{
        Style::Remark,
        Text::tr(
            "Each load case has its place on the bars, beside that with the next number. A range such as "
            "%1 stands for all load cases of the project between its ends.")
            .arg(QStringLiteral("1") + QChar(0x2013) + QLatin1Char('4'))});
}

} // namespace mrl::report
