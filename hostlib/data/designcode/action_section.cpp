#include "hostlib/data/designcode/action_section.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <iterator>

#include "hostlib/data/designcode/action_name.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/partition.h"

namespace mrl::designcode {

namespace {

constexpr int MAX_TITLE_UNITS = 2 * LC_TITLE_WORDS - 1; // the last unit stays 0
constexpr std::string_view FOREIGN_TITLE = "title[";

/// The categories without the load groups, which stand in an entry of their own.
std::vector<LCM_Partition> categories()
{
    std::vector<LCM_Partition> list;
    std::copy_if(LCM_PARTITIONS.begin(), LCM_PARTITIONS.end(), std::back_inserter(list),
                 [](const LCM_Partition& partition) { return !lcm_is_load_group(partition.id); });
    return list;
}

/// The language of "title[de]"; empty for another entry.
std::string languageOf(const std::string& key)
{
    const bool isTitle = key.rfind(FOREIGN_TITLE, 0) == 0 && key.back() == ']';
    return isTitle ? key.substr(FOREIGN_TITLE.size(), key.size() - FOREIGN_TITLE.size() - 1) : std::string();
}

class ActionReader
{
  public:
    ActionReader(const IniSection& section, EntryReader& reader) : m_section(section), m_reader(reader) {}

    DefaultAction read();

  private:
    void name();
    void keys();
    void entry(const IniEntry& entry);
    void factor(const IniEntry& entry);
    bool fitsAsTitle(const IniEntry& entry);
    void title(const IniEntry& entry);
    void oldNumbers(const IniEntry& entry);
    void partition();

    const IniSection& m_section;
    EntryReader& m_reader;
    DefaultAction m_action;
};

DefaultAction ActionReader::read()
{
    m_action.line = m_section.line;
    m_action.file = m_reader.fileOf(m_section.file);
    m_action.record.kind = LC_KIND_ACTION;
    name();
    keys();
    for (const IniEntry& each : m_section.entries) {
        entry(each);
    }
    partition();
    return std::move(m_action);
}

void ActionReader::name()
{
    m_action.name = m_section.name.substr(std::string("ACTION ").size());
    if (const auto reason = setName(m_action.name, m_action.record)) {
        m_reader.fail(m_section, *reason, "write a name such as Q or Q_A");
    }
    m_action.code = lcm_pack_bytes(m_action.name);
}

void ActionReader::keys()
{
    static const Words KEYS = [] {
        Words keys{"title", "category", "group", "superposition", "old", "after"};
        for (const LCM_Factor& factor : LCM_FACTORS) {
            keys.emplace_back(factor.key);
        }
        return keys;
    }();
    for (const IniEntry& entry : m_section.entries) {
        if (std::find(KEYS.begin(), KEYS.end(), entry.key) == KEYS.end() && languageOf(entry.key).empty()) {
            m_reader.unknownKey(m_section, entry, KEYS);
        }
    }
}

void ActionReader::entry(const IniEntry& entry)
{
    const std::string language = languageOf(entry.key);
    if (entry.key == "title") {
        title(entry);
    } else if (!language.empty()) {
        if (fitsAsTitle(entry)) {
            m_action.titles[language] = entry.value;
        }
    } else if (entry.key == "old") {
        oldNumbers(entry);
    } else {
        factor(entry);
    }
}

void ActionReader::factor(const IniEntry& entry)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        float value = 0.0f;
        if (entry.key == factor.key && m_reader.number(entry, value, &m_action.origins[factor.id])) {
            m_action.record.*factor.actionField = lcm_factor_to_store(factor, value);
        }
    }
}

bool ActionReader::fitsAsTitle(const IniEntry& entry)
{
    const int units = QString::fromStdString(entry.value).size();
    if (units > MAX_TITLE_UNITS) {
        m_reader.fail(entry,
                      "the title has " + std::to_string(units) + " units, at most " +
                          std::to_string(MAX_TITLE_UNITS) + " fit",
                      "shorten it");
    }
    return units <= MAX_TITLE_UNITS;
}

void ActionReader::title(const IniEntry& entry)
{
    if (fitsAsTitle(entry)) {
        lcm_title_pack(QString::fromStdString(entry.value), m_action.record.title, LC_TITLE_WORDS);
    }
}

void ActionReader::oldNumbers(const IniEntry& entry)
{
    const QStringList words = QString::fromStdString(entry.value).split(',');
    for (const QString& word : words) {
        IniEntry one = entry;
        one.value = word.trimmed().toStdString();
        int number = 0;
        if (!m_reader.integer(one, number)) {
            continue;
        }
        if (number < 1 || number > 999) {
            m_reader.fail(one, "'" + one.value + "' is no old number: they are 1 to 999",
                          "2 stands for the dead action, 7 for the live one");
        } else {
            m_action.oldNumbers.push_back(number);
        }
    }
}

void ActionReader::partition()
{
    const IniEntry* category = m_section.find("category");
    const IniEntry* superposition = m_section.find("superposition");
    const IniEntry* group = m_section.find("group");
    if (category == nullptr || superposition == nullptr) {
        m_reader.fail(m_section, "an action needs the entries 'category' and 'superposition'",
                      "write 'category = Q' and 'superposition = COND', or others");
        return;
    }
    int categoryValue = 0;
    int superpositionValue = 0;
    int groupValue = 0;
    const bool isCategory = m_reader.keyword(*category, categories(), categoryValue);
    const bool isSuperposition = m_reader.keyword(*superposition, LCM_SUPERPOSITIONS, superpositionValue);
    const bool isNumber = group == nullptr || m_reader.integer(*group, groupValue);
    if (!isCategory || !isSuperposition || !isNumber) {
        return;
    }
    const bool isGroup = groupValue >= 1 && groupValue <= LC_LOAD_GROUPS;
    if (group != nullptr && (categoryValue != LC_CATEGORY_VARIABLE || !isGroup)) {
        m_reader.fail(*group,
                      "a load group is 1 to " + std::to_string(LC_LOAD_GROUPS) +
                          " and stands with category Q only",
                      "correct the number, or leave the entry out");
        return;
    }
    m_action.record.partition =
        lcm_partition_word(isGroup ? lcm_load_group_id(groupValue) : categoryValue, superpositionValue);
}

} // namespace

DefaultAction readAction(const IniSection& section, EntryReader& reader)
{
    return ActionReader(section, reader).read();
}

} // namespace mrl::designcode
