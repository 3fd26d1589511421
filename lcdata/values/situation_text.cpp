#include "lcdata/values/situation_text.h"

#include <algorithm>
#include <unordered_map>

#include "lcdata/values/situation_section.h"

namespace {

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
    const std::string name = lcm_trimmed(section.name.substr(0, bar));
    const bool isExpression = bar != std::string::npos;
    if (name.empty()) {
        tell(number, "the situation has no name", "write [SITUATION persistent]");
        return;
    }
    const bool isFirst = m_places.count(name) == 0;
    LCM_Situation& home = situation(name);
    home.place = isFirst ? section.place : home.place;
    Origin& origin = m_origins[m_places[name]];
    LCM_Expression expression;
    expression.name = isExpression ? lcm_trimmed(section.name.substr(bar + 3)) : "";
    expression.place = section.place;
    LCM_SituationSectionReader(home, expression, isExpression, m_terms, result.findings, number)
        .read(section.entries);
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
    for (const LCM_RoleWord& each : LCM_ROLE_WORDS) {
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
