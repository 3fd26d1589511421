#pragma once

/// Pasting with the help of somebody who knows what the rows mean.
///
/// A host may leave this header's function out: pasting then enters what fits and tells nothing.

#include <QString>
#include <QStringList>

#include <vector>

#include "host/mrl_table.h"

/// A pasted value that was not taken.
struct MRL_H_RefusedValue
{
    int row = -1;    ///< -1: there is no row for it
    int column = -1; ///< id of the column; -1: there is no column for it
    QString text;
    QString reason;
};

/// Where a pasted line goes that the table had no row for.
struct MRL_H_NewRow
{
    int row = -1;   ///< -1: nowhere
    QString reason; ///< why
};

/// Who takes part in the pastes of a table.
class MRL_HOST_API MRL_H_PasteHelper
{
  public:
    virtual ~MRL_H_PasteHelper();
    /// A paste begins. The rows have to keep their places until it ends.
    virtual void begin() = 0;
    /// Makes rows for the lines that the table has none for, behind all others.
    /// @param columns ids of the columns that the fields of a line go to
    /// @return an entry for each line
    virtual std::vector<MRL_H_NewRow> makeRows(const std::vector<QStringList>& lines,
                                               const std::vector<int>& columns) = 0;
    /// What a text means in a column.
    /// @param text [in, out] as it is to be entered
    /// @return why it can't be taken; empty when it may be
    virtual QString understand(int column, QString& text) const = 0;
    /// The paste is over, and the rows may move.
    /// @param values how many there were
    virtual void end(int values, const std::vector<MRL_H_RefusedValue>& refused) = 0;
};

/// From now on pasting asks the helper, and whatever it doesn't take is told. An empty text means nothing in a column
/// of numbers. @param helper null for none; outlives the table or is taken out before it ends
MRL_HOST_API void mrl_h_set_paste_helper(MRL_H_TableWidget& table, MRL_H_PasteHelper* helper)
    __attribute__((weak));
