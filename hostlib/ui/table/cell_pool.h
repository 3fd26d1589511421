#pragma once

/// Memory of the cells: blocks of cells of one size. Giving half a million cells back to the general heap one
/// by one costs more than making them did, as it joins the neighbours of each again.

#include <cstddef>
#include <memory>
#include <vector>

#include "host/mrl_export.h"

namespace mrl::table {

/// For one thread, the one of the user interface. The blocks go back to the heap with the last cell.
class MRL_HOST_API CellPool
{
  public:
    /// @param cellSize bytes of a cell, at least a pointer's
    explicit CellPool(std::size_t cellSize) : m_cellSize(cellSize) {}
    CellPool(const CellPool&) = delete;
    CellPool& operator=(const CellPool&) = delete;

    void* take();
    void giveBack(void* cell);
    std::size_t blocks() const { return m_blocks.size(); }

  private:
    struct FreeCell
    {
        FreeCell* next;
    };

    std::size_t m_cellSize;
    std::size_t m_live = 0;
    FreeCell* m_free = nullptr;    ///< a list through the free cells of the blocks
    std::byte* m_unused = nullptr; ///< the part of the last block that was never given out
    std::byte* m_unusedEnd = nullptr;
    std::vector<std::unique_ptr<std::byte[]>> m_blocks;
};

} // namespace mrl::table
