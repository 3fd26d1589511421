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
// The library silently cuts longer section names.
constexpr std::size_t MAX_SECTION_BYTES = 49;

std::string_view trimmed(std::string_view text)
{
    const auto blank = " \t\r\v\f";
    const auto first = text.find_first_not_of(blank);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blank) - first + 1);
}

bool isUtf8(std::string_view text)
{
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
    std::string_view raw; ///< the line with its blanks in front
    IniResult result;
    std::unordered_map<std::string, int> sectionLines;
    std::unordered_map<std::string, int> keyLines; ///< of the section that is open

    bool fail(std::string reason, std::string cure, int column = 0)
    {
        result.errors.push_back({line, column, std::move(reason), std::move(cure), number});
        return false;
    }
    std::string_view nextLine();
    bool accept(std::string_view text, int bufferSize);
    bool openSection(std::string_view text);
    bool isEntry(std::string_view text);
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
    const auto separator = text.find_first_of("=:");
    if (separator == std::string_view::npos) {
        return fail("the line is neither a section, an entry 'name = value' nor a comment",
                    "write 'name = value', or ';' in front of a comment", columnOf(raw, raw.find(text)));
    }
    if (separator == 0) {
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

void Parse::addEntry(const char* key, const char* value)
{
    const auto [first, isNew] = keyLines.emplace(key, line);
    const auto separator = raw.find_first_of("=:");
    const auto begin = raw.find_first_not_of(" \t", separator + 1);
    const int column = columnOf(raw, begin == std::string_view::npos ? raw.size() : begin);
    if (!isNew) {
        fail(std::string("entry '") + key + "' stands twice, first in line " + std::to_string(first->second),
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
    const std::size_t length = isSent ? text.copy(buffer, text.size()) : 0;
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
        text += "[" + section.name + "]\n";
        for (const IniEntry& entry : section.entries) {
            text += entry.key + "=" + entry.value + "\n"; // no longer than it was
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
    std::string bytes(MAX_FILE_BYTES + 1, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), in.get()));
    if (std::ferror(in.get()) != 0) {
        return failed(std::strerror(errno), "");
    }
    if (bytes.size() > MAX_FILE_BYTES) {
        return failed("is larger than 1 MiB and so no design-code file", "name another file");
    }
    return bytes;
}

} // namespace mrl::designcode
