#include "workbench/combinations/project_combinations.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>

#include "combine/remarks.h"
#include "combine/response_file.h"
#include "hostlib/data/designcode/designcode.h"

namespace mrl::workbench {

namespace {

constexpr double TOLERANCE = 1e-12; // of a sum of terms, relative

class ProjectCombinationsText
{
    Q_DECLARE_TR_FUNCTIONS(ProjectCombinationsText)
};

QString refusal(const std::vector<combine::Remark>& refused)
{
    QStringList lines(ProjectCombinationsText::tr("Nothing is combined before this is mended:"));
    for (const std::string& line : combine::gathered(refused)) {
        lines << QString::fromStdString(line);
    }
    return lines.join(QLatin1Char('\n'));
}

bool differs(double a, double b) { return std::fabs(a - b) > TOLERANCE * (std::fabs(a) + std::fabs(b)); }

/// The change of a response that is larger: of its maximum or of its minimum.
struct Change
{
    std::size_t response = 0;
    double from = 0;
    double to = 0;

    double size() const { return std::fabs(to - from); }
};

} // namespace

std::shared_ptr<const ProjectCombinations> readCombinations(int db)
{
    auto result = std::make_shared<ProjectCombinations>();
    const designcode::Loaded loaded = designcode::ofDatabase(db);
    if (!loaded.code) {
        result->problem = ProjectCombinationsText::tr("The design code can't be loaded: %1")
                              .arg(QString::fromStdString(loaded.reason));
        return result;
    }
    if (loaded.code->situations.empty()) {
        result->problem =
            ProjectCombinationsText::tr("The design code doesn't tell how actions are combined.");
        return result;
    }
    result->model = combine::projectModel(db, loaded.code->constants).model;
    for (const LCM_Situation& situation : loaded.code->situations) {
        combine::Plan plan = combine::plan(result->model, situation);
        if (!plan.prepared.refused.empty()) {
            result->problem = refusal(plan.prepared.refused);
            result->situations.clear();
            return result;
        }
        combine::BigInt count = combine::countChoices(plan).all;
        result->situations.push_back({situation, std::move(plan), std::move(count)});
    }
    return result;
}

std::shared_ptr<const Responses> readResponses(const QString& file, QString& error)
{
    auto opened = combine::openResponses(file.toStdString());
    if (const auto* reason = std::get_if<std::string>(&opened)) {
        error = QString::fromStdString(*reason);
        return nullptr;
    }
    auto& stream = *std::get<std::unique_ptr<combine::ResponseFile>>(opened);
    auto responses = std::make_shared<Responses>();
    responses->file = file;
    responses->numbers = stream.numbers();
    combine::RawResponse raw;
    combine::Response response;
    while (stream.next(raw)) {
        error = QString::fromStdString(stream.read(raw, response));
        if (!error.isEmpty()) {
            return nullptr;
        }
        responses->names.push_back(QString::fromStdString(response.name));
        responses->values.insert(responses->values.end(), response.values.begin(), response.values.end());
    }
    error = QString::fromStdString(stream.error());
    return error.isEmpty() ? responses : nullptr;
}

QString changeText(const Responses& responses, const std::vector<combine::Extremes>& before,
                   const std::vector<combine::Extremes>& after)
{
    int changed = 0;
    Change largest;
    for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
        const Change max{i, before[i].max.value, after[i].max.value};
        const Change min{i, before[i].min.value, after[i].min.value};
        const Change& larger = max.size() < min.size() ? min : max;
        changed += differs(max.from, max.to) || differs(min.from, min.to) ? 1 : 0;
        largest = larger.size() > largest.size() ? larger : largest;
    }
    if (changed == 0) {
        return {};
    }
    const QLocale locale;
    const QString share = largest.from == 0
                              ? QString()
                              : QStringLiteral(" (%1 %)").arg(
                                    (largest.to - largest.from) / std::fabs(largest.from) * 100, 0, 'f', 1);
    return ProjectCombinationsText::tr("%1 of %2 responses changed; most of all %3, from %4 to %5%6")
        .arg(locale.toString(changed), locale.toString(static_cast<int>(after.size())),
             responses.names[largest.response], locale.toString(largest.from, 'g', 6),
             locale.toString(largest.to, 'g', 6), share);
}

} // namespace mrl::workbench
