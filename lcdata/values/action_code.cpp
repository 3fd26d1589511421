#include "lcdata/values/action_code.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "lcdata/values/keys.h"
#include "lcdata/values/packed_text.h"

namespace {

constexpr int NAME_BYTES = 39;  // the joined name with its closing zero
constexpr int NAME_COLUMNS = 5; // what a name takes up in a list
constexpr int TITLE_BYTES = 32; // what is left for the title, with the closing zero
using NameBuffer = std::array<char, NAME_BYTES>;

void writeSuffix(char* at, std::int32_t suffix)
{
    *at = '_';
    lcm_word_to_chars(suffix, at + 1);
}

NameBuffer firstPart(const tagCDB_LC_ACT& action)
{
    NameBuffer buffer{};
    std::copy_n(action.name, 4, buffer.data());
    return buffer;
}

QString labelled(NameBuffer& buffer, const tagCDB_LC_ACT& action)
{
    std::replace(buffer.begin(), buffer.begin() + NAME_COLUMNS + 1, '\0', ' ');
    lcm_title_to_utf8(action.title, buffer.data() + NAME_COLUMNS, TITLE_BYTES);
    return QString::fromUtf8(buffer.data());
}

} // namespace

std::int32_t lcm_pack_bytes(std::string_view bytes)
{
    char packed[4] = {' ', ' ', ' ', ' '};
    bytes.copy(packed, sizeof packed);
    return lcm_field_word(packed);
}

std::int32_t lcm_pack_word(const QString& text)
{
    // Four units give at least four bytes, and cutting the rest first keeps a long text cheap; but a
    // surrogate pair must stay whole.
    const QByteArray utf8 = text.left(5).toUtf8();
    return lcm_pack_bytes({utf8.constData(), static_cast<std::size_t>(utf8.size())});
}

void lcm_pack_field(const char* text, std::int32_t& field)
{
    field = lcm_pack_bytes({text, strnlen(text, 4)});
}

void lcm_pack_field(const char* text, char (&field)[4])
{
    lcm_word_to_chars(lcm_pack_bytes({text, strnlen(text, 4)}), field);
}

void lcm_word_to_chars(std::int32_t word, char* destination)
{
    const auto bits = static_cast<std::uint32_t>(word);
    for (int i = 0; i < 4; ++i) {
        destination[i] = static_cast<char>((bits >> (8 * i)) & 0xFFu);
    }
}

std::int32_t lcm_field_word(const char (&field)[4])
{
    std::uint32_t bits = 0;
    for (int i = 0; i < 4; ++i) {
        bits |= static_cast<std::uint32_t>(static_cast<unsigned char>(field[i])) << (8 * i);
    }
    return static_cast<std::int32_t>(bits);
}

bool lcm_has_suffix(std::int32_t suffix) { return suffix > LC_BLANK_WORD; }

std::int32_t lcm_action_code(const tagCDB_LC_ACT& action)
{
    NameBuffer buffer = firstPart(action);
    if (lcm_has_suffix(action.suffix)) {
        const auto blank = std::find(buffer.begin(), buffer.end(), ' ');
        if (blank != buffer.end()) {
            writeSuffix(&*blank, action.suffix);
        }
    }
    // Bytes, not characters: a name that was cut in the middle of a character keeps its code.
    return lcm_pack_bytes(buffer.data());
}

std::int32_t lcm_normalise_code(const QString& text)
{
    return lcm_pack_word(text.toUpper().leftJustified(4, ' '));
}

QString lcm_code_text(std::int32_t code)
{
    char bytes[5] = {};
    lcm_word_to_chars(code, bytes);
    return QString::fromUtf8(bytes);
}

QString lcm_code_name(std::int32_t code) { return lcm_code_text(code).trimmed(); }

QString lcm_word_name(std::int32_t word)
{
    return word < LC_BLANK_WORD ? QString::number(word) : lcm_code_name(word);
}

QString lcm_action_label(const tagCDB_LC_ACT& action)
{
    NameBuffer buffer = firstPart(action);
    if (lcm_has_suffix(action.suffix)) {
        auto at = std::find(buffer.begin(), buffer.end(), ' ');
        if (at == buffer.end()) {
            at = std::find(buffer.begin(), buffer.end(), '\0');
        }
        writeSuffix(&*at, action.suffix);
    }
    return labelled(buffer, action);
}

QString lcm_member_label(const tagCDB_LC_ACT& action)
{
    NameBuffer buffer{};
    lcm_word_to_chars(action.suffix, buffer.data());
    return labelled(buffer, action);
}
