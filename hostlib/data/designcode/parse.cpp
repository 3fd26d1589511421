#include <QString>
#include <QStringList>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <unordered_map>

#include "hostlib/data/designcode/action_name.h"
#include "hostlib/data/designcode/designcode.h"
#include "hostlib/data/designcode/ini_file.h"
#include "hostlib/data/designcode/situations.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/factors.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/partition.h"

namespace mrl::designcode {

namespace {

constexpr int MAX_TITLE_UNITS = 2 * LC_TITLE_WORDS - 1; // the last unit stays 0
constexpr std::size_t MAX_ACTIONS = 999;                // an enumeration of default actions stops there

using Keys = std::vector<std::string_view>;

/// What a section may hold beside a value for each factor.
Keys withFactors(Keys keys)
{
    for (const LCM_Factor& factor : LCM_FACTORS) {
        keys.emplace_back(factor.key);
    }
    return keys;
}

/// The categories without the load groups, which stand in an entry of their own.
std::vector<LCM_Partition> categories()
{
    std::vector<LCM_Partition> list;
    std::copy_if(LCM_PARTITIONS.begin(), LCM_PARTITIONS.end(), std::back_inserter(list),
                 [](const LCM_Partition& partition) { return !lcm_is_load_group(partition.id); });
    return list;
}

/// Takes the sections of a file over into a design code. Each step returns false once `error` is set.
class Builder
{
  public:
    explicit Builder(const IniFile& file) : m_ini(file) {}

    bool build();

    DesignCode code;
    IniError error;

  private:
    bool fail(int line, std::string reason);
    bool identity(const IniSection& section);
    bool availability(const IniSection& section);
    bool texts(const IniSection& section);
    bool combinations(const IniSection& section);
    bool constantsAreNamed();
    bool action(const IniSection& section);
    bool actionEntry(const IniEntry& entry, DefaultAction& action);
    bool partition(const IniSection& section, tagCDB_LC_ACT& record);
    bool enterAction(DefaultAction action);
    bool onlyKeys(const IniSection& section, const Keys& keys);

    bool number(const IniEntry& entry, float& value);
    bool integer(const IniEntry& entry, int& value);
    template <class List>
    bool keyword(const IniEntry& entry, const List& list, int& value);
    bool title(const IniEntry& entry, tagCDB_LC_ACT& record);
    bool oldNumbers(const IniEntry& entry, DefaultAction& action);

