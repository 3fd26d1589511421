#pragma once

/// Which load cases belong to which action, as the data of a picture. Load cases stand side by side in the order of their
/// numbers, whatever gaps these have, so that ten of them can be seen as well as ten thousand.

#include <QString>

#include <cstddef>
#include <vector>

namespace mrl::report {

/// Load cases that stand side by side, both ends included; positions in the order of their numbers.
struct Run
{
    std::size_t first = 0;
    std::size_t last = 0;
};

inline bool operator==(const Run& a, const Run& b) { return a.first == b.first && a.last == b.last; }

struct AssignmentRow
{
    QString name;
    QString title;
    QString colour; ///< "#rrggbb", by the category
    QString count;
    QString ranges; ///< "1–40, 57"
    std::vector<Run> runs;
};

struct Assignment
{
    QString nameHead;
    QString loadCasesHead;
    QString countHead;
    std::vector<int> numbers; ///< of all load cases, ascending
    std::vector<AssignmentRow> rows;
    std::vector<std::pair<QString, QString>> legend; ///< colours that occur, and what they mean
};

/// The runs of positions. @param positions ascending
std::vector<Run> runsOf(const std::vector<std::size_t>& positions);

/// The numbers of runs: "1–40, 57". A range stands for all load cases of the project between its ends.
/// @param most after so many characters the rest is counted
QString rangesText(const std::vector<int>& numbers, const std::vector<Run>& runs, int most);

/// Runs that are drawn in so many places at most: those that fall into the same place are one.
std::vector<Run> thinned(const std::vector<Run>& runs, std::size_t count, std::size_t places);

} // namespace mrl::report
