#pragma once

/// Values of a design-code file as what they mean; what can't be read becomes an error with its cure.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hostlib/data/designcode/annotation.h"
#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/ini_file.h"
#include "lcdata/values/keywords.h"

namespace mrl::designcode {

/// The words that may stand somewhere.
using Words = std::vector<std::string>;

/// Reads entries and gathers the errors. What is handed in outlives it.
class EntryReader
{
  public:
    explicit EntryReader(const std::vector<FileText>& files) : m_files(files) {}

    void fail(const IniEntry& entry, std::string reason, std::string cure);
    void fail(const IniSection& section, std::string reason, std::string cure);
    void fail(const IniError& error);

    /// Tells each entry of a section that isn't one of the keys, with the nearest of them.
    void onlyKeys(const IniSection& section, const Words& keys);
    void unknownKey(const IniSection& section, const IniEntry& entry, const Words& keys);

    /// Each is false once the value can't be read.
    /// @param origin [out] where the number comes from; may be null
    bool number(const IniEntry& entry, float& value, Origin* origin = nullptr);
    bool integer(const IniEntry& entry, int& value);
    template <class List>
    bool keyword(const IniEntry& entry, const List& list, int& value)
    {
        const std::string word = valueOf(entry);
        const auto id = lcm_id_of_word(list, word);
        if (!id) {
            notOneOf(entry, word, lcm_joined_words(list));
        }
        value = id.value_or(0);
        return id.has_value();
    }

    /// What stands ahead of the brace of an entry.
    std::string valueOf(const IniEntry& entry);
    const std::string& fileOf(int file) const { return m_files.at(static_cast<std::size_t>(file)).file; }

    Errors errors;

  private:
    std::optional<Annotated> taken(const IniEntry& entry);
    void notOneOf(const IniEntry& entry, const std::string& word, const std::string& words);

    const std::vector<FileText>& m_files;
};

/// "write NEAREST", or another cure where no word is near.
std::string cureByNearest(const std::string& word, const Words& words, const std::string& otherwise);

} // namespace mrl::designcode
