#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

#include "combine/response_readers.h"

namespace mrl::combine {

namespace {

constexpr std::size_t MAGIC_BYTES = 8; // with the two of the version
constexpr std::size_t MOST_HEAD_BYTES = 1 << 20;

/// What stands behind a key of the head, up to the next comma that isn't within brackets.
std::string entry(const std::string& head, const std::string& key)
{
    const std::size_t at = head.find("'" + key + "'");
    const std::size_t colon = at == std::string::npos ? at : head.find(':', at);
    if (colon == std::string::npos) {
        return {};
    }
    const std::size_t first = std::min(head.find_first_not_of(' ', colon + 1), head.size());
    const bool isTuple = head[first] == '(';
    const std::size_t end = isTuple ? head.find(')', first) + 1 : head.find_first_of(",}", first);
    return head.substr(first, end - first);
}

class NpyFile : public ResponseFile
{
  public:
    NpyFile(std::ifstream stream, std::vector<int> numbers) : ResponseFile(std::move(stream))
    {
        m_numbers = std::move(numbers);
    }

    /// Reads the head. @return what is wrong with it; empty: nothing
    std::string open();

    bool next(RawResponse& raw) override;
    std::string read(const RawResponse& raw, Response& response) const override;

  private:
    bool readHead(std::string& head);
    std::string readShape(const std::string& shape);

    std::uint64_t m_rows = 0;
    std::size_t m_bytes = sizeof(double); // of a number
};

/// The head is a dictionary in the notation of Python behind its length.
bool NpyFile::readHead(std::string& head)
{
    unsigned char start[MAGIC_BYTES + 4] = {};
    const auto read = [&](void* to, std::size_t count) {
        m_stream.read(static_cast<char*>(to), static_cast<std::streamsize>(count));
        return static_cast<bool>(m_stream);
    };
    if (!read(start, MAGIC_BYTES)) {
        return false;
    }
    const std::size_t lengthBytes = start[MAGIC_BYTES - 2] == 1 ? 2 : 4;
    if (!read(start + MAGIC_BYTES, lengthBytes)) {
        return false;
    }
    std::size_t length = 0;
    for (std::size_t i = lengthBytes; i > 0; --i) {
        length = length * 256 + start[MAGIC_BYTES + i - 1];
    }
    if (length > MOST_HEAD_BYTES) {
        return false;
    }
    head.resize(length);
    m_begin = m_position = MAGIC_BYTES + lengthBytes + length;
    return read(head.data(), length);
}

std::string NpyFile::readShape(const std::string& shape)
{
    std::vector<std::uint64_t> sizes;
    for (std::size_t at = 0; (at = shape.find_first_of("0123456789", at)) != std::string::npos;) {
        std::uint64_t size = 0;
        const auto end = std::from_chars(shape.data() + at, shape.data() + shape.size(), size);
        sizes.push_back(size);
        at = static_cast<std::size_t>(end.ptr - shape.data());
    }
    if (sizes.size() != 2 || sizes[1] != m_numbers.size()) {
        return "its shape is " + shape + ", and not responses times the " + std::to_string(m_numbers.size()) +
               " load cases of --numbers";
    }
    m_rows = sizes[0];
    const std::uint64_t data = m_size > m_begin ? m_size - m_begin : 0;
    const std::uint64_t row = m_bytes * std::max<std::uint64_t>(sizes[1], 1);
    return data / row < m_rows ? "it ends before its last row" : "";
}

std::string NpyFile::open()
{
    m_stream.seekg(0, std::ios::end);
    m_size = static_cast<std::uint64_t>(m_stream.tellg());
    m_stream.seekg(0);
    std::string head;
    if (!readHead(head)) {
        return "it ends within its head";
    }
    const std::string kind = entry(head, "descr");
    if (kind != "'<f8'" && kind != "'<f4'") {
        return "its numbers are " + kind + "; '<f8' and '<f4' can be read";
    }
    m_bytes = kind == "'<f4'" ? sizeof(float) : sizeof(double);
    if (entry(head, "fortran_order") != "False") {
        return "it stands column by column; numpy.ascontiguousarray turns it";
    }
    return readShape(entry(head, "shape"));
}

bool NpyFile::next(RawResponse& raw)
{
    if (m_row == m_rows) {
        return false;
    }
    raw.bytes.resize(m_bytes * m_numbers.size());
    m_stream.read(raw.bytes.data(), static_cast<std::streamsize>(raw.bytes.size()));
    raw.row = ++m_row;
    raw.position = m_position;
    m_position += raw.bytes.size();
    m_error = m_stream ? "" : "it can't be read to its end";
    return m_error.empty();
}

std::string NpyFile::read(const RawResponse& raw, Response& response) const
{
    response.name = std::to_string(raw.row);
    response.set.clear();
    response.values.resize(m_numbers.size());
    for (std::size_t i = 0; i < m_numbers.size(); ++i) {
        double& value = response.values[i];
        if (m_bytes == sizeof value) {
            std::memcpy(&value, raw.bytes.data() + i * m_bytes, m_bytes);
        } else {
            float single = 0;
            std::memcpy(&single, raw.bytes.data() + i * m_bytes, m_bytes);
            value = static_cast<double>(single);
        }
        if (!std::isfinite(value)) {
            return responsePlace(raw.row, m_numbers[i]) + " (column " + std::to_string(i + 1) +
                   "): the number is not finite";
        }
    }
    return {};
}

} // namespace

OpenedResponses openNpy(std::ifstream stream, std::vector<int> numbers)
{
    auto file = std::make_unique<NpyFile>(std::move(stream), std::move(numbers));
    std::string error = file->open();
    if (!error.empty()) {
        return error;
    }
    return file;
}

} // namespace mrl::combine
