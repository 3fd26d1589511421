#pragma once

/// The sets of a file of responses: rows whose values are wanted together.

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "combine/response_file.h"

namespace mrl::cli {

using ResponseSet = std::shared_ptr<const std::vector<combine::RawResponse>>;

/// Knows where the rows of each set stand, and reads a set when a row of it comes up. Keeps the last one only, so that
/// the file may be larger than memory; a set whose rows stand together is read once.
class ResponseSets
{
  public:
    /// Goes through the file once and begins it anew. @param file outlives this object
    explicit ResponseSets(combine::ResponseFile& file);

    /// The rows of the set of a row, itself among them; null where it is in none. The file goes on behind the row.
    ResponseSet of(const combine::RawResponse& row);

  private:
    struct Place
    {
        std::uint64_t position;
        std::uint64_t row;
    };

    combine::ResponseFile& m_file;
    std::map<std::string, std::vector<Place>> m_places;
    std::string m_name;
    ResponseSet m_last;
};

} // namespace mrl::cli
