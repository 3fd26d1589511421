#pragma once

/// The heading of a table that is read: which columns its names mean.

#include <optional>

#include "exchange/format.h"

namespace mrl::exchange {

struct Understood
{
    int count = 0; ///< headings that mean something
    Sheet sheet = Sheet::LoadCases;
};

/// What headings speak of. @param told decides where they leave it open
Understood understoodHeadings(const Cells& headings, const FormatOptions& told);

class Headings
{
  public:
    /// @param receiver is told what each of them was taken for
    /// @return why they head no table
    std::optional<FormatError> read(int line, const Cells& headings, const FormatOptions& told,
                                    TableReceiver& receiver);

    const TableHead& head() const { return m_head; }
    /// The place among the fields of each column of the head.
    const std::vector<std::size_t>& places() const { return m_places; }
    /// The columns that are passed over.
    const std::vector<Message>& notes() const { return m_notes; }

  private:
    TableHead m_head;
    std::vector<std::size_t> m_places;
    std::vector<Message> m_notes;
};

} // namespace mrl::exchange
