#pragma once

/// What a table remembers of its changes, so that they can be taken back and done again as values.
///
/// A host may leave this header's function out: its users can't undo what they do in a manager then, and nothing
/// else depends on it.

#include <QString>

#include <cstddef>
#include <memory>
#include <set>

#include "host/mrl_table.h"

/// What changed in a table between two calls of MRL_H_TableJournal::take. It must not outlive the table's journal
/// other than to be destroyed.
class MRL_HOST_API MRL_H_TableChange
{
  public:
    virtual ~MRL_H_TableChange();
    /// Puts back the values, roles, colours, tool tips and enabled states of the cells, and the rows that went. Rows
    /// that came are taken out and kept. The rows stand as they stood if the table is sorted as it was then, else
    /// as it is sorted now. Emits no signal of the table. Changes are taken back in the reverse of their order.
    virtual void undo() = 0;
    /// Does the change again, in the same way.
    virtual void redo() = 0;
    /// The rows with changed cells, and those that came, as far as they stand in the table now.
    virtual std::set<int> rows() const = 0;
    /// About how much memory it holds.
    virtual std::size_t bytes() const = 0;
};

/// Who is told of what happens in a table.
class MRL_HOST_API MRL_H_TableJournalListener
{
  public:
    enum class Entry { Typed, Pasted, FilledDown };

    virtual ~MRL_H_TableJournalListener();
    /// A person's entry into cells begins; what it changes, also in other tables, is changed before entryEnds.
    /// @param column id of the first cell's column. @param cells how many cells it may reach
    virtual void entryBegins(Entry entry, int column, std::size_t cells) = 0;
    virtual void entryEnds() = 0;
    /// Cells or rows went in a way that can't be taken back: changes taken so far must not be used any more.
    virtual void journalBroken() = 0;
};

/// Records the changes of a table.
class MRL_HOST_API MRL_H_TableJournal
{
  public:
    virtual ~MRL_H_TableJournal();
    /// @param listener null for none; outlives the table or is taken out before it ends
    virtual void setListener(MRL_H_TableJournalListener* listener) = 0;
    /// What has changed since the last call.
    /// @return null when nothing has, or rows only were sorted
    virtual std::unique_ptr<MRL_H_TableChange> take() = 0;
};

/// The journal of a table, which records from the first call on and ends with the table.
MRL_HOST_API MRL_H_TableJournal& mrl_h_table_journal(MRL_H_TableWidget& table) __attribute__((weak));
