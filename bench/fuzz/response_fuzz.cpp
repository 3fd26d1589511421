#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include <sys/mman.h>
#include <unistd.h>

#include "combine/response_file.h"

// An input is a file of responses: NPY where it begins as one, with three load cases then, else CSV. Whatever it holds, reading
// ends with values or a reason: each row has a finite value for each load case or says what is wrong, and a row that was met
// can be gone to again.

namespace {

/// A file in memory with a name that can be opened.
class File
{
  public:
    explicit File(std::string_view bytes) : m_descriptor(memfd_create("responses", 0))
    {
        if (write(m_descriptor, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
            std::abort();
        }
    }
    ~File() { close(m_descriptor); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::string name() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

  private:
    int m_descriptor;
};

void require(bool kept)
{
    if (!kept) {
        std::abort();
    }
}

void readRow(mrl::combine::ResponseFile& file, const mrl::combine::RawResponse& raw)
{
    mrl::combine::Response response;
    file.setOf(raw);
    if (!file.read(raw, response).empty()) {
        return;
    }
    require(response.values.size() == file.numbers().size());
    for (const double value : response.values) {
        require(std::isfinite(value));
    }
}

void readAll(mrl::combine::ResponseFile& file, std::size_t size)
{
    mrl::combine::RawResponse raw;
    mrl::combine::RawResponse first;
    std::size_t rows = 0;
    while (file.next(raw)) {
        require(++rows <= size + 1); // no row comes from nothing
        if (rows == 1) {
            first = raw;
        }
        readRow(file, raw);
    }
    if (rows > 0) {
        require(file.at(first.position, first.row, raw) && raw.bytes == first.bytes);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const File NUMBERS("1 2 3");
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const bool isMatrix = bytes.substr(0, 6) == "\x93NUMPY";
    const File file(bytes);
    const auto opened = mrl::combine::openResponses(file.name(), isMatrix ? NUMBERS.name() : std::string());
    if (const auto* error = std::get_if<std::string>(&opened)) {
        require(!error->empty());
    } else {
        readAll(*std::get<std::unique_ptr<mrl::combine::ResponseFile>>(opened), size);
    }
    return 0;
}
