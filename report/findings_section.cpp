#include "check/finding_text.h"
#include "lcdata/values/action_code.h"
#include "report/sections.h"

namespace mrl::report {

namespace {

QString whereOf(const LCM_Finding& finding)
{
    switch (finding.subject) {
    case LCM_Subject::Project:
    case LCM_Subject::DesignCode:
        return Text::tr("Design code");
    case LCM_Subject::Action:
        return Text::tr("Action %1").arg(plain(lcm_code_name(finding.id)));
    case LCM_Subject::LoadCase:
        return Text::tr("Load case %1").arg(finding.id);
    case LCM_Subject::Key:
        break;
    }
    return Text::tr("Key %1/%2").arg(finding.group).arg(finding.id);
}

} // namespace

void addFindings(const Source& source, Blocks& blocks)
{
    blocks.emplace_back(Heading{1, Text::tr("Findings")});
    const auto data = source.data;
    if (data->findings.empty()) {
        blocks.emplace_back(
            Paragraph{Style::Plain, Text::tr("No rule finds fault with an action or a load case.")});
        return;
    }
    Table table;
    table.columns = {{Text::tr("Where"), 32}, {Text::tr("Finding")}, {Text::tr("Rule"), 50}};
    table.count = data->findings.size();
    table.row = [data](std::size_t i) {
        const LCM_Finding& finding = data->findings[i];
        return Row{
            {whereOf(finding), plain(lcm_finding_text(finding)), QLatin1String(lcm_rule_id(finding.rule))}};
    };
    blocks.emplace_back(std::move(table));
    blocks.emplace_back(Paragraph{
        Style::Remark,
        Text::tr("Found as mrl-lc check does. docs/findings.md tells condition and cure of each rule.")});
}

} // namespace mrl::report
