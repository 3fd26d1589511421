#pragma once

#include <QString>

#include <optional>
#include <set>
#include <vector>

#include "workbench/document_history.h"

namespace mrl::workbench {

/// A line of a list of changes: a value of a record, or a whole record that is new or gone.
struct ShownChange
{
    QString subject; ///< "Load case 12"
    QString value;   ///< the column, or "new", "deleted"
    QString before;
    QString after;
    QString note; ///< that nobody edited the record
};

/// @param edited keys of the records that somebody edited; nothing where that isn't known
std::vector<ShownChange> shownChanges(const std::vector<DocumentHistory::Change>& changes,
                                      const std::optional<DocumentHistory::Keys>& edited);

/// How many records of a list of changes nobody edited.
int rewrittenCount(const std::vector<DocumentHistory::Change>& changes, const DocumentHistory::Keys& edited);

/// Where two databases differ, as changes from the one to the other.
std::vector<DocumentHistory::Change> changesBetween(int before, int after);

} // namespace mrl::workbench
