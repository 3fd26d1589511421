#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "lcdata/values/packed_text.h"

// An input is a size (one byte), a title field of 68 bytes as any module may have filled it, and a text.

namespace {

void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// A buffer of exactly the size that is named: one byte too many is seen.
void convert(const std::uint32_t (&field)[LC_TITLE_WORDS], int size)
{
    std::vector<char> buffer(static_cast<std::size_t>(size), '#');
    lcm_title_to_utf8(field, buffer.data(), size);
    require(size == 0 || buffer.back() == '\0');
}

void pack(const QString& text)
{
    std::uint32_t field[LC_TITLE_WORDS];
    lcm_title_pack(text, field, LC_TITLE_WORDS);
    require(field[LC_TITLE_WORDS - 1] >> 16 == 0);
    const int end = text.indexOf(QChar(0));
    require(lcm_title_text(field) == text.left(end < 0 ? 33 : std::min(end, 33)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::uint32_t field[LC_TITLE_WORDS] = {};
    if (size < 1 + sizeof field) {
        return 0;
    }
    std::memcpy(field, data + 1, sizeof field);
    convert(field, data[0]);
    convert(field, 32);
    require(lcm_title_text(field).size() <= 2 * LC_TITLE_WORDS);
    pack(QString::fromUtf8(reinterpret_cast<const char*>(data) + 1, static_cast<int>(size) - 1));
    pack(QString(reinterpret_cast<const QChar*>(field), 2 * LC_TITLE_WORDS));
    return 0;
}
