#include "hostlib/data/designcode/ini_file.h"

#include <ini.h>

#include <QByteArray>
#include <QString>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <unordered_map>

namespace mrl::designcode {

namespace {

struct CloseFile
{
    void operator()(FILE* file) const { std::fclose(file); }
};

// Far above any real design code; keeps a mistaken path (a project, a video) from being read into memory.
constexpr std::size_t MAX_FILE_BYTES = 1 << 20;
constexpr std::size_t PIECE_BYTES = 1 << 14;
constexpr std::size_t USUAL_ENTRIES = 16; // of a section
// The library silently cuts longer section names.
constexpr std::size_t MAX_SECTION_BYTES = 49;

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

bool isUtf8(std::string_view text)
{
    unsigned all = 0;
    for (const char c : text) {
        all |= static_cast<unsigned char>(c);
    }
    if (all < 0x80u) { // ASCII
        return true;
    }
    // Decoding replaces what is not UTF-8, so that only sound text comes back as it was.
    const auto size = static_cast<int>(text.size());
    const QByteArray back = QString::fromUtf8(text.data(), size).toUtf8();
    return back.size() == size && std::memcmp(back.constData(), text.data(), text.size()) == 0;
}

/// The place of a byte of a line, in characters from 1.
int columnOf(std::string_view line, std::size_t byte)
{
    const auto begins = [](char c) { return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u; };
    const auto* const end = line.begin() + std::min(byte, line.size());
    return static_cast<int>(std::count_if(line.begin(), end, begins)) + 1;
}

/// What the library's callbacks share. The reader sees each line first, so `line` is also the line of the
/// entry that the handler is called for.
struct Parse
{
    std::string_view rest;
    int number = 0; ///< of the file in its chain
    int line = 0;
    std::string_view raw;      ///< the line with its blanks in front
    std::size_t separator = 0; ///< of the entry in it
    IniResult result;
    std::unordered_map<std::string, int> sectionLines;
    std::unordered_map<std::string, int> keyLines; ///< of the section that is open, once it has many entries