    const IniFile& m_ini;
    std::unordered_map<int, int> m_codeLines;
    std::unordered_map<int, int> m_oldNumberLines;
};

bool Builder::fail(int line, std::string reason)
{
    error = {line, std::move(reason)};
    return false;
}

bool Builder::build()
{
    std::vector<const IniSection*> situations;
    for (const IniSection& section : m_ini.sections) {
        const bool isAction = section.name.rfind("ACTION ", 0) == 0;
        bool good = false;
        if (section.name == "DESIGN CODE") {
            good = identity(section);
        } else if (section.name == "AVAILABILITY") {
            good = availability(section);
        } else if (section.name == "ACTIONS") {
            good = texts(section);
        } else if (section.name == "COMBINATIONS") {
            good = combinations(section);
        } else if (isAction) {
            good = action(section);
        } else if (isSituation(section.name)) {
            situations.push_back(&section);
            good = true;
        } else {
            good = fail(section.line, "section '" + section.name + "' is not known");
        }
        if (!good) {
            return false;
        }
    }
    readSituations(situations, code);
    return constantsAreNamed() &&
           (m_ini.find("DESIGN CODE") != nullptr || fail(0, "section 'DESIGN CODE' is missing"));
}

/// A constant that no situation names is a misspelt one. While a situation can't be read, nobody knows.
bool Builder::constantsAreNamed()
{
    const IniSection* section = m_ini.find("COMBINATIONS");
    if (section == nullptr || !code.readingWarnings.empty()) {
        return true;
    }
    for (const IniEntry& entry : section->entries) {
        if (entry.key != "KFI" && entry.key != "XSI" && !isNamed(entry.key, code)) {
            return fail(entry.line, "entry '" + entry.key + "' is not known in section 'COMBINATIONS'");
        }
    }
    return true;
}

bool Builder::onlyKeys(const IniSection& section, const Keys& keys)
{
    for (const IniEntry& entry : section.entries) {
        if (std::find(keys.begin(), keys.end(), entry.key) == keys.end()) {
            return fail(entry.line,
                        "entry '" + entry.key + "' is not known in section '" + section.name + "'");
        }
    }
    return true;
}

bool Builder::identity(const IniSection& section)
{
    if (!onlyKeys(section, {"label", "ntcode", "idcode", "country", "year"})) {
        return false;
    }
    for (const char* key : {"label", "ntcode", "idcode", "country", "year"}) {
        if (section.find(key) == nullptr) {
            return fail(section.line, std::string("entry '") + key + "' is missing in section 'DESIGN CODE'");
        }
    }
    code.label = section.find("label")->value;
    if (code.label.empty()) {
        return fail(section.find("label")->line, "the label is empty");
    }
    return integer(*section.find("ntcode"), code.ntcode) && integer(*section.find("idcode"), code.idcode) &&
           integer(*section.find("country"), code.country) && integer(*section.find("year"), code.year);
}

bool Builder::availability(const IniSection& section)
{
    if (!onlyKeys(section, withFactors({}))) {
        return false;
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const IniEntry* entry = section.find(factor.key);
        if (entry != nullptr && !number(*entry, code.availability.*factor.actionField)) {
            return false;
        }
    }
    return true;
}

bool Builder::texts(const IniSection& section)
{
    code.hasActionsSection = true;
    for (const IniEntry& entry : section.entries) {
        if (entry.key.rfind("TXT_", 0) != 0) {
            return fail(entry.line,
                        "entry '" + entry.key + "' of section 'ACTIONS' doesn't begin with 'TXT_'");
        }
        code.texts.push_back({entry.key, entry.value});
    }
    return true;
}

bool Builder::combinations(const IniSection& section)
{
    for (const IniEntry& entry : section.entries) {
        float value = 0.0f;
        if (!number(entry, value)) {
            return false;
        }
        code.constants[entry.key] = value;
        if (entry.key == "KFI") {
            code.kfi = value;
        } else if (entry.key == "XSI") {
            code.xsi = value;
        }
    }
    return true;
}

bool Builder::action(const IniSection& section)
{
    DefaultAction result;
    result.line = section.line;
    result.name = section.name.substr(std::string("ACTION ").size());
    result.record.kind = LC_KIND_ACTION;
    if (const auto reason = setName(result.name, result.record)) {
        return fail(section.line, *reason);
    }
    result.code = lcm_pack_bytes(result.name);
    if (!onlyKeys(section, withFactors({"title", "category", "group", "superposition", "old"}))) {
        return false;
    }
    for (const IniEntry& entry : section.entries) {
        if (!actionEntry(entry, result)) {
            return false;
        }
    }
    return partition(section, result.record) && enterAction(std::move(result));
}

bool Builder::actionEntry(const IniEntry& entry, DefaultAction& action)
{
    if (entry.key == "title") {
        return title(entry, action.record);
    }
    if (entry.key == "old") {
        return oldNumbers(entry, action);
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (entry.key != factor.key) {
            continue;
        }
        float value = 0.0f;
        if (!number(entry, value)) {
            return false;
        }
        action.record.*factor.actionField = lcm_factor_to_store(factor, value);
    }
    return true;
}

bool Builder::partition(const IniSection& section, tagCDB_LC_ACT& record)
{
    const IniEntry* category = section.find("category");
    const IniEntry* superposition = section.find("superposition");
    const IniEntry* group = section.find("group");
    if (category == nullptr || superposition == nullptr) {
        return fail(section.line, "an action needs the entries 'category' and 'superposition'");
    }
    int categoryValue = 0;
    int superpositionValue = 0;
    int groupValue = 0;
    if (!keyword(*category, categories(), categoryValue) ||
        !keyword(*superposition, LCM_SUPERPOSITIONS, superpositionValue) ||
        (group != nullptr && !integer(*group, groupValue))) {
        return false;
    }
    const bool isGroup = groupValue >= 1 && groupValue <= LC_LOAD_GROUPS;
    if (group != nullptr && (categoryValue != LC_CATEGORY_VARIABLE || !isGroup)) {
        return fail(group->line, "a load group is 1 to " + std::to_string(LC_LOAD_GROUPS) +
                                     " and stands with category Q only");
    }
    record.partition =
        lcm_partition_word(isGroup ? lcm_load_group_id(groupValue) : categoryValue, superpositionValue);
    return true;
}

bool Builder::enterAction(DefaultAction action)
{
    const auto [first, isNew] = m_codeLines.emplace(action.code, action.line);
    if (!isNew) {
        return fail(action.line, "the first four characters of the name are those of the action in line " +
                                     std::to_string(first->second));
    }
    if (code.actions.size() == MAX_ACTIONS) {
        return fail(action.line, "more than 999 actions");
    }
    code.actions.push_back(std::move(action));
    return true;
}

bool Builder::number(const IniEntry& entry, float& value)
{
    const char* const last = entry.value.data() + entry.value.size();
    const auto [end, result] = std::from_chars(entry.value.data(), last, value);
    if (result != std::errc() || end != last || !std::isfinite(value)) {
        return fail(entry.line, "'" + entry.value + "' of entry '" + entry.key + "' is no number");
    }
    return true;
}

bool Builder::integer(const IniEntry& entry, int& value)
{
    const char* const last = entry.value.data() + entry.value.size();
    const auto [end, result] = std::from_chars(entry.value.data(), last, value);
    if (result != std::errc() || end != last) {
        return fail(entry.line, "'" + entry.value + "' of entry '" + entry.key + "' is no whole number");
    }
    return true;
}

template <class List>
bool Builder::keyword(const IniEntry& entry, const List& list, int& value)
{
    if (const auto id = lcm_id_of_word(list, entry.value)) {
        value = *id;
        return true;
    }
    return fail(entry.line,
                "'" + entry.value + "' of entry '" + entry.key + "' is none of " + lcm_joined_words(list));
}

bool Builder::title(const IniEntry& entry, tagCDB_LC_ACT& record)
{
    const QString text = QString::fromStdString(entry.value);
    if (text.size() > MAX_TITLE_UNITS) {
        return fail(entry.line, "the title has " + std::to_string(text.size()) + " units, at most " +
                                    std::to_string(MAX_TITLE_UNITS) + " fit");
    }
    lcm_title_pack(text, record.title, LC_TITLE_WORDS);
    return true;
}

bool Builder::oldNumbers(const IniEntry& entry, DefaultAction& action)
{
    const QStringList words = QString::fromStdString(entry.value).split(',');
    for (const QString& word : words) {
        int number = 0;
        if (!integer({entry.key, word.trimmed().toStdString(), entry.line}, number)) {
            return false;
        }
        if (number < 1 || number > 999) {
            return fail(entry.line, "an old number is 1 to 999");
        }
        const auto [first, isNew] = m_oldNumberLines.emplace(number, entry.line);
        if (!isNew) {
            return fail(entry.line, "the old number " + std::to_string(number) +
                                        " is already given in line " + std::to_string(first->second));
        }
        action.oldNumbers.push_back(number);
    }
    return true;
}

/// The name that a project stores: the file's name without folder and ending.
std::string nameOf(const std::string& file)
{
    const std::string base = file.substr(file.find_last_of('/') + 1);
    const auto dot = base.rfind(".ini");
    return dot != std::string::npos && dot + 4 == base.size() ? base.substr(0, dot) : base;
}

} // namespace

std::string Error::text() const
{
    return line > 0 ? file + ":" + std::to_string(line) + ": " + reason : file + ": " + reason;
}

ReadResult parse(std::string_view content, const std::string& file)
{
    const IniResult ini = parseIni(content);
    if (const auto* error = std::get_if<IniError>(&ini)) {
        return Error{file, error->line, error->reason};
    }
    Builder builder(std::get<IniFile>(ini));
    if (!builder.build()) {
        return Error{file, builder.error.line, builder.error.reason};
    }
    builder.code.file = file;
    builder.code.name = nameOf(file);
    return std::move(builder.code);
}

ReadResult read(const std::string& file)
{
    const auto text = readText(file);
    if (const auto* error = std::get_if<IniError>(&text)) {
        return Error{file, error->line, error->reason};
    }
    return parse(std::get<std::string>(text), file);
}

} // namespace mrl::designcode
