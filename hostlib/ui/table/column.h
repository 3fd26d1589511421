#pragma once

/// What the cells of a column share with its header.

#include <QHash>
#include <QSet>

#include <array>
#include <vector>

#include "host/mrl_table.h"

struct MRL_H_TwColumn
{
    enum class Kind { Text, Whole, Factor, Combo };

    int references = 0;
    Kind kind = Kind::Text;
    int id = -1;
    int position = -1; ///< logical column in `table`
    bool enabled = true;
    Qt::Alignment alignment = Qt::AlignLeft;
    MRL_H_TableWidget* table = nullptr; ///< null until the header is installed, and after the table's end
    StructLineEdit description;
    std::vector<ComboList> entries;
    QHash<int, int> entryOfId; ///< the first entry with the id

    bool isNumber() const { return kind == Kind::Whole || kind == Kind::Factor; }
    void setEntries(const std::list<ComboList>& list);
    /// The text that stands for an id: the entry's, or the number itself.
    QString textOfId(int id) const;
    QHash<int, QString> textsById() const;
    /// The ids whose text is another one than before.
    QSet<int> idsOfOtherText(const QHash<int, QString>& before) const;
    /// The first entry with this text, exactly, else without regard to blanks around it and case. Null for
    /// none.
    const ComboList* entryOfText(const QString& text) const;
    /// A number's text as the column shows it.
    QString numberText(double number) const;
    /// True when the description allows the number.
    bool allows(double number) const;
    /// The value as the column keeps it: a factor in single precision, a whole number exactly.
    double kept(double number) const;

    static MRL_H_TwColumn* acquire(MRL_H_TwColumn* column)
    {
        if (column != nullptr) {
            ++column->references;
        }
        return column;
    }
    static void release(MRL_H_TwColumn* column)
    {
        if (column != nullptr && --column->references == 0) {
            delete column; // the last of the header and the cells that count themselves in here
        }
    }

  private:
    struct Worded
    {
        double number = 0.0;
        QString text; ///< null: nothing was worded yet
    };
    /// The texts of factors that were asked for last, each at its own place: a column has few different ones.
    mutable std::array<Worded, 32> m_worded;
};

struct MRL_H_TwItem::Extra
{
    QString toolTip;
    std::vector<std::pair<int, QVariant>> roles;
};

/// The table's and the delegate's door to the private half of the cells.
struct MRL_H_TwCellAccess
{
    /// Bits of a cell's state.
    enum State : quint8 {
        Disabled = 1 << 0,
        TextRed = 1 << 1,
        TextBlack = 1 << 2,
        RowValid = 1 << 3, ///< ROLE_ROW_VALID
        RowValidKnown = 1 << 4,
        FromAction = 1 << 5, ///< ROLE_FROM_ACTION
        FromActionKnown = 1 << 6,
        Unsorted = 1 << 7 ///< the table knows that the cell may stand in the wrong row
    };
    static MRL_H_TwColumn* column(const MRL_H_TwItem& cell) { return cell.m_column; }
    static int& row(const MRL_H_TwItem& cell) { return cell.m_row; }
    static quint8& state(MRL_H_TwItem& cell) { return cell.m_state; }
    static quint8 state(const MRL_H_TwItem& cell) { return cell.m_state; }
    static QString text(const MRL_H_TwItem& cell) { return cell.shownText(); }
    static bool enterText(MRL_H_TwItem& cell, const QString& text, bool dryRun)
    {
        return cell.enterText(text, dryRun);
    }
    static void applyFlags(MRL_H_TwItem& cell);
    static double number(const MRL_H_TwSimpleLineEditItem& cell) { return cell.m_number; }
    static const QString& ownText(const MRL_H_TwSimpleLineEditItem& cell) { return cell.m_text; }
    /// @return true when the id was another one; reports nothing
    static bool enterId(MRL_H_TwSimpleComboBoxItem& cell, int id)
    {
        const bool other = cell.m_id != id;
        cell.m_id = id;
        return other;
    }
};
