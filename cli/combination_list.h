#pragma once

/// The combinations that a command lists: all of a situation, or those that govern a response.

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "cli/arguments.h"
#include "cli/combinations.h"

namespace mrl::cli {

/// The options that say which combinations are meant.
struct CombinationOptions
{
    std::optional<std::string> situation;
    std::optional<int> limit;
    std::optional<std::string> keep;
    std::optional<std::string> numbers;

    /// --situation, --limit, --keep, --numbers
    void declare(Arguments& args);
    bool isGiven() const { return situation || limit || keep || numbers; }
    PlannedSituation plan(const Combinations& combinations) const;
};

class CombinationList
{
  public:
    /// Counts or reads the responses. More combinations than the limit are thrown as a Failure.
    /// @param file the project, for messages
    /// @param planned outlives this object
    CombinationList(const std::string& file, const CombinationOptions& options,
                    const Combinations& combinations, const PlannedSituation& planned);

    /// Tells each combination; the same ones each time.
    void tell(const std::function<void(const combine::Combination&)>& visit) const;

  private:
    const PlannedSituation& m_planned;
    combine::BigInt m_count;
    std::optional<std::vector<combine::Combination>> m_governing; ///< nothing: all of the situation
};

} // namespace mrl::cli
