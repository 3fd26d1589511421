#pragma once

/// Records and set-ups of load cases for tests.

#include <cstring>
#include <string>

#include <QString>

#include "lcdata/values/packed_text.h"
#include "lcdata/values/records.h"
#include "rules/load_case_row.h"

namespace lctest {

/// A code of up to four characters, blank-padded.
inline int code(const std::string& name)
{
    std::string bytes = name + "    ";
    int word = 0;
    std::memcpy(&word, bytes.data(), sizeof word);
    return word;
}

/// An action record by name and factors.
class ActionBuilder
{
  public:
    explicit ActionBuilder(const std::string& name, const QString& title = QString())
    {
        m_record.kind = 1;
        const int word = code(name);
        std::memcpy(m_record.name, &word, sizeof word);
        lcm_title_pack(title, m_record.title, LC_TITLE_WORDS);
    }
    ActionBuilder& gamu(float value) { return set(&tagCDB_LC_ACT::gamu, value); }
    ActionBuilder& gamf(float value) { return set(&tagCDB_LC_ACT::gamf, value); }
    ActionBuilder& gama(float value) { return set(&tagCDB_LC_ACT::gama, value); }
    ActionBuilder& psi0(float value) { return set(&tagCDB_LC_ACT::psi0, value); }
    ActionBuilder& psi1(float value) { return set(&tagCDB_LC_ACT::psi1, value); }
    ActionBuilder& psi2(float value) { return set(&tagCDB_LC_ACT::psi2, value); }
    ActionBuilder& psi1s(float value) { return set(&tagCDB_LC_ACT::psi1s, value); }
    ActionBuilder& partition(int word)
    {
        m_record.partition = word;
        return *this;
    }
    /// All seven factors: the same value.
    ActionBuilder& all(float value)
    {
        return gamu(value).gamf(value).gama(value).psi0(value).psi1(value).psi2(value).psi1s(value);
    }
    operator tagCDB_LC_ACT() const { return m_record; }

  private:
    ActionBuilder& set(float tagCDB_LC_ACT::*field, float value)
    {
        m_record.*field = value;
        return *this;
    }
    tagCDB_LC_ACT m_record{};
};

inline ActionBuilder action(const std::string& name = "G", const QString& title = QString())
{
    return ActionBuilder(name, title);
}
/// Marks and limits of a design code; all 0 to begin with.
inline ActionBuilder limits() { return ActionBuilder(std::string()); }

/// A set-up with all factor columns.
inline LCM_LoadCaseSetup setup(int gravity = -3, int systemClass = 0, bool globalDirections = false)
{
    LCM_LoadCaseSetup result;
    result.factorColumns.fill(true);
    result.gravity = gravity;
    result.systemClass = systemClass;
    result.globalDirections = globalDirections;
    return result;
}

/// A load case that follows an action.
inline tagCDB_LC_CTRL following(int actionWord)
{
    tagCDB_LC_CTRL record{};
    record.action = actionWord;
    record.factor = 1.0f;
    record.gamu = record.gamf = record.psi0 = record.psi1 = record.psi2 = LC_UNDEFINED;
    return record;
}

/// A load case without an action; its factors are 0.
inline tagCDB_LC_CTRL standalone()
{
    tagCDB_LC_CTRL record{};
    record.factor = 1.0f;
    return record;
}

inline std::uint32_t bits(float value)
{
    std::uint32_t word = 0;
    std::memcpy(&word, &value, sizeof word);
    return word;
}

inline bool sameBytes(const tagCDB_LC_CTRL& a, const tagCDB_LC_CTRL& b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

} // namespace lctest
