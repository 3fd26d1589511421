#pragma once

/// The partition word of an action: superposition in bits 0 to 3, category in bits 4 to 7, load group in the
/// bits from 8 up. Here stand the one list of categories with their load groups, the one list of
/// superpositions, and the way between their ids and the word.

#include <QtGlobal>

#include <array>
#include <string_view>

#include "lcdata/values/records.h"

/// The category of an action, as it stands in the partition word.
enum LCM_Category : int {
    LC_CATEGORY_PERMANENT = 1,
    LC_CATEGORY_PRESTRESS = 2,
    LC_CATEGORY_VARIABLE = 3,
    LC_CATEGORY_ACCIDENTAL = 4,
    LC_CATEGORY_EARTHQUAKE = 5
};

/// Load groups of the variable actions have the numbers 1 to 5.
constexpr int LC_LOAD_GROUPS = 5;

/// The partition id of a load group: the category of the variable actions shifted up by four bits, joined
/// with the number of the group.
constexpr int lcm_load_group_id(int group) { return LC_CATEGORY_VARIABLE * 16 + group; }

/// A category, or a load group of the variable actions.
struct LCM_Partition
{
    int id;                ///< the category, or lcm_load_group_id
    std::string_view word; ///< in design-code files (the categories only), the command line and JSON
    const char* caption;   ///< in the dialog, to be translated
};

