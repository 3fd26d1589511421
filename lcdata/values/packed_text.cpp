#include "lcdata/values/packed_text.h"

#include <boost/locale/encoding_utf.hpp>

#include <algorithm>
#include <string>

namespace {

constexpr int TITLE_UNITS = 2 * LC_TITLE_WORDS;

char16_t unitAt(const std::uint32_t* field, int i)
{
    const std::uint32_t word = field[i / 2];
    return static_cast<char16_t>(i % 2 == 0 ? word & 0xFFFFu : word >> 16);
}

/// The number of units ahead of the first 0, at most `limit`.
int unitsOf(const std::uint32_t* field, int limit)
{
    int count = 0;
    while (count < limit && unitAt(field, count) != 0) {
        ++count;
    }
    return count;
}

} // namespace

void lcm_title_pack(const QString& text, std::uint32_t* field, int words)
{
    if (words < 1) {
        return;
    }
    std::fill(field, field + words, 0u);
    const int units = std::min(text.size(), 2 * words - 1);
    for (int i = 0; i < units; ++i) {
        field[i / 2] |= static_cast<std::uint32_t>(text[i].unicode()) << (i % 2 == 0 ? 0 : 16);
    }
}

void lcm_title_to_utf8(const std::uint32_t (&field)[LC_TITLE_WORDS], char* buffer, int size)
{
    if (size < 1) {
        return;
    }
    std::u16string units;
    const int count = unitsOf(field, std::min(size, TITLE_UNITS));
    for (int i = 0; i < count; ++i) {
        units.push_back(unitAt(field, i));
    }
    const std::string utf8 = boost::locale::conv::utf_to_utf<char>(units, boost::locale::conv::skip);
    const std::size_t copied = std::min(utf8.size(), static_cast<std::size_t>(size - 1));
    std::copy_n(utf8.data(), copied, buffer);
    std::fill(buffer + copied, buffer + size, '\0');
}

QString lcm_packed_text(const std::uint32_t* field, int words)
{
    const int count = unitsOf(field, 2 * words);
    QString text(count, Qt::Uninitialized);
    for (int i = 0; i < count; ++i) {
        text[i] = QChar(unitAt(field, i));
    }
    return text;
}

QString lcm_title_text(const std::uint32_t (&field)[LC_TITLE_WORDS])
{
    return lcm_packed_text(field, LC_TITLE_WORDS);
}
