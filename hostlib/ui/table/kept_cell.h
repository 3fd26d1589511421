#pragma once

#include "hostlib/ui/table/cell_access.h"

#include <vector>

/// The tool tip and the rare roles of a cell.
struct MRL_H_TwItem::Extra
{
    QString toolTip;
    std::vector<std::pair<int, QVariant>> roles;
};

/// Everything that a cell keeps: value, looks, roles and enabled state.
struct MRL_H_TwCellAccess::Kept
{
    explicit Kept(const MRL_H_TwItem& cell);
    Kept(Kept&&) noexcept = default;
    Kept& operator=(Kept&&) noexcept = default;

    /// Gives the cell what is kept here, and keeps what the cell had. Reports nothing.
    void swapWith(MRL_H_TwItem& cell);
    bool isThatOf(const MRL_H_TwItem& cell) const;
    /// Memory beside this object.
    std::size_t bytes() const;

  private:
    double m_number = 0.0; ///< the id of a choice
    QString m_text;
    std::unique_ptr<MRL_H_TwItem::Extra> m_extra;
    quint8 m_state;
    bool m_own = true;
};
