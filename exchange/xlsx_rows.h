#pragma once

/// The rows of a sheet of a workbook while its XML is read.

#include <QXmlStreamReader>

#include "exchange/xlsx_workbook.h"

namespace mrl::exchange {

/// The text of a string item, whose start was read: all its runs, without phonetic hints. Escapes such as _x000D_ are
/// resolved.
std::string readRichText(QXmlStreamReader& xml);

/// A text with its escapes _xHHHH_ resolved, and the other way round for what would be taken for one.
std::string withoutEscapes(std::string escaped);

class RowReader
{
  public:
    RowReader(QXmlStreamReader& xml, const std::vector<std::string>& shared,
              const std::vector<bool>& dateStyles, const std::function<bool(WorkbookRow&)>& take)
        : m_xml(xml), m_shared(shared), m_dateStyles(dateStyles), m_take(take)
    {
    }
    /// @return what is wrong; empty when nothing is
    Message run();

  private:
    enum class CellType { Number, Text, Shared, Truth, Date, Other };
    struct CellHead
    {
        std::size_t column;
        std::size_t style;
        CellType type;
    };

    void beginRow();
    bool endRow();
    void readCell();
    std::size_t columnOf(const QStringRef& reference) const;
    static CellType typeOf(const QStringRef& word);
    CellHead readHead();
    std::string readText();
    std::string sharedText(const std::string& index) const;
    std::string valueOf(CellType type, std::string text) const;
    void fail(const Message& message) const;

    QXmlStreamReader& m_xml;
    const std::vector<std::string>& m_shared;
    const std::vector<bool>& m_dateStyles;
    const std::function<bool(WorkbookRow&)>& m_take;
    WorkbookRow m_row;
    std::size_t m_column = 0; ///< of the next cell that doesn't tell its own
    bool m_isEmpty = true;
    mutable Message m_error;
};

} // namespace mrl::exchange
