#include "report/compose.h"

#include <numeric>

#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "report/sections.h"

namespace mrl::report {

namespace {

/// Numbers the sections.
void number(Blocks& blocks)
{
    int section = 0;
    for (Block& block : blocks) {
        auto* heading = std::get_if<Heading>(&block);
        if (heading != nullptr && heading->level == 1) {
            heading->text = QStringLiteral("%1  %2").arg(++section).arg(heading->text);
        }
    }
}

} // namespace

Table tableOf(std::vector<Column> columns, std::vector<Row> rows)
{
    Table table;
    table.columns = std::move(columns);
    table.count = rows.size();
    table.row = [all = std::make_shared<const std::vector<Row>>(std::move(rows))](std::size_t i) {
        return (*all)[i];
    };
    return table;
}

QString nameOf(const LoadCaseGroup& group)
{
    switch (group.kind) {
    case LoadCaseGroup::Kind::Action:
    case LoadCaseGroup::Kind::MissingAction:
        return plain(lcm_word_name(group.word));
    case LoadCaseGroup::Kind::Imperfection:
        return QStringLiteral("IMP");
    default:
        return QString(QChar(0x2013));
    }
}

QString titleOf(const LoadCaseGroup& group)
{
    switch (group.kind) {
    case LoadCaseGroup::Kind::Action:
        return plain(lcm_title_text(group.action->record.title));
    case LoadCaseGroup::Kind::MissingAction:
        return Text::tr("action that the project lacks");
    case LoadCaseGroup::Kind::Imperfection:
        return Text::tr("Imperfections");
    case LoadCaseGroup::Kind::None:
        return Text::tr("Without an action");
    default:
        return Text::tr("Of other modules");
    }
}

Report compose(const std::shared_ptr<const ProjectData>& data, const Wish& wish)
{
    const Source source{data, Words(wish.language), wish.isUnsaved};
    Report report;
    report.title = Text::tr("Actions and load cases");
    report.project = plain(data->file);
    report.day = wish.date;
    report.date = source.words.date(wish.date);
    report.language = wish.language;
    report.hash = data->hash;
    addProject(source, report.blocks);
    addDesignCode(source, report.blocks);
    addActions(source, report.blocks);
    addAssignment(source, report.blocks);
    addLoadCases(source, report.blocks);
    addSituations(source, report.blocks);
    addDeviations(source, report.blocks);
    addFindings(source, report.blocks);
    number(report.blocks);
    return report;
}

} // namespace mrl::report
