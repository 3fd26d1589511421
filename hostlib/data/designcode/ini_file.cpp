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

/// What the library's callbacks share. The reader sees each line first, so `line` is also the line of the
/// entry that the handler is called for.
struct Parse
{
    std::string_view rest;
    int line = 0;
    IniFile file;
    std::optional<IniError> error;
    std::unordered_map<std::string, int> sectionLines;
    std::unordered_map<std::string, int> keyLines;

    bool fail(std::string reason)
    {
        if (!error) {
            error = IniError{line, std::move(reason)};
        }
        return false;
    }
    std::string_view nextLine();
    bool accept(std::string_view text, int bufferSize);
    bool openSection(std::string_view text);
    bool addEntry(const char* key, const char* value);
};

std::string_view Parse::nextLine()
{
    const auto end = rest.find('\n');
    const auto text = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    ++line;
    return trimmed(text);
}

bool Parse::openSection(std::string_view text)
{
    const auto end = text.find(']');
    if (end == std::string_view::npos) {
        return fail("the section's name has no closing ']'");
    }
    const auto behind = trimmed(text.substr(end + 1));
    if (!behind.empty() && behind.front() != ';') {
        return fail("text stands behind the section's name");
    }
    const std::string name(text.substr(1, end - 1));
    if (name.size() > MAX_SECTION_BYTES) {
        return fail("the section's name is longer than 49 bytes");
    }
    const auto [first, isNew] = sectionLines.emplace(name, line);
    if (!isNew) {
        return fail("section '" + name + "' stands twice, first in line " + std::to_string(first->second));
    }
    keyLines.clear();
    file.sections.push_back({name, line, {}});
    return true;
}

/// Judges a line before the library sees it. Sections are taken down here, since the library tells of a
/// section only when it has entries.
bool Parse::accept(std::string_view text, int bufferSize)
{
    if (text.find('\0') != std::string_view::npos) {
        return fail("a zero byte stands in the line");
    }
    if (!isUtf8(text)) {
        return fail("the line is not UTF-8");
    }
    if (text.size() + 3 > static_cast<std::size_t>(bufferSize)) {
        return fail("the line is longer than " + std::to_string(bufferSize - 3) + " bytes");
    }
    return text.front() != '[' || openSection(text);
}

bool Parse::addEntry(const char* key, const char* value)
{
    if (file.sections.empty()) {
        return fail("an entry stands ahead of the first section");
    }
    if (*key == '\0') {
        return fail("the entry has no name");
    }
    const auto [first, isNew] = keyLines.emplace(key, line);
    if (!isNew) {
        return fail(std::string("entry '") + key + "' stands twice, first in line " +
                    std::to_string(first->second));
    }
    file.sections.back().entries.push_back({key, value, line});
    return true;
}

char* readLine(char* buffer, int size, void* stream)
{
    auto& parse = *static_cast<Parse*>(stream);
    if (parse.rest.empty() || parse.error) {
        return nullptr;
    }
    // Blanks in front are taken off, since the library would take the line as a continuation. Comments are
    // kept from it, so that they may be of any length.
    const std::string_view text = parse.nextLine();
    const bool comment = text.empty() || text.front() == ';' || text.front() == '#';
    if (!comment && !parse.accept(text, size)) {
        return nullptr;
    }
    const std::size_t length = comment ? 0 : text.copy(buffer, text.size());
    buffer[length] = '\n';
    buffer[length + 1] = '\0';
    return buffer;
}

int handleEntry(void* user, const char* /*section*/, const char* key, const char* value)
{
    return static_cast<Parse*>(user)->addEntry(key, value) ? 1 : 0;
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

IniResult parseIni(std::string_view content)
{
    constexpr std::string_view BOM = "\xEF\xBB\xBF";
    Parse parse;
    parse.rest = content.substr(0, BOM.size()) == BOM ? content.substr(BOM.size()) : content;
    const int badLine = ini_parse_stream(readLine, &parse, handleEntry, &parse);
    if (parse.error && (badLine <= 0 || parse.error->line <= badLine)) {
        return *parse.error;
    }
    if (badLine > 0) {
        return IniError{badLine, "the line is neither a section, an entry 'name = value' nor a comment"};
    }
    return std::move(parse.file);
}

std::variant<std::string, IniError> readText(const std::string& file)
{
    if (file.empty()) {
        return IniError{0, "no file is named"};
    }
    std::error_code unknown;
    if (std::filesystem::is_directory(file, unknown)) {
        return IniError{0, "is a folder"};
    }
    // No QFile, whose construction ends in a crash where memory runs out.
    const std::unique_ptr<FILE, CloseFile> in(std::fopen(file.c_str(), "rb"));
    if (!in) {
        return IniError{0, std::strerror(errno)};
    }
    std::string bytes(MAX_FILE_BYTES + 1, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), in.get()));
    if (std::ferror(in.get()) != 0) {
        return IniError{0, std::strerror(errno)};
    }
    if (bytes.size() > MAX_FILE_BYTES) {
        return IniError{0, "is larger than 1 MiB and so no design-code file"};
    }
    return bytes;
}

} // namespace mrl::designcode
