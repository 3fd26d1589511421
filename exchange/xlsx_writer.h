#pragma once

/// Writing workbooks (XLSX) row by row.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "exchange/format.h"

namespace mrl::exchange {

/// What a column of a sheet looks like.
struct WorkbookColumn
{
    std::string heading;
    double width = 10.0;   ///< in characters
    bool isNumber = false; ///< its cells are numbers where they are one
};

/// A workbook that is written sheet by sheet and row by row; rows that are finished leave the memory.
class WorkbookWriter
{
  public:
    WorkbookWriter();
    ~WorkbookWriter();
    WorkbookWriter(const WorkbookWriter&) = delete;
    WorkbookWriter& operator=(const WorkbookWriter&) = delete;

    /// Begins a sheet with a heading that stays in sight and, where wanted, filters.
    void beginSheet(const std::string& name, const std::vector<WorkbookColumn>& columns, bool hasFilters);
    void addRow(const Cells& cells);
    /// Offers the values of a range for a column of the present sheet; others may be typed.
    void offer(std::size_t column, const std::string& range);
    /// Ends the file and hands it on.
    std::optional<FormatError> finish(const Sink& sink);

  private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace mrl::exchange
