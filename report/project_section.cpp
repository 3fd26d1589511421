#include <algorithm>

#include "lcdata/values/keywords.h"
#include "lcdata/values/system_words.h"
#include "report/sections.h"

namespace mrl::report {

namespace {

constexpr double KEY_WIDTH = 46;

QString systemText(int systemClass)
{
    switch (systemClass) {
    case LC_SYSTEM_SPATIAL:
        return Text::tr("spatial");
    case LC_SYSTEM_PLANE:
        return Text::tr("plane");
    default:
        return Text::tr("plate");
    }
}

QString axisText(int gravity)
{
    QString axis = QString::fromStdString(lcm_word_of_id(LCM_GRAVITY_AXES, gravity));
    return axis.replace(QLatin1Char('-'), QChar(0x2212));
}

QString codeText(const ProjectData& data)
{
    if (!data.code.code) {
        return Text::tr("none: %1").arg(plain(data.code.reason));
    }
    return QStringLiteral("%1 (%2)").arg(plain(data.code.code->label), plain(data.code.code->name));
}

QString loadCasesText(const Source& source)
{
    const auto& all = source.data->loadCases;
    const auto own = static_cast<std::size_t>(
        std::count_if(all.begin(), all.end(), [](const auto& each) { return each.isOwn(); }));
    const QString text = source.words.count(own);
    return own == all.size()
               ? text
               : Text::tr("%1, and %2 of other modules").arg(text, source.words.count(all.size() - own));
}

/// "112 verified, 8 unverified".
QString statesText(const Source& source)
{
    const StateCounts counts = stateCounts(source);
    QStringList parts;
    for (const auto state : {designcode::State::Verified, designcode::State::OneSource,
                             designcode::State::OwnChoice, designcode::State::Unverified}) {
        const auto found = counts.ofStates.find(state);
        if (found != counts.ofStates.end()) {
            parts << source.words.count(found->second) + QLatin1Char(' ') + Words::state(state);
        }
    }
    if (counts.byHand > 0) {
        parts << Text::tr("%1 set by hand").arg(source.words.count(counts.byHand));
    }
    return parts.isEmpty() ? Text::tr("none") : parts.join(QStringLiteral(", "));
}

/// The shell's word for a file's name.
QString quoted(QString name)
{
    static const QString PLAIN = QStringLiteral("._-+@%,=/:");
    const bool isPlain = std::all_of(name.begin(), name.end(), [](QChar c) {
        return (c.unicode() < 0x80 && c.isLetterOrNumber()) || PLAIN.contains(c);
    });
    return isPlain ? name
                   : QLatin1Char('\'') + name.replace(QLatin1Char('\''), QStringLiteral("'\\''")) +
                         QLatin1Char('\'');
}

} // namespace

void addProject(const Source& source, Blocks& blocks)
{
    const ProjectData& data = *source.data;
    const QString current =
        data.currentLoadCase == 0 ? Text::tr("none") : QString::number(data.currentLoadCase);
    std::vector<Row> rows{
        {{Text::tr("Project"), plain(data.file)}},
        {{Text::tr("Design code"), codeText(data)}, !data.code.code},
    };
    if (!data.kept.text.empty()) {
        rows.push_back({{Text::tr("Copy in the project"), plain(data.kept.text)}, true});
    }
    rows.push_back(
        {{Text::tr("System"),
          Text::tr("%1, gravity along %2").arg(systemText(data.systemClass), axisText(data.gravity))}});
    rows.push_back({{Text::tr("Actions"), source.words.count(data.actions.size())}});
    rows.push_back({{Text::tr("Load cases"), loadCasesText(source)}});
    rows.push_back({{Text::tr("Current load case"), current}});
    rows.push_back({{Text::tr("Values of the actions"), statesText(source)}});
    rows.push_back({{Text::tr("Deviations from the code"), source.words.count(deviationsOf(source).size())}});
    rows.push_back(
        {{Text::tr("Findings"), source.words.count(data.findings.size())}, !data.findings.empty()});
    rows.push_back({{Text::tr("Content (SHA-256)"), data.hash}});
    Table facts = tableOf({{QString(), KEY_WIDTH}, {QString()}}, std::move(rows));
    facts.hasHead = false;
    blocks.emplace_back(std::move(facts));
    if (source.isUnsaved) {
        blocks.emplace_back(Paragraph{
            Style::Warning, Text::tr("The project has changes that aren't saved. The report and its "
                                     "hash are of what stood in the program, not in the file.")});
    }
    blocks.emplace_back(Paragraph{
        Style::Remark,
        Text::tr("The hash at the foot of each page is that of the project's whole content, and "
                 "tells whether the project still is what this report tells of. It is printed by")});
    blocks.emplace_back(Paragraph{
        Style::Command,
        QStringLiteral("mrl-lc export %1 --format json | sha256sum").arg(quoted(plain(data.file)))});
    blocks.emplace_back(Contents{});
}

} // namespace mrl::report