    bool fail(std::string reason, std::string cure, int column = 0)
    {
        result.errors.push_back({line, column, std::move(reason), std::move(cure), number});
        return false;
    }
    std::string_view nextLine();
    bool accept(std::string_view text, int bufferSize);
    bool openSection(std::string_view text);
    bool isEntry(std::string_view text);
    std::size_t copyEntry(std::string_view text, char* buffer) const;
    int lineOfKey(const std::string& key);
    void addEntry(const char* key, const char* value);
};

std::string_view Parse::nextLine()
{
    const auto end = rest.find('\n');
    raw = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    ++line;
    return trimmed(raw);
}

/// Sections are taken down here, since the library tells of a section only when it has entries. The entries behind an
/// unreadable name go into a section without one, which nobody reads: they would be false in the one before.
bool Parse::openSection(std::string_view text)
{
    keyLines.clear();
    result.file.sections.push_back({{}, line, {}, number});
    result.file.sections.back().entries.reserve(USUAL_ENTRIES);
    const auto end = text.find(']');
    if (end == std::string_view::npos) {
        return fail("the section's name has no closing ']'", "write [NAME]");
    }
    const auto behind = trimmed(text.substr(end + 1));
    if (!behind.empty() && behind.front() != ';') {
        return fail("text stands behind the section's name", "move it to a line of its own");
    }
    const std::string name(text.substr(1, end - 1));
    if (name.size() > MAX_SECTION_BYTES) {
        return fail("the section's name is longer than 49 bytes", "shorten it");
    }
    const auto [first, isNew] = sectionLines.emplace(name, line);
    if (!isNew) {
        return fail("section '" + name + "' stands twice, first in line " + std::to_string(first->second),
                    "put its entries into the first one");
    }
    result.file.sections.back().name = name;
    return true;
}

bool Parse::isEntry(std::string_view text)
{
    const auto* const sign =
        std::find_if(text.begin(), text.end(), [](char c) { return c == '=' || c == ':'; });
    separator = static_cast<std::size_t>(sign - raw.data());
    if (sign == text.end()) {
        return fail("the line is neither a section, an entry 'name = value' nor a comment",
                    "write 'name = value', or ';' in front of a comment", columnOf(raw, raw.find(text)));
    }
    if (sign == text.begin()) {
        return fail("the entry has no name", "write 'name = value'");
    }
    if (result.file.sections.empty()) {
        return fail("an entry stands ahead of the first section", "begin with [DESIGN CODE]");
    }
    return true;
}

/// Judges a line before the library sees it.
bool Parse::accept(std::string_view text, int bufferSize)
{
    if (text.find('\0') != std::string_view::npos) {
        return fail("a zero byte stands in the line", "save the file as plain text in UTF-8");
    }
    if (!isUtf8(text)) {
        return fail("the line is not UTF-8 but Latin-1 or the like", "save the file in the encoding UTF-8");
    }
    if (text.size() + 3 > static_cast<std::size_t>(bufferSize)) {
        return fail("the line is longer than " + std::to_string(bufferSize - 3) + " bytes",
                    "move a part of it into a comment line");
    }
    return text.front() == '[' ? openSection(text) : isEntry(text);
}

/// Copies "name= value" without further blanks between them, which the library looks at one by one. One stays: a comment
/// begins behind a blank.
/// @return the length
std::size_t Parse::copyEntry(std::string_view text, char* buffer) const
{
    const std::size_t sign = separator - static_cast<std::size_t>(text.data() - raw.data());
    const std::size_t name = trimmed(text.substr(0, sign)).copy(buffer, text.size());
    buffer[name] = '=';
    buffer[name + 1] = ' ';
    return name + 2 + trimmed(text.substr(sign + 1)).copy(buffer + name + 2, text.size());
}

/// The line of a key of the section that is open, 0 for a new one.
int Parse::lineOfKey(const std::string& key)
{
    constexpr std::size_t FEW = 16; // to be compared one by one; a section has no limit
    const IniSection& section = result.file.sections.back();
    if (section.entries.size() < FEW) {
        const IniEntry* known = section.find(key);
        return known != nullptr ? known->line : 0;
    }
    if (keyLines.empty()) {
        for (const IniEntry& entry : section.entries) {
            keyLines.emplace(entry.key, entry.line);
        }
    }
    const auto [known, isNew] = keyLines.emplace(key, line);
    return isNew ? 0 : known->second;
}

void Parse::addEntry(const char* key, const char* value)
{
    const int first = lineOfKey(key);
    const auto begin = raw.find_first_not_of(" \t", separator + 1);
    const int column = columnOf(raw, begin == std::string_view::npos ? raw.size() : begin);
    if (first != 0) {
        fail(std::string("entry '") + key + "' stands twice, first in line " + std::to_string(first),
             "leave one of them out", columnOf(raw, raw.find_first_not_of(" \t")));
        return;
    }
    result.file.sections.back().entries.push_back({key, value, line, column, number});
}

char* readLine(char* buffer, int size, void* stream)
{
    auto& parse = *static_cast<Parse*>(stream);
    if (parse.rest.empty()) {
        return nullptr;
    }
    // Blanks in front are taken off, since the library would take the line as a continuation. Comments and lines
    // with an error are kept from it.
    const std::string_view text = parse.nextLine();
    const bool comment = text.empty() || text.front() == ';' || text.front() == '#';
    const bool isSent = !comment && parse.accept(text, size);
    const std::size_t length = !isSent               ? 0
                               : text.front() == '[' ? text.copy(buffer, text.size())
                                                     : parse.copyEntry(text, buffer);
    buffer[length] = '\n';
    buffer[length + 1] = '\0';
    return buffer;
}

int handleEntry(void* user, const char* /*section*/, const char* key, const char* value)
{
    static_cast<Parse*>(user)->addEntry(key, value);
    return 1;
}

/// What is wrong with the text as a whole, so that telling each line would say nothing.
std::optional<IniError> wrongAsAWhole(std::string_view content)
{
    const auto begins = [&](std::string_view mark) { return content.substr(0, mark.size()) == mark; };
    const bool hasZeros = content.size() > 3 && ((content[0] == '\0' && content[2] == '\0') ||
                                                 (content[1] == '\0' && content[3] == '\0'));
    if (begins("\xFF\xFE") || begins("\xFE\xFF") || hasZeros) {
        return IniError{0, 0, "the file is in UTF-16", "save it in the encoding UTF-8"};
    }
    if (content.find('\r') != std::string_view::npos && content.find('\n') == std::string_view::npos) {
        return IniError{0, 0, "the lines end with carriage returns (CR) alone",
                        "save the file with line feeds (LF or CRLF)"};
    }
    return std::nullopt;
}

} // namespace

const IniEntry* IniSection::find(std::string_view key) const
{
    const auto it = std::find_if(entries.begin(), entries.end(), [&](const auto& e) { return e.key == key; });
    return it == entries.end() ? nullptr : &*it;
}

const IniSection* IniFile::find(std::string_view name) const
{
    const auto it =
        std::find_if(sections.begin(), sections.end(), [&](const auto& s) { return s.name == name; });
    return it == sections.end() ? nullptr : &*it;
}

IniResult parseIni(std::string_view content, int file)
{
    constexpr std::string_view BOM = "\xEF\xBB\xBF";
    Parse parse;
    parse.number = file;
    if (auto error = wrongAsAWhole(content)) {
        error->file = file;
        parse.result.errors.push_back(*error);
        return std::move(parse.result);
    }
    parse.rest = content.substr(0, BOM.size()) == BOM ? content.substr(BOM.size()) : content;
    const int badLine = ini_parse_stream(readLine, &parse, handleEntry, &parse);
    if (badLine != 0 && parse.result.errors.empty()) {
        parse.result.errors.push_back({badLine, 0, "the line can't be read", "write 'name = value'", file});
    }
    return std::move(parse.result);
}

std::string iniText(const IniFile& file)
{
    std::string text;
    for (const IniSection& section : file.sections) {
        text.append("[").append(section.name).append("]\n");
        for (const IniEntry& entry : section.entries) {
            text.append(entry.key).append("=").append(entry.value).append("\n"); // no longer than it was
        }
    }
    return text;
}

std::variant<std::string, IniError> readText(const std::string& file)
{
    const auto failed = [](std::string reason, std::string cure) {
        return IniError{0, 0, std::move(reason), std::move(cure)};
    };
    if (file.empty()) {
        return failed("no file is named", "name one");
    }
    std::error_code unknown;
    if (std::filesystem::is_directory(file, unknown)) {
        return failed("is a folder", "name a file in it");
    }
    // No QFile, whose construction ends in a crash where memory runs out.
    const std::unique_ptr<FILE, CloseFile> in(std::fopen(file.c_str(), "rb"));
    if (!in) {
        return failed(std::strerror(errno), "");
    }
    // Piece by piece: room for the largest file at once would cost more than all the rest of reading a usual one.
    std::string bytes;
    char piece[PIECE_BYTES];
    std::size_t length = sizeof piece;
    while (length == sizeof piece && bytes.size() <= MAX_FILE_BYTES) {
        length = std::fread(piece, 1, sizeof piece, in.get());
        bytes.append(piece, length);
    }
    if (std::ferror(in.get()) != 0) {
        return failed(std::strerror(errno), "");
    }
    if (bytes.size() > MAX_FILE_BYTES) {
        return failed("is larger than 1 MiB and so no design-code file", "name another file");
    }
    return bytes;
}

} // namespace mrl::designcode
