#pragma once

/// How extremes of responses are printed: a line each for people, JSON, or CSV.

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace mrl::cli {

enum class EnvelopeFormat { Lines, Json, Csv };

/// One extreme of a response.
struct ExtremeRow
{
    double value = 0;
    std::string key;
    std::string leading;    ///< empty: nobody
    std::string expression; ///< empty: the situation has one, without a name
    std::vector<std::pair<std::string, double>>
        with; ///< the set's other responses under the same combination
};

/// Both extremes of a response in a situation.
struct EnvelopeRow
{
    std::string response;
    std::string situation;
    ExtremeRow max;
    ExtremeRow min;
};

class EnvelopePrinter
{
  public:
    /// @param hasSets each extreme tells the other responses of its set
    EnvelopePrinter(EnvelopeFormat format, bool hasSets) : m_format(format), m_hasSets(hasSets) {}

    std::string head() const;
    /// Without the separator of JSON. Threads may print rows at the same time.
    std::string row(const EnvelopeRow& row) const;
    /// What stands ahead of a row: in JSON a comma, but for the first row.
    std::string separator(bool isFirst) const;
    std::string tail(bool isEmpty) const;

  private:
    std::string csv(const EnvelopeRow& row) const;
    std::string json(const EnvelopeRow& row) const;

    EnvelopeFormat m_format;
    bool m_hasSets;
};

/// A text as a cell of CSV, in quotes where it needs them.
std::string csvCell(const std::string& text);

} // namespace mrl::cli
