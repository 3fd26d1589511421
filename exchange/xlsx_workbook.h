#pragma once

/// What a workbook (XLSX) holds besides its rows: sheets, shared strings, which styles show dates.

#include <functional>
#include <string>
#include <vector>

#include "exchange/sheet.h"
#include "exchange/zip_archive.h"

class QXmlStreamReader;

namespace mrl::exchange {

struct WorkbookSheet
{
    std::string name;
    std::string entry; ///< of the zip file
};

/// A row as a sheet has it.
struct WorkbookRow
{
    int number = 0;
    Cells cells;               ///< from column A on; what is missing is empty
    std::vector<bool> isDates; ///< the number of the cell is shown as a date or a time
};

class Workbook
{
  public:
    static constexpr std::size_t MAX_SHARED_BYTES = 256UL * 1024 * 1024;
    static constexpr std::size_t MAX_COLUMNS = 16384;
    static constexpr int MAX_ROWS = 1048576;

    /// @param bytes have to outlive this
    explicit Workbook(std::string_view bytes);

    /// Why the file is no workbook that can be read; empty when it is one.
    const Message& error() const { return m_error; }
    const std::vector<WorkbookSheet>& sheets() const { return m_sheets; }

    /// Reads the rows of a sheet that hold anything, one by one.
    /// @param take its row's strings may be taken. @return false to stop
    /// @return what is wrong; empty when all was read or `take` stopped
    Message readRows(const WorkbookSheet& sheet, const std::function<bool(WorkbookRow&)>& take) const;

  private:
    Message readEntry(const std::string& name, const std::function<Message(QXmlStreamReader&)>& read,
                      bool isNeeded) const;
    Message readSheets();
    Message readSharedStrings(QXmlStreamReader& xml);
    Message readStyles(QXmlStreamReader& xml);

    ZipArchive m_zip;
    Message m_error;
    std::vector<WorkbookSheet> m_sheets;
    std::string m_sharedEntry = "xl/sharedStrings.xml";
    std::string m_stylesEntry = "xl/styles.xml";
    std::vector<std::string> m_shared;
    std::vector<bool> m_dateStyles; ///< by the index of a cell's style
};

} // namespace mrl::exchange
