#pragma once

/// Values the responses of a file, many at a time.

#include <string>
#include <vector>

#include "cli/combinations.h"
#include "cli/envelope_rows.h"
#include "cli/response_sets.h"
#include "combine/envelope.h"

namespace mrl::cli {

/// Values rows of a file in all situations. One for each thread.
class EnvelopeWorker
{
  public:
    /// All outlive this object.
    EnvelopeWorker(const combine::ResponseFile& file, const std::vector<PlannedSituation>& situations);

    struct Job
    {
        combine::RawResponse raw;
        ResponseSet set; ///< null: nothing is wanted beside it
    };
    /// Both extremes of a row in each situation. @param error what is wrong with the row; stays empty where nothing is
    std::vector<EnvelopeRow> rows(const Job& job, std::string& error);

  private:
    void readSet(const Job& job, std::string& error);
    ExtremeRow extreme(std::size_t situation, combine::Envelope::Direction direction);

    const combine::ResponseFile& m_file;
    const std::vector<PlannedSituation>& m_situations;
    std::vector<combine::Envelope> m_envelopes;
    combine::Response m_response;
    ResponseSet m_set; ///< what m_others was read from
    std::vector<combine::Response> m_others;
    std::vector<std::uint64_t> m_otherRows;
    std::uint64_t m_row = 0;
};

/// Prints the extremes of all rows of a file, in its order.
/// @param file of this name, with a column for every load case
void printEnvelope(const std::string& name, combine::ResponseFile& file,
                   const std::vector<PlannedSituation>& situations, const EnvelopePrinter& printer,
                   bool concurrent);

} // namespace mrl::cli
