#include "exchange/text_decoding.h"

#include <QTextCodec>

#include <algorithm>

namespace mrl::exchange {

namespace {

const std::string UTF_8 = "UTF-8";
const std::string UTF_16 = "UTF-16";
const std::string UTF_16_LE = "UTF-16LE";
const std::string UTF_16_BE = "UTF-16BE";
const std::string LATIN_1 = "Latin-1";
constexpr std::string_view MARK_8 = "\xEF\xBB\xBF";
constexpr std::size_t PIECE = 1 << 20;
constexpr std::size_t LOOKED_AT = 4096; // bytes of the file's beginning that tell UTF-16

bool begins(std::string_view bytes, std::string_view with) { return bytes.substr(0, with.size()) == with; }

/// UTF-16 without a mark has a zero byte beside every letter of the Latin alphabet.
std::string encodingByZeros(std::string_view bytes)
{
    std::size_t zeros[2] = {0, 0};
    const std::size_t looked = std::min(bytes.size(), LOOKED_AT);
    for (std::size_t i = 0; i < looked; ++i) {
        zeros[i % 2] += bytes[i] == '\0' ? 1 : 0;
    }
    const auto isIn = [&](std::size_t half) {
        return zeros[half] * 4 > looked && zeros[1 - half] * 8 < looked;
    };
    return bytes.size() % 2 != 0 ? std::string() : isIn(1) ? UTF_16_LE : isIn(0) ? UTF_16_BE : std::string();
}

std::string byteOrderMark(std::string_view bytes)
{
    if (begins(bytes, MARK_8)) {
        return UTF_8;
    }
    return begins(bytes, "\xFF\xFE") ? UTF_16_LE : begins(bytes, "\xFE\xFF") ? UTF_16_BE : std::string();
}

QTextCodec& codecOf(const std::string& encoding)
{
    return *QTextCodec::codecForName(encoding == LATIN_1 ? QByteArray("ISO-8859-1")
                                                         : QByteArray::fromStdString(encoding));
}

/// Piece by piece, so that a large file isn't held in a third form.
std::optional<std::string> decodedAs(std::string_view bytes, const std::string& encoding)
{
    const QTextCodec& codec = codecOf(encoding);
    QTextCodec::ConverterState state;
    // A file that holds UTF-8 already keeps its bytes.
    std::string utf8(encoding == UTF_8 ? bytes : std::string_view());
    QString half; // of a pair of units that a piece cuts in two
    for (std::size_t at = 0; at < bytes.size() && state.invalidChars == 0; at += PIECE) {
        const std::string_view piece = bytes.substr(at, PIECE);
        const QString text = half + codec.toUnicode(piece.data(), static_cast<int>(piece.size()), &state);
        const bool isCut = !text.isEmpty() && text.back().isHighSurrogate();
        const int whole = text.size() - (isCut ? 1 : 0);
        if (encoding != UTF_8) {
            utf8 += text.left(whole).toStdString();
        }
        half = text.mid(whole);
    }
    if (!half.isEmpty() || state.invalidChars != 0 || state.remainingChars != 0) {
        return std::nullopt;
    }
    if (begins(utf8, MARK_8)) {
        utf8.erase(0, MARK_8.size());
    }
    return utf8;
}

bool isKnown(const std::string& encoding)
{
    const auto& names = encodingNames();
    return std::find(names.begin(), names.end(), encoding) != names.end();
}

} // namespace

const std::vector<std::string>& encodingNames()
{
    static const std::vector<std::string> NAMES{UTF_8, UTF_16, UTF_16_LE, UTF_16_BE, LATIN_1};
    return NAMES;
}

std::optional<DecodedText> decoded(std::string_view bytes, const std::string& encoding)
{
    std::string used = encoding;
    if (used.empty()) {
        const std::string mark = byteOrderMark(bytes);
        used = mark.empty() ? encodingByZeros(bytes) : mark;
    } else if (used == UTF_16) {
        used = byteOrderMark(bytes) == UTF_16_BE ? UTF_16_BE : UTF_16_LE;
    }
    if (!used.empty() && !isKnown(used)) {
        return std::nullopt;
    }
    auto text = decodedAs(bytes, used.empty() ? UTF_8 : used);
    if (!text && used.empty()) {
        return DecodedText{*decodedAs(bytes, LATIN_1), LATIN_1};
    }
    return text ? std::optional(DecodedText{std::move(*text), used.empty() ? UTF_8 : used}) : std::nullopt;
}

std::optional<std::string> encoded(const std::string& text, const std::string& encoding, bool atBeginning)
{
    if (encoding == UTF_8) {
        return text;
    }
    if (!isKnown(encoding)) {
        return std::nullopt;
    }
    const QString units = QString::fromStdString(text);
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QByteArray bytes = codecOf(encoding == UTF_16 ? UTF_16_LE : encoding)
                                 .fromUnicode(units.constData(), units.size(), &state);
    if (state.invalidChars != 0) {
        return std::nullopt;
    }
    const std::string mark = encoding == UTF_16 && atBeginning ? "\xFF\xFE" : "";
    return mark + bytes.toStdString();
}

} // namespace mrl::exchange
