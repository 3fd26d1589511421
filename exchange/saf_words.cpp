#include "exchange/saf_words.h"

#include <algorithm>

#include "lcdata/values/factors.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/partition.h"

namespace mrl::exchange {

namespace {

struct Pair
{
    const char* ours;
    const char* saf;
};

/// Load types of groups by the name of the action.
constexpr Pair LOAD_TYPES[] = {{"Q_A", "Domestic"},       {"Q_B", "Offices"}, {"Q_C", "Congregation"},
                               {"Q_D", "Shopping"},       {"Q_E", "Storage"}, {"Q_F", "Vehicle < 30kN"},
                               {"Q_G", "Vehicle > 30kN"}, {"Q_H", "Roofs"}};

constexpr Pair CLIMATE[] = {{"W", "Wind"}, {"S", "Snow"}, {"T", "Temperature"}};

/// Classes of load duration of EN 1995-1-1, 2.3.1.2, by the name of the action; Medium for all others.
constexpr Pair DURATIONS[] = {
    {"Q_E", "Long"}, {"Q_H", "Short"}, {"W", "Short"}, {"S", "Short"}, {"T", "Short"}};

constexpr Pair CODES[] = {{"en1990", "EC-Standard-EN"}, {"din-en1990-na", "EC-DIN-EN"},
                          {"bs-en1990-na", "EC-BS-EN"}, {"ds-en1990-dkna", "EC-DS-EN"},
                          {"sia260", "SIA 26x"},        {"asce7-lrfd", "IBC"},
                          {"asce7-22-lrfd", "IBC"}};

template <std::size_t N>
std::string found(const Pair (&pairs)[N], const std::string& ours, const char* otherwise)
{
    const auto at =
        std::find_if(std::begin(pairs), std::end(pairs), [&](const Pair& pair) { return ours == pair.ours; });
    return at == std::end(pairs) ? otherwise : at->saf;
}

std::string firstPart(const std::string& name) { return name.substr(0, name.find('_')); }

/// Wind, snow and temperature by the first part of a name; empty for all others.
std::string climate(const std::string& name) { return found(CLIMATE, firstPart(name), ""); }

bool isPermanent(const SafGroup& group) { return group.type == "Permanent"; }

std::string typeOf(int partition)
{
    switch (partition) {
    case LC_CATEGORY_PERMANENT:
    case LC_CATEGORY_PRESTRESS:
        return "Permanent";
    case LC_CATEGORY_ACCIDENTAL:
        return "Accidental";
    case LC_CATEGORY_EARTHQUAKE:
        return "Seismic";
    default:
        return "Variable";
    }
}

/// The relation of a superposition among loads of a type.
std::string relationOf(int superposition, bool permanent)
{
    const LCM_SuperpositionMeaning meaning = lcm_superposition_meaning(superposition);
    if (permanent) {
        return meaning.acting == LCM_Acting::All && !meaning.choosesEach ? "Together" : "Standard";
    }
    return meaning.acting == LCM_Acting::One ? "Exclusive" : "Standard";
}

void addLosses(const tagCDB_LC_ACT& action, SafGroup& group)
{
    const int superposition = lcm_superposition_id(action.partition);
    const int partition = lcm_partition_id(action.partition);
    const auto lose = [&](const Message& what) {
        group.losses.push_back(Message::at({QT_TRANSLATE_NOOP("Exchange", "action %1"), {group.name}}, what));
    };
    lose({QT_TRANSLATE_NOOP("Exchange", "all factors")});
    const SafMeaning meaning = safMeaningOf(group);
    const std::string ours = lcm_word_of_id(LCM_SUPERPOSITIONS, superposition);
    if (meaning.superposition != ours) {
        lose({QT_TRANSLATE_NOOP("Exchange", "the superposition %1 is written as %2 and would be read as %3"),
              {ours, group.relation, meaning.superposition}});
    }
    const std::string word = lcm_word_of_id(LCM_PARTITIONS, partition);
    if (meaning.partition != word) {
        lose({QT_TRANSLATE_NOOP("Exchange", "the partition %1 would be read as %2"),
              {word, meaning.partition}});
    }
}

} // namespace

SafGroup safGroupOf(const std::string& name, const tagCDB_LC_ACT& action)
{
    SafGroup group;
    group.name = name;
    group.type = typeOf(lcm_partition_id(action.partition));
    group.relation = relationOf(lcm_superposition_id(action.partition), isPermanent(group));
    if (group.type == "Variable") {
        const std::string known = climate(name);
        group.loadType = known.empty() ? found(LOAD_TYPES, name, "Others") : known;
    }
    addLosses(action, group);
    return group;
}

SafGroup safGroupOfNoAction(const std::string& name)
{
    return {name,
            "Variable",
            "Standard",
            "Others",
            {{QT_TRANSLATE_NOOP("Exchange", "load cases of %1: that they have no action"), {name}}}};
}

SafCase safCaseOf(const SafGroup& group, const tagCDB_LC_ACT* action, const tagCDB_LC_CTRL& loadCase)
{
    if (isPermanent(group)) {
        const bool isPrestress =
            action != nullptr && lcm_partition_id(action->partition) == LC_CATEGORY_PRESTRESS;
        const bool hasWeight = loadCase.dlx != 0.0f || loadCase.dly != 0.0f || loadCase.dlz != 0.0f;
        return {"Permanent", isPrestress ? "Prestress" : hasWeight ? "Self weight" : "Others", ""};
    }
    if (group.type == "Accidental") {
        return {"Accidental", "Others", ""};
    }
    if (group.type == "Seismic") {
        return {"Variable", "Seismic", "Instantaneous"};
    }
    const std::string known = climate(group.name);
    const std::string duration = known.empty() ? found(DURATIONS, group.name, "Medium")
                                               : found(DURATIONS, firstPart(group.name), "Medium");
    return {"Variable", known.empty() ? (action == nullptr ? "Others" : "Static") : known, duration};
}

SafMeaning safMeaningOf(const SafGroup& group)
{
    SafMeaning meaning;
    const auto note = [&](const Message& what) {
        meaning.notes.push_back(
            Message::at({QT_TRANSLATE_NOOP("Exchange", "load group %1"), {group.name}}, what));
    };
    meaning.partition = isPermanent(group)           ? "G"
                        : group.type == "Accidental" ? "A"
                        : group.type == "Seismic"    ? "E"
                                                     : "Q";
    const bool isKnown = isPermanent(group) || meaning.partition != "Q" || group.type == "Variable";
    if (!isKnown) {
        note({QT_TRANSLATE_NOOP("Exchange", "the type \"%1\" is read as Variable"), {group.type}});
    }
    const bool isTogether = group.relation == "Together";
    if (isTogether && !isPermanent(group)) {
        note({QT_TRANSLATE_NOOP("Exchange", "Together, which is for permanent loads only, is read as PERM")});
    }
    if (group.relation != "Exclusive" && group.relation != "Standard" && !isTogether) {
        note({QT_TRANSLATE_NOOP("Exchange", "the relation \"%1\" is read as %2"),
              {group.relation, isPermanent(group) ? "Together" : "Standard"}});
    }
    // A permanent load acts always, whatever a relation of Standard says elsewhere.
    meaning.superposition = group.relation == "Exclusive"      ? "EXCL"
                            : isTogether || isPermanent(group) ? "PERM"
                                                               : "COND";
    return meaning;
}

std::string safActionLike(const SafGroup& group)
{
    for (const Pair& pair : CLIMATE) {
        if (group.loadType == pair.saf) {
            return pair.ours;
        }
    }
    for (const Pair& pair : LOAD_TYPES) {
        if (group.loadType == pair.saf) {
            return pair.ours;
        }
    }
    return {};
}

std::string safNationalCode(const std::string& designCode) { return found(CODES, designCode, ""); }

} // namespace mrl::exchange
