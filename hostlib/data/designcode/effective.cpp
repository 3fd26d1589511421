#include "hostlib/data/designcode/effective.h"

#include <QCryptographicHash>
#include <charconv>
#include <map>
#include <set>

#include "hostlib/data/designcode/ini_file.h"
#include "hostlib/data/designcode/situations.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/partition.h"

namespace mrl::designcode {

namespace {

std::string shortest(float value)
{
    char text[32];
    const auto [end, result] = std::to_chars(std::begin(text), std::end(text), value);
    return std::string(std::begin(text), result == std::errc() ? end : std::begin(text));
}

/// Gathers the values of a code.
class Gatherer
{
  public:
    explicit Gatherer(const DesignCode& code) : m_code(code) {}

    std::vector<EffectiveValue> gather()
    {
        identity();
        for (const DefaultAction& each : m_code.actions) {
            action(each);
        }
        situations();
        return std::move(m_values);
    }

  private:
    void add(const std::string& subject, const std::string& name, const std::string& value)
    {
        m_values.push_back({subject, name, value});
    }

    void identity()
    {
        add("code", "ntcode", std::to_string(m_code.ntcode));
        add("code", "idcode", std::to_string(m_code.idcode));
        add("code", "country", std::to_string(m_code.country));
        add("code", "year", std::to_string(m_code.year));
        for (const LCM_Factor& factor : LCM_FACTORS) {
            add("marks", factor.key, shortest(m_code.availability.*factor.actionField));
        }
        for (const auto& [name, origin] : m_code.constantOrigins) {
            add("combinations", name, shortest(m_code.constants.at(name)));
        }
        for (const Label& label : m_code.texts) {
            add("labels", label.key, label.text);
        }
    }

    void action(const DefaultAction& action)
    {
        const std::string subject = "action " + action.name;
        add(subject, "title", lcm_title_text(action.record.title).toStdString());
        add(subject, "partition", lcm_word_of_id(LCM_PARTITIONS, lcm_partition_id(action.record.partition)));
        add(subject, "superposition",
            lcm_word_of_id(LCM_SUPERPOSITIONS, lcm_superposition_id(action.record.partition)));
        std::string old;
        for (const int number : action.oldNumbers) {
            old += (old.empty() ? "" : ", ") + std::to_string(number);
        }
        add(subject, "old", old);
        for (const LCM_Factor& factor : LCM_FACTORS) {
            if (action.origins[factor.id].isStated()) {
                add(subject, factor.key, shortest(action.record.*factor.actionField));
            }
        }
    }

    /// As their entries are written, whether they could be read or not.
    void situations()
    {
        const std::set<std::string> words{"clause", "state", "title"};
        for (const IniSection& section : parseIni(m_code.flat).file.sections) {
            for (const IniEntry& entry : section.entries) {
                const bool isWord = words.count(entry.key.substr(0, entry.key.find('['))) > 0;
                if (isSituation(section.name) && !isWord) {
                    add("situation " + section.name.substr(std::string("SITUATION ").size()), entry.key,
                        entry.value);
                }
            }
        }
    }

    const DesignCode& m_code;
    std::vector<EffectiveValue> m_values;
};

using Table = std::map<std::pair<std::string, std::string>, std::string>;

Table tableOf(const std::vector<EffectiveValue>& values)
{
    Table table;
    for (const EffectiveValue& each : values) {
        table[{each.subject, each.name}] = each.value;
    }
    return table;
}

std::set<std::string> subjectsOf(const std::vector<EffectiveValue>& values)
{
    std::set<std::string> subjects;
    for (const EffectiveValue& each : values) {
        subjects.insert(each.subject);
    }
    return subjects;
}

std::optional<std::string> find(const Table& table, const EffectiveValue& value)
{
    const auto found = table.find({value.subject, value.name});
    return found == table.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

std::vector<EffectiveValue> effectiveValues(const DesignCode& code) { return Gatherer(code).gather(); }

std::string fingerprint(const DesignCode& code)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const EffectiveValue& each : effectiveValues(code)) {
        const std::string line = each.subject + '\0' + each.name + '\0' + each.value + '\n';
        hash.addData(line.data(), static_cast<int>(line.size()));
    }
    return hash.result().toHex().toStdString();
}

std::vector<Difference> differences(const DesignCode& a, const DesignCode& b)
{
    const auto first = effectiveValues(a);
    const auto second = effectiveValues(b);
    const Table inFirst = tableOf(first);
    const Table inSecond = tableOf(second);
    const auto subjectsOfFirst = subjectsOf(first);
    const auto subjectsOfSecond = subjectsOf(second);
    std::vector<Difference> out;
    std::set<std::string> told;
    for (const EffectiveValue& value : first) {
        const auto other = find(inSecond, value);
        if (subjectsOfSecond.count(value.subject) == 0) {
            if (told.insert(value.subject).second) {
                out.push_back({value.subject, {}, std::string(), std::nullopt});
            }
        } else if (other != value.value) {
            out.push_back({value.subject, value.name, value.value, other});
        }
    }
    for (const EffectiveValue& value : second) {
        if (subjectsOfFirst.count(value.subject) == 0) {
            if (told.insert(value.subject).second) {
                out.push_back({value.subject, {}, std::nullopt, std::string()});
            }
        } else if (!find(inFirst, value)) {
            out.push_back({value.subject, value.name, std::nullopt, value.value});
        }
    }
    return out;
}

std::string textOf(const Difference& difference)
{
    if (difference.name.empty()) {
        return difference.subject + (difference.a ? ": is gone" : ": is new");
    }
    return difference.subject + " " + difference.name + ": " + difference.b.value_or("not stated") +
           ", was " + difference.a.value_or("not stated");
}

} // namespace mrl::designcode
