#include "hostlib/ui/table/cell_pool.h"

#include <algorithm>
#include <array>

#include "host/mrl_table.h"

namespace {

constexpr std::size_t CELLS_OF_A_BLOCK = 1024;
constexpr std::size_t ALIGNMENT = alignof(std::max_align_t);
constexpr std::size_t LARGEST_CELL = 192;

// Under the address sanitizer each cell has a place of its own, so that it sees who uses a dead one.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool POOLED = false;
#else
constexpr bool POOLED = true;
#endif

/// The pool for cells of a size. Lives as long as the process: tables may be static objects too.
mrl::table::CellPool& poolFor(std::size_t size)
{
    static auto* const POOLS = [] {
        auto* made = new std::array<std::unique_ptr<mrl::table::CellPool>, LARGEST_CELL / ALIGNMENT + 1>;
        for (std::size_t i = 0; i < made->size(); ++i) {
            (*made)[i] = std::make_unique<mrl::table::CellPool>(i * ALIGNMENT);
        }
        return made; // never deleted, see above
    }();
    return *(*POOLS)[(size + ALIGNMENT - 1) / ALIGNMENT];
}

} // namespace

namespace mrl::table {

void* CellPool::take()
{
    ++m_live;
    if (m_free != nullptr) {
        FreeCell* cell = m_free;
        m_free = cell->next;
        return cell;
    }
    if (m_unused == m_unusedEnd) {
        const std::size_t size = CELLS_OF_A_BLOCK * m_cellSize;
        m_blocks.emplace_back(new std::byte[size]); // make_unique would write the block full of zeros
        m_unused = m_blocks.back().get();
        m_unusedEnd = m_unused + size;
    }
    void* cell = m_unused;
    m_unused += m_cellSize;
    return cell;
}

void CellPool::giveBack(void* cell)
{
    if (--m_live > 0) {
        m_free = new (cell) FreeCell{m_free};
        return;
    }
    m_free = nullptr;
    m_unused = nullptr;
    m_unusedEnd = nullptr;
    m_blocks.clear();
}

} // namespace mrl::table

void* MRL_H_TwItem::operator new(std::size_t size)
{
    return POOLED && size <= LARGEST_CELL ? poolFor(size).take() : ::operator new(size);
}

void MRL_H_TwItem::operator delete(void* cell, std::size_t size)
{
    if (!POOLED || size > LARGEST_CELL) {
        ::operator delete(cell);
    } else if (cell != nullptr) {
        poolFor(size).giveBack(cell);
    }
}
