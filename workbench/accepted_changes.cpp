#include "workbench/accepted_changes.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstring>
#include <map>

namespace mrl::workbench {

namespace {

template <class Stored, class KeyOf>
QString changes(const QString& heading, const std::vector<Stored>& before, const std::vector<Stored>& after,
                KeyOf keyOf)
{
    std::map<int, const Stored*> former;
    for (const Stored& stored : before) {
        former.emplace(keyOf(stored), &stored);
    }
    int added = 0;
    int changed = 0;
    for (const Stored& stored : after) {
        const auto found = former.find(keyOf(stored));
        if (found == former.end()) {
            ++added;
            continue;
        }
        changed += std::memcmp(&found->second->record, &stored.record, sizeof stored.record) != 0 ? 1 : 0;
        former.erase(found);
    }
    QStringList parts;
    const auto add = [&parts](int count, const QString& text) {
        if (count > 0) {
            parts << text.arg(count);
        }
    };
    add(added, QCoreApplication::translate("Workbench", "%1 new"));
    add(changed, QCoreApplication::translate("Workbench", "%1 changed"));
    add(static_cast<int>(former.size()), QCoreApplication::translate("Workbench", "%1 deleted"));
    return parts.isEmpty() ? QString()
                           : QStringLiteral("%1: %2.").arg(heading, parts.join(QStringLiteral(", ")));
}

} // namespace

QString changesInNumbers(const ProjectSummary& before, const ProjectSummary& after)
{
    QStringList lines{changes(QCoreApplication::translate("Workbench", "Load cases"), before.loadCases,
                              after.loadCases,
                              [](const LCM_StoredLoadCase& loadCase) { return loadCase.number; }),
                      changes(QCoreApplication::translate("Workbench", "Actions"), before.actions,
                              after.actions, [](const LCM_StoredAction& action) { return action.code; })};
    lines.removeAll(QString());
    return lines.join(QLatin1Char(' '));
}

} // namespace mrl::workbench
