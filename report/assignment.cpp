#include "report/assignment.h"

#include <QStringList>

#include <algorithm>

#include "report/words.h"

namespace mrl::report {

namespace {

constexpr QChar DASH(0x2013);

/// @param range 1: both ends are neighbours, which a dash says no better than a comma
QString rangeText(int first, int last, std::size_t range)
{
    const QString from = QString::number(first);
    if (range == 0) {
        return from;
    }
    return from + (range == 1 ? QStringLiteral(", ") : QString(DASH)) + QString::number(last);
}

} // namespace

std::vector<Run> runsOf(const std::vector<std::size_t>& positions)
{
    std::vector<Run> runs;
    for (const std::size_t position : positions) {
        if (!runs.empty() && runs.back().last + 1 == position) {
            runs.back().last = position;
        } else {
            runs.push_back({position, position});
        }
    }
    return runs;
}

QString rangesText(const std::vector<int>& numbers, const std::vector<Run>& runs, int most)
{
    QStringList ranges;
    int length = 0;
    std::size_t told = 0;
    while (told < runs.size() && (told == 0 || length < most)) {
        const Run& run = runs[told++];
        ranges << rangeText(numbers[run.first], numbers[run.last], run.last - run.first);
        length += ranges.last().size() + 2;
    }
    std::size_t rest = 0;
    for (std::size_t i = told; i < runs.size(); ++i) {
        rest += runs[i].last - runs[i].first + 1;
    }
    if (rest > 0) {
        ranges << Text::tr("... and %1 more up to %2").arg(rest).arg(numbers[runs.back().last]);
    }
    return ranges.join(QStringLiteral(", "));
}

std::vector<Run> thinned(const std::vector<Run>& runs, std::size_t count, std::size_t places)
{
    if (count <= places) {
        return runs;
    }
    std::vector<Run> drawn;
    for (const Run& run : runs) {
        const Run place{run.first * places / count, run.last * places / count};
        if (!drawn.empty() && place.first <= drawn.back().last + 1) {
            drawn.back().last = place.last;
        } else {
            drawn.push_back(place);
        }
    }
    return drawn;
}

} // namespace mrl::report
