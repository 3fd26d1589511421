#pragma once

#include "host/mrl_table.h"

/// How the table layer reaches the private half of the cells.
struct MRL_H_TwCellAccess
{
    /// Bits of a cell's state.
    enum State : quint8 {
        Disabled = 1 << 0,
        TextRed = 1 << 1,
        TextBlack = 1 << 2,
        FirstFlag =
            1 << 3, ///< of the column's first flag role: its bool, and in the next bit whether it was set
        SecondFlag = 1 << 5, ///< the same for the second one
        Unsorted = 1 << 7    ///< the table knows that the cell may stand in the wrong row
    };

    static MRL_H_TwColumn* column(const MRL_H_TwItem& cell) { return cell.m_column; }
    /// Where the cell was last seen, to be verified.
    static int& row(const MRL_H_TwItem& cell) { return cell.m_row; }
    static quint8& state(MRL_H_TwItem& cell) { return cell.m_state; }
    static quint8 state(const MRL_H_TwItem& cell) { return cell.m_state; }
    /// The take of the table's journal that the cell was noted for last.
    static quint16& noted(MRL_H_TwItem& cell) { return cell.m_noted; }
    static QString text(const MRL_H_TwItem& cell) { return cell.shownText(); }
    /// @return true when the value is, or would be, another one; reports nothing
    static bool enterText(MRL_H_TwItem& cell, const QString& text, MRL_H_TwItem::Entry entry)
    {
        return cell.enterText(text, entry);
    }
    /// The same for an entry of a combo list.
    static bool enterId(MRL_H_TwSimpleComboBoxItem& cell, int id, MRL_H_TwItem::Entry entry);
    /// Gives the cell the flags of its enabled state. Tells nobody.
    static void applyFlags(MRL_H_TwItem& cell);
    static double number(const MRL_H_TwSimpleLineEditItem& cell) { return cell.m_number; }

    struct Kept;
};
