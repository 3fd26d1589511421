#include "hostlib/ui/table/kept_cell.h"

#include <cstring>
#include <utility>

namespace {

/// Bits of a cell's state that the table keeps for itself.
constexpr quint8 OF_THE_TABLE = MRL_H_TwCellAccess::Unsorted;

/// The same bits, so that two undefined numbers are the same.
bool sameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

} // namespace

MRL_H_TwCellAccess::Kept::Kept(const MRL_H_TwItem& cell)
    : m_extra(cell.m_extra ? std::make_unique<MRL_H_TwItem::Extra>(*cell.m_extra) : nullptr),
      m_state(cell.m_state)
{
    if (const auto* line = MRL_H_TwSimpleLineEditItem::fromItem(&cell)) {
        m_number = line->m_number;
        m_text = line->m_text;
    }
    if (const auto* choice = MRL_H_TwSimpleComboBoxItem::fromItem(&cell)) {
        m_number = choice->m_id;
    }
    if (const auto* editable = MRL_H_TwEditableComboBoxItem::fromItem(&cell)) {
        m_own = editable->m_own;
    }
}

void MRL_H_TwCellAccess::Kept::swapWith(MRL_H_TwItem& cell)
{
    if (auto* line = MRL_H_TwSimpleLineEditItem::fromItem(&cell)) {
        std::swap(m_number, line->m_number);
        std::swap(m_text, line->m_text);
    }
    if (auto* choice = MRL_H_TwSimpleComboBoxItem::fromItem(&cell)) {
        const int id = choice->m_id;
        choice->m_id = static_cast<int>(m_number);
        m_number = id;
    }
    if (auto* editable = MRL_H_TwEditableComboBoxItem::fromItem(&cell)) {
        std::swap(m_own, editable->m_own);
        editable->m_showNext = false;
    }
    std::swap(m_extra, cell.m_extra);
    const quint8 state = cell.m_state;
    cell.m_state = static_cast<quint8>((m_state & ~OF_THE_TABLE) | (state & OF_THE_TABLE));
    m_state = state;
    if (((cell.m_state ^ state) & Disabled) != 0) {
        applyFlags(cell);
    }
}

bool MRL_H_TwCellAccess::Kept::isThatOf(const MRL_H_TwItem& cell) const
{
    const Kept now(cell);
    const bool sameExtra = m_extra && now.m_extra ? m_extra->toolTip == now.m_extra->toolTip &&
                                                        m_extra->roles == now.m_extra->roles
                                                  : !m_extra && !now.m_extra;
    return sameExtra && sameBits(m_number, now.m_number) && m_text == now.m_text && m_own == now.m_own &&
           ((m_state ^ now.m_state) & ~OF_THE_TABLE) == 0;
}

std::size_t MRL_H_TwCellAccess::Kept::bytes() const
{
    constexpr std::size_t BLOCK = 32; // about what an allocation costs beside its contents
    const std::size_t text = m_text.isEmpty() ? 0 : BLOCK + 2 * static_cast<std::size_t>(m_text.size());
    return text + (m_extra ? 2 * BLOCK + sizeof(MRL_H_TwItem::Extra) : 0);
}
