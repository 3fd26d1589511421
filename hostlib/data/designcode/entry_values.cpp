#include "hostlib/data/designcode/entry_values.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <charconv>
#include <cmath>

#include "lcdata/values/situation_terms.h"

namespace mrl::designcode {

namespace {

template <class Number>
bool parsed(const std::string& text, Number& value)
{
    const char* const last = text.data() + text.size();
    const auto [end, result] = std::from_chars(text.data(), last, value);
    return result == std::errc() && end == last;
}

std::string cureOfNumber(const std::string& text)
{
    std::string pointed = text;
    std::replace(pointed.begin(), pointed.end(), ',', '.');
    float value = 0.0f;
    return pointed != text && parsed(pointed, value) ? "write a point: " + pointed
                                                     : "write digits with one point, such as 1.35";
}

} // namespace

std::string cureByNearest(const std::string& word, const Words& words, const std::string& otherwise)
{
    const std::string nearest = lcm_nearest_word(word, words);
    return nearest.empty() ? otherwise : "write " + nearest;
}

void EntryReader::fail(const IniError& error)
{
    errors.push_back({fileOf(error.file), error.line, error.column, error.reason, error.cure});
}

void EntryReader::fail(const IniEntry& entry, std::string reason, std::string cure)
{
    fail(IniError{entry.line, entry.column, std::move(reason), std::move(cure), entry.file});
}

void EntryReader::fail(const IniSection& section, std::string reason, std::string cure)
{
    fail(IniError{section.line, 0, std::move(reason), std::move(cure), section.file});
}

void EntryReader::onlyKeys(const IniSection& section, const Words& keys)
{
    for (const IniEntry& entry : section.entries) {
        if (std::find(keys.begin(), keys.end(), entry.key) == keys.end()) {
            unknownKey(section, entry, keys);
        }
    }
}

void EntryReader::unknownKey(const IniSection& section, const IniEntry& entry, const Words& keys)
{
    std::string all;
    for (const std::string& key : keys) {
        all += (all.empty() ? "" : ", ") + key;
    }
    IniEntry atKey = entry;
    atKey.column = 1;
    fail(atKey, "entry '" + entry.key + "' is not known in section '" + section.name + "'",
         cureByNearest(entry.key, keys, "leave it out; known are " + all));
}

std::optional<Annotated> EntryReader::taken(const IniEntry& entry)
{
    auto taken = annotated(entry.value);
    if (!taken) {
        fail(entry, "the brace in '" + entry.value + "' isn't closed", "write {CLAUSE, STATE}");
    }
    return taken;
}

std::string EntryReader::valueOf(const IniEntry& entry)
{
    auto text = taken(entry);
    return text ? std::move(text->value) : std::string();
}

bool EntryReader::number(const IniEntry& entry, float& value, Origin* origin)
{
    auto text = taken(entry);
    if (!text) {
        return false;
    }
    const bool good = parsed(text->value, value) && std::isfinite(value);
    if (!good) {
        fail(entry, "'" + text->value + "' of entry '" + entry.key + "' is no number",
             cureOfNumber(text->value));
    } else if (origin != nullptr) {
        *origin = {std::move(text->source), fileOf(entry.file), entry.line, entry.column};
    }
    return good;
}

bool EntryReader::integer(const IniEntry& entry, int& value)
{
    const bool good = parsed(entry.value, value);
    if (!good) {
        fail(entry, "'" + entry.value + "' of entry '" + entry.key + "' is no whole number",
             "write digits alone, such as 2005");
    }
    return good;
}

void EntryReader::notOneOf(const IniEntry& entry, const std::string& word, const std::string& words)
{
    Words known;
    const QStringList list = QString::fromStdString(words).split(QStringLiteral(", "));
    for (const QString& each : list) {
        known.push_back(each.toStdString());
    }
    fail(entry, "'" + word + "' of entry '" + entry.key + "' is none of " + words,
         cureByNearest(word, known, "write one of them"));
}

} // namespace mrl::designcode
