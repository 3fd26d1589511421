#pragma once

#include <QHash>
#include <QSet>

#include <array>
#include <vector>

#include "host/mrl_table.h"

/// What the cells of a column share with its header.
struct MRL_H_TwColumn
{
    /// So many user roles of a cell may hold a bool in two bits of its state.
    static constexpr int FLAG_ROLES = 2;

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
    /// The first user roles that a cell of this column was given a bool in; 0: not taken yet.
    std::array<int, FLAG_ROLES> flagRoles{};

    bool isNumber() const { return kind == Kind::Whole || kind == Kind::Factor; }
    void setEntries(const std::list<ComboList>& list);
    /// The text that stands for an id: the entry's, or the number itself.
    QString textOfId(int id) const;
    QHash<int, QString> textsById() const;
    /// The ids whose text is another one than before.
    QSet<int> idsOfOtherText(const QHash<int, QString>& before) const;
    /// The first entry with exactly this text, else with this text but for case and blanks around it; or null.
    const ComboList* entryOfText(const QString& text) const;
    /// The place of a role among the flag roles, -1 when it is none.
    int flagOfRole(int role) const;
    /// The same, and a user role becomes one where a place is left.
    int takeFlag(int role);
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
