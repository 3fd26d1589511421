#include "workbench/steps/shown_changes.h"

#include <QCoreApplication>

#include <algorithm>

#include "exchange/project_diff.h"

namespace mrl::workbench {

namespace {

struct ChangeTexts
{
    Q_DECLARE_TR_FUNCTIONS(Changes)
};

QString subjectOf(const exchange::ProjectDifference& difference)
{
    const QString name = QString::fromStdString(difference.name);
    if (difference.subject == "loadcase") {
        return ChangeTexts::tr("Load case %1").arg(name);
    }
    if (difference.subject == "action") {
        return ChangeTexts::tr("Action %1").arg(name);
    }
    return difference.subject == "fact" ? ChangeTexts::tr("Fact %1").arg(name)
                                        : ChangeTexts::tr("Record %1").arg(name);
}

/// What a record holds, in one line: "title=Wind, action=W".
QString wholeRecord(const std::vector<exchange::DifferentValue>& values)
{
    QStringList parts;
    for (const exchange::DifferentValue& value : values) {
        const QString text = QString::fromStdString(value.before + value.after);
        if (!text.isEmpty()) {
            parts << QString::fromStdString(value.name) + QLatin1Char('=') + text;
        }
    }
    return parts.join(QStringLiteral(", "));
}

void show(const exchange::ProjectDifference& difference, const QString& note, std::vector<ShownChange>& out)
{
    const QString subject = subjectOf(difference);
    if (difference.kind == exchange::Difference::Added) {
        out.push_back({subject, ChangeTexts::tr("new"), QString(), wholeRecord(difference.values), note});
        return;
    }
    if (difference.kind == exchange::Difference::Removed) {
        out.push_back({subject, ChangeTexts::tr("deleted"), wholeRecord(difference.values), QString(), note});
        return;
    }
    for (const exchange::DifferentValue& value : difference.values) {
        out.push_back({subject, QString::fromStdString(value.name), QString::fromStdString(value.before),
                       QString::fromStdString(value.after), note});
    }
}

void put(exchange::ProjectContent& content, const DocumentHistory::Change& change,
         const std::vector<std::string>& records)
{
    if (records.empty()) {
        return;
    }
    if (change.fact.isEmpty()) {
        content.keys[{change.key.kwh, change.key.kwl}] = records;
    } else {
        content.facts[change.fact.toStdString()] = records.front();
    }
}

bool isRewritten(const DocumentHistory::Change& change, const DocumentHistory::Keys& edited)
{
    // A record that is gone was deleted by somebody.
    return change.fact.isEmpty() && !change.after.empty() &&
           edited.count({change.key.kwh, change.key.kwl}) == 0;
}

} // namespace

std::vector<ShownChange> shownChanges(const std::vector<DocumentHistory::Change>& changes,
                                      const std::optional<DocumentHistory::Keys>& edited)
{
    std::vector<ShownChange> shown;
    for (const DocumentHistory::Change& change : changes) {
        exchange::ProjectContent before;
        exchange::ProjectContent after;
        put(before, change, change.before);
        put(after, change, change.after);
        const QString note = edited && isRewritten(change, *edited)
                                 ? ChangeTexts::tr("rewritten by the acceptance, edited by nobody")
                                 : QString();
        for (const exchange::ProjectDifference& difference : exchange::differencesOf(before, after)) {
            show(difference, note, shown);
        }
    }
    return shown;
}

int rewrittenCount(const std::vector<DocumentHistory::Change>& changes, const DocumentHistory::Keys& edited)
{
    return static_cast<int>(std::count_if(changes.begin(), changes.end(),
                                          [&](const auto& change) { return isRewritten(change, edited); }));
}

std::vector<DocumentHistory::Change> changesBetween(int before, int after)
{
    cdb::RecordImage image;
    cdb::RecordImage now;
    if (!cdb::imageOfDifferences(before, after, image) || !cdb::imageNow(after, image, now)) {
        return {};
    }
    return DocumentHistory::changesOf(image, now);
}

} // namespace mrl::workbench
