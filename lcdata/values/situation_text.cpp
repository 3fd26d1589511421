#include "lcdata/values/situation_text.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <unordered_map>

#include "lcdata/values/situation_terms.h"

namespace {

constexpr int MOST_ACTIONS = 999999; // at-most: beyond any number of load cases it says nothing

struct RoleWord
{
    const char* word;
    LCM_Role role;
};
constexpr RoleWord ROLES[] = {{"G", LCM_Role::Permanent},   {"P", LCM_Role::Prestress},
                              {"lead", LCM_Role::Lead},     {"others", LCM_Role::Others},
                              {"second", LCM_Role::Second}, {"A", LCM_Role::Accidental},
                              {"E", LCM_Role::Seismic},     {"I", LCM_Role::Imperfection}};

std::string trimmed(const std::string& text)
{
    const auto begin = text.find_first_not_of(" \t");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t") - begin + 1);
}

std::vector<std::string> wordsOf(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

/// Reads the entries of one section into a situation and one of its expressions.
class SectionReader
{
  public:
    SectionReader(LCM_Situation& situation, LCM_Expression& expression, bool isExpression,
                  LCM_TermReader& terms, std::vector<LCM_SituationFinding>& findings, int section)
        : m_situation(situation), m_expression(expression), m_isExpression(isExpression), m_terms(terms),
          m_findings(findings), m_section(section)
    {
    }

    void read(const std::vector<LCM_TextEntry>& entries);

  private:
    void entry(const LCM_TextEntry& entry);
    bool common(const std::string& key, const std::string& value);
    bool whole(const std::string& key, const std::string& value);
    void components(const std::string& value);
    void atMost(const std::string& value);
    bool ofExpression(const std::string& key, const std::string& value);
    void role(LCM_Role role, const std::vector<std::string>& words, const std::string& value);
    bool subject(LCM_RoleEntry& entry, const std::vector<std::string>& words);
    void shortActions(const std::string& value);
    void unknown(const std::string& key);
    bool yes(const std::string& value);
    bool oneOf(const std::string& value, const std::vector<std::string>& words);
    void tell(std::string message, std::string cure);

    LCM_Situation& m_situation;
    LCM_Expression& m_expression;
    bool m_isExpression;
    LCM_TermReader& m_terms;
    std::vector<LCM_SituationFinding>& m_findings;
    int m_section;
    int m_entry = -1;
};

void SectionReader::tell(std::string message, std::string cure)
{
    m_findings.push_back({m_section, m_entry, std::move(message), std::move(cure)});
}

void SectionReader::read(const std::vector<LCM_TextEntry>& entries)
{
    std::unordered_map<std::string, int> seen;
    for (const LCM_TextEntry& each : entries) {
        ++m_entry;
        std::string key;
        for (const std::string& word : wordsOf(each.key)) {
            key += (key.empty() ? "" : " ") + word;
        }
        if (!seen.emplace(key, m_entry).second) {
            tell("'" + key + "' stands twice in this section", "leave one of them out");
        } else {
            entry({key, trimmed(each.value)});
        }
    }
}

void SectionReader::entry(const LCM_TextEntry& entry)
{
    if (common(entry.key, entry.value) || (!m_isExpression && whole(entry.key, entry.value)) ||
        ofExpression(entry.key, entry.value)) {
        return;
    }
    unknown(entry.key);
}

bool SectionReader::common(const std::string& key, const std::string& value)
{
    if (key != "clause" && key != "state") {
        return false;
    }
    std::string& ofWhole = key == "clause" ? m_situation.clause : m_situation.state;
    std::string& ofPart = key == "clause" ? m_expression.clause : m_expression.state;
    (m_isExpression ? ofPart : ofWhole) = value;
    return true;
}

bool SectionReader::yes(const std::string& value) { return oneOf(value, {"yes", "no"}) && value == "yes"; }

bool SectionReader::oneOf(const std::string& value, const std::vector<std::string>& words)
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

bool SectionReader::whole(const std::string& key, const std::string& value)
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

void SectionReader::components(const std::string& value)
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

void SectionReader::atMost(const std::string& value)
{
    const auto numbers = m_terms.numbers(value);
    const double number = numbers && numbers->size() == 1 ? numbers->front() : 0;
    if (number < 1 || number > MOST_ACTIONS || number != std::floor(number)) {
        tell("'" + value + "' is no number of actions", "write a whole number from 1, such as 2");
    } else {
        m_situation.atMost = static_cast<int>(number);
    }
}

bool SectionReader::ofExpression(const std::string& key, const std::string& value)
{
    const std::vector<std::string> words = wordsOf(key);
    const std::string first = words.empty() ? "" : words.front();
    if (key == "sum") {
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
    for (const RoleWord& each : ROLES) {
        if (first == each.word) {
            role(each.role, words, value);
            return true;
        }
    }
    return false;
}

void SectionReader::shortActions(const std::string& value)
{
    std::istringstream stream(value);
    for (std::string part; std::getline(stream, part, ',');) {
        if (wordsOf(part).size() != 1) {
            tell("'" + value + "' is no list of actions", "separate names by commas, such as S, W, T");
            return;
        }
        m_expression.shortActions.push_back(trimmed(part));
    }
    if (m_expression.shortActions.empty()) {
        tell("the list of short-term actions is empty", "name them, such as S, W, T, or leave the entry out");
    }
}

bool SectionReader::subject(LCM_RoleEntry& entry, const std::vector<std::string>& words)
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

void SectionReader::role(LCM_Role role, const std::vector<std::string>& words, const std::string& value)
{
    LCM_RoleEntry entry;
    entry.role = role;
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

void SectionReader::unknown(const std::string& key)
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

/// Gathers the sections of a file into situations.
class Reader
{
  public:
    explicit Reader(const std::vector<std::string>& constants) : m_terms(constants) {}

    void section(const LCM_SituationSection& section, int number);
    void finish();

    LCM_SituationsRead result;

  private:
    struct Origin
    {
        int section = -1;               ///< of the whole situation; -1: it has none yet
        std::vector<int> ofExpressions; ///< sections, as in the situation
    };

    LCM_Situation& situation(const std::string& name);
    void complete(const LCM_Situation& situation, const Origin& origin);
    void complete(const LCM_Expression& expression, int section);
    void tell(int section, std::string message, std::string cure);

    LCM_TermReader m_terms;
    std::vector<Origin> m_origins;
    std::unordered_map<std::string, std::size_t> m_places;
};

void Reader::tell(int section, std::string message, std::string cure)
{
    result.findings.push_back({section, -1, std::move(message), std::move(cure)});
}

LCM_Situation& Reader::situation(const std::string& name)
{
    const auto [place, isNew] = m_places.emplace(name, result.situations.size());
    if (isNew) {
        result.situations.emplace_back().name = name;
        m_origins.emplace_back();
    }
    return result.situations[place->second];
}

void Reader::section(const LCM_SituationSection& section, int number)
{
    const auto bar = section.name.find(" / ");
    const std::string name = trimmed(section.name.substr(0, bar));
    const bool isExpression = bar != std::string::npos;
    if (name.empty()) {
        tell(number, "the situation has no name", "write [SITUATION persistent]");
        return;
    }
    LCM_Situation& home = situation(name);
    Origin& origin = m_origins[m_places[name]];
    LCM_Expression expression;
    expression.name = isExpression ? trimmed(section.name.substr(bar + 3)) : "";
    SectionReader(home, expression, isExpression, m_terms, result.findings, number).read(section.entries);
    const auto same = [&](const LCM_Expression& each) { return each.name == expression.name; };
    if (std::any_of(home.expressions.begin(), home.expressions.end(), same) ||
        (!isExpression && origin.section >= 0)) {
        tell(number, "'" + section.name + "' stands twice", "give each section a name of its own");
        return;
    }
    if (!isExpression) {
        origin.section = number;
    }
    if (isExpression || !expression.entries.empty() || expression.sum) {
        home.expressions.push_back(std::move(expression));
        origin.ofExpressions.push_back(number);
    }
}

void Reader::complete(const LCM_Expression& expression, int section)
{
    const auto states = [&](LCM_Role role) {
        return std::any_of(expression.entries.begin(), expression.entries.end(),
                           [&](const LCM_RoleEntry& entry) {
                               return entry.role == role && entry.action.empty() && entry.when.empty();
                           });
    };
    for (const RoleWord& each : ROLES) {
        const bool isVariable = each.role == LCM_Role::Lead || each.role == LCM_Role::Others;
        const bool isOptional = each.role == LCM_Role::Second || each.role == LCM_Role::Imperfection;
        const bool isMissing = !isOptional && !states(each.role) && !(isVariable && expression.sum);
        if (isMissing) {
            tell(section, "'" + std::string(each.word) + "' is missing",
                 "write '" + std::string(each.word) + " = none' if nothing of it acts");
        }
        if (isVariable && expression.sum && states(each.role)) {
            tell(section, "'" + std::string(each.word) + "' stands beside 'sum'", "leave one of them out");
        }
    }
    if (states(LCM_Role::Second) == expression.shortActions.empty()) {
        tell(section, "'short' and 'second' go together", "state both, or none of them");
    }
}

void Reader::complete(const LCM_Situation& situation, const Origin& origin)
{
    if (origin.section < 0) {
        tell(origin.ofExpressions.empty() ? -1 : origin.ofExpressions.front(),
             "section [SITUATION " + situation.name + "] is missing", "write it, with its kind");
        return;
    }
    if (situation.removed) {
        return;
    }
    if (situation.kind.empty()) {
        tell(origin.section, "'kind' is missing", "write 'kind = ultimate' or another kind");
    }
    if (situation.expressions.empty()) {
        tell(origin.section, "the situation has no expression", "state G, P, lead, others, A and E");
    }
    for (std::size_t i = 0; i < situation.expressions.size(); ++i) {
        const bool isOwn = situation.expressions[i].name.empty();
        if (isOwn && situation.expressions.size() > 1) {
            tell(origin.section, "factors stand beside sections of expressions",
                 "move them into [SITUATION " + situation.name + " / name]");
        }
        complete(situation.expressions[i], origin.ofExpressions[i]);
    }
}

void Reader::finish()
{
    for (std::size_t i = 0; i < result.situations.size(); ++i) {
        complete(result.situations[i], m_origins[i]);
    }
}

} // namespace

LCM_SituationsRead lcm_read_situations(const std::vector<LCM_SituationSection>& sections,
                                       const std::vector<std::string>& constants)
{
    Reader reader(constants);
    for (std::size_t i = 0; i < sections.size(); ++i) {
        reader.section(sections[i], static_cast<int>(i));
    }
    reader.finish();
    return std::move(reader.result);
}
