#pragma once

#include <QStringList>

#include "history/step.h"

namespace mrl::test {

/// Whether the places of rows count, or only what they hold: rows of equal values may change places when a table is
/// sorted anew.
enum class Places { Count, DontCount };

/// Everything that a step puts back, as text: each cell with its value, id, enabled state, colour, tool tip and
/// roles, the selection, the current cell, the tab in front, the list of actions, the tree, numbers, notes of copies.
QStringList snapshotOf(const LCM_HistoryTabs& tabs, Places places = Places::Count);

} // namespace mrl::test
