#pragma once

/// Responses in a file, read one after another, so that the file may be larger than memory.
///
/// CSV: the first line names the columns: the response's name, then the number of a load case each; a column `set` joins
/// rows whose values are wanted together. The separator is what the first line has: a comma, a semicolon or a tab. NPY: a
/// matrix with a row for each response, in rows (C order), of 32 or 64 bits; its rows are named by their number.

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace mrl::combine {

/// A row as it stands in the file. It takes little to get one; to read its numbers is the work of any thread.
struct RawResponse
{
    std::uint64_t row = 0;      ///< 1 and up: the line of a CSV file, the row of a matrix
    std::uint64_t position = 0; ///< in the file, for ResponseFile::at
    std::string bytes;
};

struct Response
{
    std::string name;
    std::string set; ///< empty: wanted alone
    std::vector<double> values;
};

class ResponseFile
{
  public:
    explicit ResponseFile(std::ifstream stream) : m_stream(std::move(stream)) {}
    virtual ~ResponseFile() = default;
    ResponseFile(const ResponseFile&) = delete;
    ResponseFile& operator=(const ResponseFile&) = delete;

    /// The load case of each value.
    const std::vector<int>& numbers() const { return m_numbers; }
    virtual bool hasSets() const { return false; }

    /// Steps to the next row. @return false at the end of the file, or where it ends within a row: see error()
    virtual bool next(RawResponse& raw) = 0;
    /// Goes to a row that was met; the next one follows it.
    bool at(std::uint64_t position, std::uint64_t row, RawResponse& raw);
    /// Begins anew.
    void rewind();
    const std::string& error() const { return m_error; }
    /// How much of the file was read, from 0 to 1.
    double progress() const { return m_size == 0 ? 1.0 : double(m_position) / double(m_size); }

    /// Reads name and numbers of a row. Threads may do so at the same time.
    /// @return what is wrong, with row and column; empty: nothing
    virtual std::string read(const RawResponse& raw, Response& response) const = 0;
    /// The set of a row; no other cell is looked at.
    virtual std::string setOf(const RawResponse&) const { return {}; }

  protected:
    std::ifstream m_stream;
    std::vector<int> m_numbers;
    std::string m_error;
    std::uint64_t m_begin = 0;    ///< position of the first row
    std::uint64_t m_position = 0; ///< of the next row
    std::uint64_t m_row = 0;      ///< that was read last
    std::uint64_t m_firstRow = 1;
    std::uint64_t m_size = 0; ///< of the file
};

/// A file, or what is wrong with it.
using OpenedResponses = std::variant<std::unique_ptr<ResponseFile>, std::string>;

/// Opens a file of responses: NPY when it begins as one, else CSV.
/// @param numbers of NPY: a text file with the load case of each column, with blanks, commas or line ends between them;
///                empty for CSV
/// @return errors without the file's name, but for those of `numbers`
OpenedResponses openResponses(const std::string& file, const std::string& numbers = {});

/// The place of a value in words: "row 7, load case 12".
std::string responsePlace(std::uint64_t row, int number);

} // namespace mrl::combine
