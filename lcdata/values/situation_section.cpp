#include "lcdata/values/situation_section.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <unordered_map>

namespace {

constexpr int MOST_ACTIONS = 999999; // at-most: beyond any number of load cases it says nothing

std::vector<std::string> wordsOf(const std::string& text)
{
    const auto isBlank = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    std::vector<std::string> words;
    for (auto at = text.begin(); at != text.end();) {
        const auto begin = std::find_if_not(at, text.end(), isBlank);
        at = std::find_if(begin, text.end(), isBlank);
        if (begin != at) {
            words.emplace_back(begin, at);
        }
    }
    return words;
}

} // namespace

std::string lcm_trimmed(const std::string& text)
{
    const auto begin = text.find_first_not_of(" \t");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

void LCM_SituationSectionReader::tell(std::string message, std::string cure)
{
    m_findings.push_back({m_section, m_entry, std::move(message), std::move(cure)});
}

void LCM_SituationSectionReader::read(const std::vector<LCM_TextEntry>& entries)
{
    std::unordered_map<std::string, int> seen;
    for (const LCM_TextEntry& each : entries) {
        ++m_entry;
        m_place = each.place;
        const std::vector<std::string> words = wordsOf(each.key);
        std::string key;
        for (const std::string& word : words) {
            key.append(key.empty() ? "" : " ").append(word);
        }
        if (!seen.emplace(key, m_entry).second) {
            tell("'" + key + "' stands twice in this section", "leave one of them out");
        } else {
            entry(key, words, lcm_trimmed(each.value));
        }
    }
}

void LCM_SituationSectionReader::entry(const std::string& key, const std::vector<std::string>& words,
                                       const std::string& value)
{
    if (ofExpression(key, words, value) || common(key, value) || (!m_isExpression && whole(key, value))) {
        return;
    }
    unknown(key);
}

bool LCM_SituationSectionReader::common(const std::string& key, const std::string& value)
{
    if (key != "clause" && key != "state") {
        return false;
    }
    std::string& ofWhole = key == "clause" ? m_situation.clause : m_situation.state;
    std::string& ofPart = key == "clause" ? m_expression.clause : m_expression.state;
    (m_isExpression ? ofPart : ofWhole) = value;
    return true;
}

bool LCM_SituationSectionReader::yes(const std::string& value)
{
    return oneOf(value, {"yes", "no"}) && value == "yes";
}

bool LCM_SituationSectionReader::oneOf(const std::string& value, const std::vector<std::string>& words)
{
    if (std::find(words.begin(), words.end(), value) != words.end()) {
        return true;
    }
    const std::string nearest = lcm_nearest_word(value, words);
    std::string all;
    for (const std::string& word : words) {
        all += (all.empty() ? "" : ", ") + word;
    }
    tell("'" + value + "' is not known here", nearest.empty() ? "write one of: " + all : "write " + nearest);
    return false;
}

bool LCM_SituationSectionReader::whole(const std::string& key, const std::string& value)
{
    const bool isForeignTitle = key.rfind("title[", 0) == 0 && key.size() > 7 && key.back() == ']';
    if (key == "kind") {
        oneOf(value, {LCM_SITUATION_KINDS.begin(), LCM_SITUATION_KINDS.end()});
        m_situation.kind = value;
    } else if (key == "title") {
        m_situation.title = value;
    } else if (isForeignTitle) {
        m_situation.titles.emplace_back(key.substr(6, key.size() - 7), value);
    } else if (key == "groups") {
        if (oneOf(value, {"together", "exclude", "apart"})) {
            m_situation.groups = value == "exclude" ? LCM_Groups::Exclude
                                 : value == "apart" ? LCM_Groups::Apart
                                                    : LCM_Groups::Together;
        }
    } else if (key == "always") {
        m_situation.always = yes(value);
    } else if (key == "may-be-none") {
        m_situation.mayBeNone = yes(value);
    } else if (key == "remove") {
        m_situation.removed = yes(value);
    } else if (key == "components") {
        components(value);
    } else if (key == "at-most") {
        atMost(value);
    } else {
        return false;
    }
    return true;
}

void LCM_SituationSectionReader::components(const std::string& value)
{
    const auto numbers = m_terms.numbers(value);
    if (!numbers) {
        tell(m_terms.error().message, m_terms.error().cure);
    } else if (numbers->size() != 2 || numbers->at(0) <= 0 || numbers->at(1) > numbers->at(0)) {
        tell("'" + value + "' is no pair of components", "write the greater factor first, such as 1, 0.3");
    } else {
        m_situation.firstComponent = numbers->at(0);
        m_situation.otherComponents = numbers->at(1);
    }
}

void LCM_SituationSectionReader::atMost(const std::string& value)
{
    const auto numbers = m_terms.numbers(value);
    const double number = numbers && numbers->size() == 1 ? numbers->front() : 0;
    if (number < 1 || number > MOST_ACTIONS || number != std::floor(number)) {
        tell("'" + value + "' is no number of actions", "write a whole number from 1, such as 2");
    } else {
        m_situation.atMost = static_cast<int>(number);
    }
}

bool LCM_SituationSectionReader::ofExpression(const std::string& key, const std::vector<std::string>& words,
                                              const std::string& value)
{
    if (key == "sum") {
        m_expression.sumPlace = m_place;
        m_expression.sum = m_terms.sum(value);
        if (!m_expression.sum) {
            tell(m_terms.error().message, m_terms.error().cure);
            m_expression.sum.emplace();
        }
        return true;
    }
    if (key == "short") {
        shortActions(value);
        return true;
    }
    for (const LCM_RoleWord& each : LCM_ROLE_WORDS) {
        if (!words.empty() && words.front() == each.word) {
            role(each.role, words, value);
            return true;
        }
    }
    return false;
}

void LCM_SituationSectionReader::shortActions(const std::string& value)
{
    m_expression.shortPlace = m_place;
    std::istringstream stream(value);
    for (std::string part; std::getline(stream, part, ',');) {
        if (wordsOf(part).size() != 1) {
            tell("'" + value + "' is no list of actions", "separate names by commas, such as S, W, T");
            return;
        }
        m_expression.shortActions.push_back(lcm_trimmed(part));
    }
    if (m_expression.shortActions.empty()) {
        tell("the list of short-term actions is empty", "name them, such as S, W, T, or leave the entry out");
    }
}

bool LCM_SituationSectionReader::subject(LCM_RoleEntry& entry, const std::vector<std::string>& words)
{
    const bool isNamed = words.size() > 1 && words[1] != "when";
    if (isNamed) {
        entry.action = words[1];
    }
    const std::size_t at = isNamed ? 2 : 1;
    if (words.size() == at) {
        return true;
    }
    const std::string verb = entry.role == LCM_Role::Lead ? "acts" : "leads";
    const bool takesWhen = entry.role == LCM_Role::Lead || entry.role == LCM_Role::Others;
    if (takesWhen && words.size() == at + 3 && words[at] == "when" && words[at + 2] == verb) {
        entry.when = words[at + 1];
        return true;
    }
    tell("the words behind '" + words[0] + "' can't be read",
         "write 'lead NAME', 'others NAME when NAME leads' or 'lead when NAME acts'");
    return false;
}

void LCM_SituationSectionReader::role(LCM_Role role, const std::vector<std::string>& words,
                                      const std::string& value)
{
    LCM_RoleEntry entry;
    entry.role = role;
    entry.place = m_place;
    const bool isReadable = subject(entry, words);
    const auto pair = m_terms.pair(value);
    if (!pair) {
        tell(m_terms.error().message, m_terms.error().cure);
    } else {
        entry.unfavourable = pair->unfavourable;
        entry.favourable = pair->favourable;
        const bool isPermanent = role == LCM_Role::Permanent || role == LCM_Role::Prestress;
        if (isPermanent && !entry.favourable) {
            entry.favourable = entry.unfavourable;
        }
    }
    if (isReadable) { // with a false factor too, so that nobody is told that the entry is missing
        m_expression.entries.push_back(entry);
    }
}

void LCM_SituationSectionReader::unknown(const std::string& key)
{
    std::vector<std::string> keys{"clause", "state", "G", "P", "lead", "others",
                                  "second", "A",     "E", "I", "sum",  "short"};
    const std::vector<std::string> ofWhole{"kind",   "title",      "groups",      "at-most",
                                           "always", "components", "may-be-none", "remove"};
    const std::string first = key.substr(0, key.find(' '));
    if (m_isExpression && std::find(ofWhole.begin(), ofWhole.end(), first) != ofWhole.end()) {
        tell("'" + key + "' belongs to the whole situation",
             "write it in [SITUATION " + m_situation.name + "]");
        return;
    }
    keys.insert(keys.end(), ofWhole.begin(), ofWhole.end());
    const std::string nearest = lcm_nearest_word(first, keys);
    tell("entry '" + key + "' is not known", nearest.empty() ? "leave it out" : "write " + nearest);
}
