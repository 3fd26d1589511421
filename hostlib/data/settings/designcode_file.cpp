#include <algorithm>
#include <charconv>
#include <cstring>
#include <string>
#include <variant>

#include "host/mrl_alib.h"
#include "host/mrl_lib.h"
#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/file_stamp.h"
#include "hostlib/data/designcode/ini_file.h"

namespace {

using mrl::designcode::IniEntry;

constexpr int MISSING = -1;
constexpr int SECTION_ONLY = 0;
constexpr int FOUND = 1;

/// The length of the longest part of a text that fits and ends with a whole character.
std::size_t wholeCharacters(const std::string& text, std::size_t room)
{
    std::size_t length = std::min(text.size(), room);
    const auto continues = [&](std::size_t i) {
        return (static_cast<unsigned char>(text[i]) & 0xC0u) == 0x80u;
    };
    while (length > 0 && length < text.size() && continues(length)) {
        --length;
    }
    return length;
}

void deliver(const std::string& from, char* text, int size)
{
    if (text == nullptr || size <= 0) {
        return;
    }
    const auto room = static_cast<std::size_t>(size);
    const std::size_t length = wholeCharacters(from, room);
    std::memcpy(text, from.data(), length);
    if (length < room) {
        text[length] = '\0';
    }
}

void deliver(int number, void* value)
{
    if (value != nullptr) {
        std::memcpy(value, &number, sizeof number);
    }
}

int wholeNumber(const std::string& text)
{
    int number = 0;
    const char* const last = text.data() + text.size();
    const auto [end, result] = std::from_chars(text.data(), last, number);
    return result == std::errc() && end == last ? number : 0;
}

mrl::designcode::IniResult parse(const std::string& file)
{
    const auto content = mrl::designcode::readText(file);
    if (const auto* error = std::get_if<mrl::designcode::IniError>(&content)) {
        return {{}, {*error}};
    }
    return mrl::designcode::parseIni(std::get<std::string>(content));
}

/// The file that was read last. Callers ask for one entry after the other, so it is taken apart again only
/// when another one is asked for, or its size or time changed.
const mrl::designcode::IniResult& parsed(const std::string& file)
{
    static std::string lastFile;
    static mrl::designcode::FileStamp lastStamp;
    static mrl::designcode::IniResult last;
    const mrl::designcode::FileStamp stamp(file);
    if (file != lastFile || stamp != lastStamp) {
        last = parse(file);
        lastFile = file;
        lastStamp = stamp;
    }
    return last;
}

const mrl::designcode::IniSection* sectionOf(const mrl::designcode::IniResult& ini, const char* section)
{
    return ini.errors.empty() ? ini.file.find(section) : nullptr;
}

} // namespace

bool mrl_lib_designcode_file(int db, char* buffer, int size)
{
    const auto file = mrl::designcode::fileOfDatabase(db);
    const bool fits = file && size > 0 && file->size() < static_cast<std::size_t>(size);
    deliver(fits ? *file : std::string(), buffer, size);
    return fits;
}

int mrl_lib_profile_read(const char* file, const char* section, const char* key, int /*one*/, void* value,
                         char* text, int size, int /*zero*/)
{
    deliver(0, value);
    deliver(std::string(), text, size);
    const auto* found = sectionOf(parsed(file), section);
    if (found == nullptr) {
        return MISSING;
    }
    const IniEntry* entry = found->find(key);
    if (entry == nullptr) {
        return SECTION_ONLY;
    }
    deliver(wholeNumber(entry->value), value);
    deliver(entry->value, text, size);
    return FOUND;
}

QString MRL_A_Normen::getNormLabelText(int db)
{
    const auto loaded = mrl::designcode::ofDatabase(db);
    return loaded.code ? QString::fromStdString(loaded.code->label) : QString();
}
