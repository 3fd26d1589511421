#pragma once

/// What a format of files is to the rest: it writes sheets of a project and reads neutral tables.

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "exchange/combination_table.h"
#include "exchange/sheet.h"

namespace mrl::exchange {

/// How a file is written, or what the caller knows of one that is read; 0 and empty: the default, or to be found
/// out.
struct FormatOptions
{
    char separator = 0;
    char decimalSign = 0;       ///< '.' or ','
    std::string encoding;       ///< see text_decoding.h
    std::string version;        ///< of a format that has several; empty: the newest
    std::optional<Sheet> sheet; ///< what a file of one sheet holds that doesn't tell
    /// Headings whose column was told by hand: its name, empty for one that is to be passed over.
    std::map<std::string, std::string> columns;
    bool byTitle = false; ///< a table of load cases may have titles in place of numbers
};

/// Takes a piece of the file. @return false when it can't be written
using Sink = std::function<bool(std::string_view)>;

/// What is written.
struct Source
{
    int db = -1;      ///< an open database
    std::string name; ///< of the project
    std::vector<Sheet> sheets;
    /// The whole project is meant: a format that can hold records of other modules and facts writes these too.
    bool whole = false;
    std::map<std::string, std::string> facts; ///< of the project, which the caller reads from its host
};

/// Why a file could not be read or written, with the place.
struct FormatError
{
    Message message;
};

/// A heading of a file and what it was taken for.
struct FoundHeading
{
    std::string text;
    int column = -1; ///< its place among columnsOf(); -1: it is passed over
};

/// How the text of a file is written.
struct TextForm
{
    std::string encoding;
    char separator = 0;
    char decimalSign = 0;
};

/// Takes tables row by row while a file is read.
class TableReceiver
{
  public:
    TableReceiver() = default;
    virtual ~TableReceiver() = default;
    TableReceiver(const TableReceiver&) = delete;
    TableReceiver& operator=(const TableReceiver&) = delete;

    /// The rows that follow are of this table.
    virtual void begin(const TableHead& head) = 0;
    /// @param row its strings may be taken
    virtual void take(Row& row) = 0;
    /// What was found out or passed over.
    virtual void note(const Message& message) = 0;
    /// All headings of a table, also of one that can't be read for want of some.
    virtual void headings(Sheet, const std::vector<FoundHeading>&) {}
    virtual void form(const TextForm&) {}
};

class Format
{
  public:
    Format() = default;
    virtual ~Format() = default;
    Format(const Format&) = delete;
    Format& operator=(const Format&) = delete;

    virtual std::string name() const = 0;    ///< the word of --format
    virtual Message description() const = 0; ///< for a person
    virtual std::vector<std::string> suffixes() const = 0;
    virtual bool holdsManySheets() const = 0;
    /// Whether separator, decimal sign and encoding can be told.
    virtual bool isText() const { return false; }
    /// The versions that can be written, the newest one last; none for a format without versions.
    virtual std::vector<std::string> versions() const { return {}; }
    /// Whether a file is of this format beyond doubt.
    virtual bool recognises(std::string_view file) const = 0;

    /// What a file of this format would not tell of a project; none unless a format says so.
    virtual std::vector<Message> losses(const Source&) const { return {}; }

    /// @return nothing when all was written
    virtual std::optional<FormatError> write(const Source& source, const FormatOptions& options,
                                             const Sink& sink) const = 0;
    /// Writes combinations in place of the project's sheets. A format that names load cases by more than their
    /// numbers also writes these.
    virtual std::optional<FormatError> writeCombinations(const Source& source, const CombinationTable& table,
                                                         const FormatOptions& options,
                                                         const Sink& sink) const = 0;
    /// @param bytes the whole file
    /// @return nothing when all was read; what was received before an error counts for nothing
    virtual std::optional<FormatError> read(std::string_view bytes, const FormatOptions& options,
                                            TableReceiver& receiver) const = 0;
};

/// All formats, in the order of the help. A new one is a file of its own and a line in formats.cpp.
const std::vector<std::unique_ptr<Format>>& formats();

/// The format of a word; null for one that is none.
const Format* formatOfName(std::string_view name);

/// The format of a file: by its content, else by its suffix; null when neither tells.
/// @param file its bytes; empty for one that is to be written
const Format* formatOfFile(const std::string& fileName, std::string_view file);

struct ReadTables
{
    std::vector<Table> tables;
    std::vector<Message> notes;
    std::vector<std::pair<Sheet, std::vector<FoundHeading>>> headings;
    TextForm form;
};

/// Collects what is read.
class TableCollector : public TableReceiver
{
  public:
    void begin(const TableHead& head) override { m_read.tables.push_back({head, {}}); }
    void take(Row& row) override { m_read.tables.back().rows.push_back(std::move(row)); }
    void note(const Message& message) override { m_read.notes.push_back(message); }
    void headings(Sheet sheet, const std::vector<FoundHeading>& found) override
    {
        m_read.headings.emplace_back(sheet, found);
    }
    void form(const TextForm& found) override { m_read.form = found; }

    /// What was received; after an error as far as it came.
    ReadTables& tables() { return m_read; }

  private:
    ReadTables m_read;
};

/// Reads a whole file into tables.
std::variant<ReadTables, FormatError> readTables(const Format& format, std::string_view bytes,
                                                 const FormatOptions& options);

/// The greatest file that is read, in bytes.
constexpr long long MAX_FILE_BYTES = 256LL * 1024 * 1024;

} // namespace mrl::exchange
