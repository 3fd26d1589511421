#pragma once

class TableLoadCases;

/// Removes the selected rows and selects the row that followed them, or the new last one.
void removeSelectedRows(TableLoadCases* table);
