#include "loadcases/numbers_line.h"

#include <QStringList>

#include <iterator>

#include "loadcases/loadcase_widget.h"

QString lcm_numbers_line(const std::set<int>& numbers)
{
    constexpr int MOST_RANGES = 12;
    QStringList ranges;
    for (auto first = numbers.begin(); first != numbers.end() && ranges.size() <= MOST_RANGES;) {
        auto last = first;
        while (std::next(last) != numbers.end() && *std::next(last) == *last + 1) {
            ++last;
        }
        ranges << (first == last ? QString::number(*first) : QStringLiteral("%1-%2").arg(*first).arg(*last));
        first = std::next(last);
    }
    if (ranges.size() > MOST_RANGES) {
        ranges.last() = QStringLiteral("...");
    }
    const QString text = ranges.join(QStringLiteral(", "));
    return numbers.size() == 1 ? LCM_LoadcaseWidget::tr("Load case %1").arg(text)
                               : LCM_LoadcaseWidget::tr("%1 load cases: %2").arg(numbers.size()).arg(text);
}