inline constexpr std::array<LCM_Partition, 10> LCM_PARTITIONS{{
    {LC_CATEGORY_PERMANENT, "G", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "G (Permanent)")},
    {LC_CATEGORY_PRESTRESS, "P", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "P (Prestress)")},
    {LC_CATEGORY_VARIABLE, "Q", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q (Variable)")},
    {LC_CATEGORY_ACCIDENTAL, "A", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "A (Accidental)")},
    {LC_CATEGORY_EARTHQUAKE, "E", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "E (Earthquake)")},
    {lcm_load_group_id(1), "Q_1", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_1 (Variable) Loadgroup 1")},
    {lcm_load_group_id(2), "Q_2", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_2 (Variable) Loadgroup 2")},
    {lcm_load_group_id(3), "Q_3", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_3 (Variable) Loadgroup 3")},
    {lcm_load_group_id(4), "Q_4", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_4 (Variable) Loadgroup 4")},
    {lcm_load_group_id(5), "Q_5", QT_TRANSLATE_NOOP("LCM_ActionsWidget", "Q_5 (Variable) Loadgroup 5")},
}};

/// How the load cases of an action are superposed, as it stands in the partition word.
enum LCM_SuperpositionId : int {
    LC_SUPERPOSITION_PERM = 0,
    LC_SUPERPOSITION_COND = 1,
    LC_SUPERPOSITION_EXCL = 2,
    LC_SUPERPOSITION_UNSI = 3,
    LC_SUPERPOSITION_USEX = 4,
    LC_SUPERPOSITION_ALEX = 5,
    LC_SUPERPOSITION_EXEX = 6,
    LC_SUPERPOSITION_OLD_PERC = 7, ///< read as LC_SUPERPOSITION_PERC and never written
    LC_SUPERPOSITION_PERC = 8
};

/// How many load cases of an acting action act at the same time.
enum class LCM_Acting {
    All, ///< all of them
    Any, ///< one or more
    One  ///< exactly one
};

/// What a superposition says of an action; combine/ goes by this alone.
struct LCM_SuperpositionMeaning
{
    LCM_Acting acting = LCM_Acting::All;
    bool isAlwaysThere = false; ///< the action acts also where it is favourable
    bool hasBothSigns = false;  ///< each load case acts with the worse sign
    bool choosesEach = false; ///< each load case takes the worse factor by itself, not the action as a whole
    bool excludesSuffixes = false; ///< at most one acts of the actions with one first part and category
};

struct LCM_Superposition
{
    int id;                ///< an LCM_SuperpositionId
    std::string_view word; ///< in design-code files, the command line, JSON and the workbench
    const char* caption;   ///< in the dialog, to be translated
    LCM_SuperpositionMeaning meaning;
};

inline constexpr std::array<LCM_Superposition, 8> LCM_SUPERPOSITIONS{{
    {LC_SUPERPOSITION_PERM,
     "PERM",
     QT_TRANSLATE_NOOP("LCM_ActionsWidget", "PERM permanent"),
     {LCM_Acting::All, true}},
    {LC_SUPERPOSITION_COND,
     "COND",
     QT_TRANSLATE_NOOP("LCM_ActionsWidget", "COND conditional"),
     {LCM_Acting::Any}},
    {LC_SUPERPOSITION_EXCL,
     "EXCL",
     QT_TRANSLATE_NOOP("LCM_ActionsWidget", "EXCL exclusive within category"),
     {LCM_Acting::One}},
    {LC_SUPERPOSITION_UNSI,
     "UNSI",
     QT_TRANSLATE_NOOP("LCM_ActionsWidget", "UNSI conditional with unfavourable sign"),
     {LCM_Acting::Any, false, true}},
    {LC_SUPERPOSITION_USEX,
     "USEX",
     QT_TRANSLATE_NOOP("LCM_ActionsWidget", "USEX exclusive with unfavourable sign"),
     {LCM_Acting::One, false, true}},
    {LC_SUPERPOSITION_ALEX,
     "ALEX",
     QT_TRANSLATE_NOOP("LCM_ActionsWidget", "ALEX permanent but exclusive"),
     {LCM_Acting::One, true}},
    {LC_SUPERPOSITION_EXEX,
     "EXEX",
     QT_TRANSLATE_NOOP("LCM_ActionsWidget", "EXEX exclusive within action"),
     {LCM_Acting::One, false, false, false, true}},
    {LC_SUPERPOSITION_PERC,
     "PERC",
     QT_TRANSLATE_NOOP("LCM_ActionsWidget", "PERC permanent with individual factors"),
     {LCM_Acting::All, true, false, true}},
}};

/// What a superposition id means; that of PERM for an id that is none.
constexpr LCM_SuperpositionMeaning lcm_superposition_meaning(int id)
{
    for (const LCM_Superposition& each : LCM_SUPERPOSITIONS) {
        if (each.id == id) {
            return each.meaning;
        }
    }
    return LCM_SUPERPOSITIONS[0].meaning;
}

/// Whether a partition id is that of a load group.
constexpr bool lcm_is_load_group(int partitionId) { return partitionId >= lcm_load_group_id(0); }

/// The number of a load group by its partition id.
constexpr int lcm_load_group(int partitionId) { return partitionId - lcm_load_group_id(0); }

/// The partition id of a word. A word with a load group (256 or more) is shown as that load group of the
/// variable actions, whatever its category says.
constexpr int lcm_partition_id(int word) { return word >= 256 ? lcm_load_group_id(word / 256) : word / 16; }

/// The superposition id of a word.
constexpr int lcm_superposition_id(int word)
{
    const int id = word & 15;
    return id == LC_SUPERPOSITION_OLD_PERC ? LC_SUPERPOSITION_PERC : id;
}

/// The word for the two ids; the reverse of the two functions above.
constexpr int lcm_partition_word(int partitionId, int superpositionId)
{
    const int partition = lcm_is_load_group(partitionId)
                              ? lcm_load_group(partitionId) * 256 + LC_CATEGORY_VARIABLE * 16
                              : partitionId * 16;
    const bool old = superpositionId == LC_SUPERPOSITION_OLD_PERC;
    return partition + (old ? LC_SUPERPOSITION_PERC : superpositionId);
}

/// The type family of an action: LC_CATEGORY_PERMANENT and LC_CATEGORY_PRESTRESS are families of their own,
/// every other value is live. A load group makes it large.
constexpr int lcm_type_family(const tagCDB_LC_ACT& action) { return action.partition / 16; }
