#pragma once

/// The safety and combination factors: the one list of them. Whatever reads, writes, shows or names all of
/// them walks over LCM_FACTORS.

#include <QString>

#include <array>
#include <string>

#include "lcdata/values/gama.h"
#include "lcdata/values/records.h"

/// A factor. Its value is its place in LCM_FACTORS.
enum class LCM_FactorId : std::size_t { Gamu, Gamf, Gama, Psi0, Psi1, Psi2, Psi1s };

/// The first three are safety factors.
enum class LCM_FactorKind {
    Unfavourable,
    Favourable,
    Accidental, ///< is stored in a way of its own, see gama.h, and never judged
    Combination
};

/// How a load case holds a factor: alone in its field, or as one of a packed pair, see packing.h.
enum class LCM_FactorPacking { Alone, Main, Minor };

struct LCM_Factor
{
    LCM_FactorId id;
    const char* key;         ///< its name in design-code files, JSON and lists
    const char* description; ///< in English, for the help of the command line
    LCM_FactorKind kind;
    int actionColumn;   ///< id of its column in the table of actions
    int loadCaseColumn; ///< id of its column in the table of load cases
    float tagCDB_LC_ACT::*actionField;
    float tagCDB_LC_CTRL::*loadCaseField; ///< the two of a packed pair share one
    LCM_FactorPacking packing;
};

/// All factors, in the order of their columns, which isn't that of the records.
inline constexpr std::array<LCM_Factor, 7> LCM_FACTORS{{
    {LCM_FactorId::Gamu, "Gamu", "unfavourable safety factor", LCM_FactorKind::Unfavourable, 104, 104,
     &tagCDB_LC_ACT::gamu, &tagCDB_LC_CTRL::gamu, LCM_FactorPacking::Main},
    {LCM_FactorId::Gamf, "Gamf", "favourable safety factor", LCM_FactorKind::Favourable, 105, 105,
     &tagCDB_LC_ACT::gamf, &tagCDB_LC_CTRL::gamf, LCM_FactorPacking::Alone},
    {LCM_FactorId::Gama, "Gama", "accidental safety factor", LCM_FactorKind::Accidental, 106, 106,
     &tagCDB_LC_ACT::gama, &tagCDB_LC_CTRL::gamu, LCM_FactorPacking::Minor},
    {LCM_FactorId::Psi0, "Psi0", "combination factor", LCM_FactorKind::Combination, 107, 107,
     &tagCDB_LC_ACT::psi0, &tagCDB_LC_CTRL::psi0, LCM_FactorPacking::Alone},
    {LCM_FactorId::Psi1, "Psi1", "combination factor", LCM_FactorKind::Combination, 108, 108,
     &tagCDB_LC_ACT::psi1, &tagCDB_LC_CTRL::psi1, LCM_FactorPacking::Main},
    {LCM_FactorId::Psi2, "Psi2", "combination factor", LCM_FactorKind::Combination, 109, 109,
     &tagCDB_LC_ACT::psi2, &tagCDB_LC_CTRL::psi2, LCM_FactorPacking::Alone},
    {LCM_FactorId::Psi1s, "Psi1s", "fourth combination factor", LCM_FactorKind::Combination, 110, 110,
     &tagCDB_LC_ACT::psi1s, &tagCDB_LC_CTRL::psi1, LCM_FactorPacking::Minor},
}};

/// The entry of a factor.
constexpr const LCM_Factor& lcm_factor(LCM_FactorId id) { return LCM_FACTORS[static_cast<std::size_t>(id)]; }

constexpr bool lcm_factors_stand_at_their_ids()
{
    for (std::size_t i = 0; i < LCM_FACTORS.size(); ++i) {
        if (static_cast<std::size_t>(LCM_FACTORS[i].id) != i) {
            return false;
        }
    }
    return true;
}
static_assert(lcm_factors_stand_at_their_ids());

/// A value for each factor; all zero at first.
template <class T>
class LCM_PerFactor
{
  public:
    constexpr T& operator[](LCM_FactorId id) { return m_values[static_cast<std::size_t>(id)]; }
    constexpr const T& operator[](LCM_FactorId id) const { return m_values[static_cast<std::size_t>(id)]; }
    void fill(const T& value) { m_values.fill(value); }

  private:
    std::array<T, LCM_FACTORS.size()> m_values{};
};

/// The factor of a column of the table of actions; null for any other column.
constexpr const LCM_Factor* lcm_factor_of_action_column(int column)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (factor.actionColumn == column) {
            return &factor;
        }
    }
    return nullptr;
}

/// The factor of a column of the table of load cases; null for any other column.
constexpr const LCM_Factor* lcm_factor_of_load_case_column(int column)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (factor.loadCaseColumn == column) {
            return &factor;
        }
    }
    return nullptr;
}

/// The factor that shares a field of the load case with this one; null when it stands alone.
constexpr const LCM_Factor* lcm_partner_of(const LCM_Factor& factor)
{
    for (const LCM_Factor& other : LCM_FACTORS) {
        if (other.id != factor.id && other.loadCaseField == factor.loadCaseField) {
            return &other;
        }
    }
    return nullptr;
}

constexpr bool lcm_is_safety(LCM_FactorKind kind) { return kind != LCM_FactorKind::Combination; }

/// A factor of an action as its field holds it. They differ from what is shown in `Gama` only.
inline float lcm_stored_factor(const tagCDB_LC_ACT& action, const LCM_Factor& factor)
{
    return action.*factor.actionField;
}

/// A factor of an action as tables and lists show it.
inline float lcm_shown_factor(const tagCDB_LC_ACT& action, const LCM_Factor& factor)
{
    const float stored = lcm_stored_factor(action, factor);
    return factor.kind == LCM_FactorKind::Accidental ? lcm_shown_gama(stored) : stored;
}

/// The value to store for a factor that was typed or stated.
inline float lcm_factor_to_store(const LCM_Factor& factor, float value)
{
    return factor.kind == LCM_FactorKind::Accidental ? lcm_gama_to_store(value) : value;
}

/// The entry of a design-code file that holds the label of a factor: "TXT_GAMU" for "Gamu".
inline QString lcm_label_key(const QString& key) { return QStringLiteral("TXT_") + key.toUpper(); }

/// The option of the command line that sets a factor: "--gamu".
inline std::string lcm_factor_option(const LCM_Factor& factor)
{
    return "--" + QString::fromLatin1(factor.key).toLower().toStdString();
}
