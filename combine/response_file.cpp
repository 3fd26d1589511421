#include "combine/response_file.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <iterator>

#include "combine/response_readers.h"
#include "lcdata/values/keys.h"

namespace mrl::combine {

namespace {

constexpr char NPY_MAGIC[] = "\x93NUMPY";
constexpr std::size_t MAGIC_BYTES = 6;

std::string reasonOfErrno() { return errno == 0 ? "it can't be read" : std::strerror(errno); }

/// The numbers of a list, or what is wrong with it.
std::variant<std::vector<int>, std::string> readNumbers(const std::string& file)
{
    errno = 0;
    std::ifstream stream(file);
    if (!stream) {
        return file + ": " + reasonOfErrno();
    }
    std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == ',' || c == ';' || c == '\t' || c == '\r'; }, ' ');
    std::replace(text.begin(), text.end(), '\n', ' ');
    std::vector<int> numbers;
    for (std::size_t at = text.find_first_not_of(' '); at != std::string::npos;) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        const std::string word = text.substr(at, end - at);
        numbers.push_back(loadCaseNumber(word));
        if (numbers.back() == 0) {
            return std::string(file).append(": '").append(word).append("' is no load-case number");
        }
        at = text.find_first_not_of(' ', end);
    }
    if (const int number = repeatedNumber(numbers); number != 0) {
        return file + ": load case " + std::to_string(number) + " stands twice";
    }
    return numbers;
}

} // namespace

int loadCaseNumber(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber && number >= 1 && number <= LC_MAX_NUMBER ? number : 0;
}

int repeatedNumber(std::vector<int> numbers)
{
    std::sort(numbers.begin(), numbers.end());
    const auto twice = std::adjacent_find(numbers.begin(), numbers.end());
    return twice == numbers.end() ? 0 : *twice;
}

std::string responsePlace(std::uint64_t row, int number)
{
    return "row " + std::to_string(row) + ", load case " + std::to_string(number);
}

bool ResponseFile::at(std::uint64_t position, std::uint64_t row, RawResponse& raw)
{
    m_stream.clear();
    m_stream.seekg(static_cast<std::streamoff>(position));
    m_position = position;
    m_row = row - 1;
    return next(raw);
}

void ResponseFile::rewind()
{
    m_stream.clear();
    m_stream.seekg(static_cast<std::streamoff>(m_begin));
    m_position = m_begin;
    m_row = m_firstRow - 1;
}

OpenedResponses openResponses(const std::string& file, const std::string& numbers)
{
    errno = 0;
    std::ifstream stream(file, std::ios::binary);
    char magic[MAGIC_BYTES] = {};
    if (!stream || (stream.peek() == std::ifstream::traits_type::eof() && stream.bad())) {
        return reasonOfErrno();
    }
    stream.clear();
    stream.read(magic, MAGIC_BYTES);
    const bool isNpy = stream && std::memcmp(magic, NPY_MAGIC, MAGIC_BYTES) == 0;
    stream.clear();
    stream.seekg(0);
    if (isNpy == numbers.empty()) {
        return std::string(isNpy ? "a matrix needs the load cases of its columns: --numbers FILE"
                                 : "it is no NPY file; --numbers goes with one");
    }
    if (!isNpy) {
        return openCsv(std::move(stream));
    }
    auto list = readNumbers(numbers);
    if (const auto* error = std::get_if<std::string>(&list)) {
        return *error;
    }
    return openNpy(std::move(stream), std::get<std::vector<int>>(std::move(list)));
}

} // namespace mrl::combine
