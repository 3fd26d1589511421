#pragma once

class QTableView;

namespace mrl::workbench {

/// Gives a read-only table the commands "Copy" and "Copy with headings", by key and in its context menu. Both take the
/// columns in sight of the selected rows, as text for spreadsheets and as a table for word processors.
void addCopyCommands(QTableView& table);

} // namespace mrl::workbench
