#include "cli/response_sets.h"

namespace mrl::cli {

using combine::RawResponse;

ResponseSets::ResponseSets(combine::ResponseFile& file) : m_file(file)
{
    for (RawResponse raw; m_file.next(raw);) {
        if (const std::string name = m_file.setOf(raw); !name.empty()) {
            m_places[name].push_back({raw.position, raw.row});
        }
    }
    m_file.rewind();
}

ResponseSet ResponseSets::of(const RawResponse& row)
{
    const std::string name = m_file.setOf(row);
    if (name.empty() || name == m_name) {
        return name.empty() ? nullptr : m_last;
    }
    auto rows = std::make_shared<std::vector<RawResponse>>();
    RawResponse raw;
    for (const Place& place : m_places[name]) {
        if (m_file.at(place.position, place.row, raw)) {
            rows->push_back(raw);
        }
    }
    m_file.at(row.position, row.row, raw);
    m_name = name;
    m_last = std::move(rows);
    return m_last;
}

} // namespace mrl::cli
