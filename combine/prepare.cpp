#include "combine/prepare.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>

#include "combine/decimal.h"
#include "lcdata/values/gama.h"
#include "lcdata/values/keys.h"

namespace mrl::combine {

namespace {

bool bringsIn(const LCM_Situation& situation, LCM_Role role)
{
    return std::any_of(
        situation.expressions.begin(), situation.expressions.end(), [&](const LCM_Expression& each) {
            return std::any_of(each.entries.begin(), each.entries.end(), [&](const LCM_RoleEntry& entry) {
                return entry.role == role && entry.unfavourable.has_value();
            });
        });
}

DecimalFactors decimals(const Factors& stored)
{
    DecimalFactors result{};
    std::transform(stored.begin(), stored.end(), result.begin(), shortest);
    result[static_cast<std::size_t>(LCM_FactorId::Gama)] =
        shortest(lcm_shown_gama(factor(stored, LCM_FactorId::Gama)));
    return result;
}

UnitKind kindOf(Category category)
{
    switch (category) {
    case Category::Permanent:
    case Category::Prestress:
        return UnitKind::Permanent;
    case Category::Accidental:
    case Category::Seismic:
        return UnitKind::Accidental;
    case Category::Variable:
        break;
    }
    return UnitKind::Variable;
}

class Preparation
{
  public:
    Preparation(const Model& model, const LCM_Situation& situation) : m_model(model), m_situation(situation)
    {
    }

    Prepared run();

  private:
    void readActions();
    void place(const LoadCase& loadCase);
    void placeOwn(const LoadCase& loadCase);
    void refuse(int number, std::string reason) { m_result.refused.push_back({number, std::move(reason)}); }
    void leaveOut(int number, std::string reason) { m_result.leftOut.push_back({number, std::move(reason)}); }
    void makeUnits();
    void numberPools();

    const Model& m_model;
    const LCM_Situation& m_situation;
    Prepared m_result;
    std::vector<Member> m_members;           // all actions, also without load cases
    std::vector<std::vector<int>> m_numbers; // of each of them
    std::map<std::string, std::size_t> m_places;
    std::set<int> m_taken;
    int m_imperfections = -1;
};

void Preparation::readActions()
{
    for (const Action& action : m_model.actions) {
        if (!m_places.emplace(action.name, m_members.size()).second) {
            refuse(0, "action " + action.name + " stands twice");
        }
        if (!std::all_of(action.factors.begin(), action.factors.end(),
                         [](float f) { return std::isfinite(f); })) {
            refuse(0, "a factor of action " + action.name + " is not a number");
        }
        Member member{action.name, action.category, action.superposition, 0, decimals(action.factors)};
        const bool isGrouped =
            action.category == Category::Variable && m_situation.groups != LCM_Groups::Apart;
        member.group = isGrouped ? action.group : 0;
        m_members.push_back(member);
    }
    m_numbers.resize(m_members.size());
}

void Preparation::placeOwn(const LoadCase& loadCase)
{
    const Factors& own = *loadCase.own;
    if (!std::all_of(own.begin(), own.end(), [](float f) { return std::isfinite(f); })) {
        refuse(loadCase.number, "a factor of its own is not a number");
        return;
    }
    // A favourable factor says that the load case is always there.
    const bool isPermanent = factor(own, LCM_SituationFactor::Gamf) > 0;
    m_members.push_back({"LC " + std::to_string(loadCase.number),
                         isPermanent ? Category::Permanent : Category::Variable,
                         isPermanent ? LC_SUPERPOSITION_PERM : LC_SUPERPOSITION_COND, 0, decimals(own)});
    m_numbers.push_back({loadCase.number});
}

void Preparation::place(const LoadCase& loadCase)
{
    if (loadCase.number < 1 || loadCase.number > LC_MAX_NUMBER) {
        refuse(loadCase.number, "the number is not between 1 and " + std::to_string(LC_MAX_NUMBER));
    } else if (!m_taken.insert(loadCase.number).second) {
        refuse(loadCase.number, "the number stands twice");
    } else if (!loadCase.finding.empty()) {
        refuse(loadCase.number, loadCase.finding);
    } else if (loadCase.isImperfection) {
        if (!bringsIn(m_situation, LCM_Role::Imperfection)) {
            leaveOut(loadCase.number, "an imperfection, which the situation doesn't bring in");
            return;
        }
        if (m_imperfections < 0) {
            m_imperfections = static_cast<int>(m_members.size());
            m_members.push_back({"IMP", Category::Variable, LC_SUPERPOSITION_EXCL});
            m_numbers.emplace_back();
        }
        m_numbers[static_cast<std::size_t>(m_imperfections)].push_back(loadCase.number);
    } else if (!loadCase.action.empty()) {
        const auto action = m_places.find(loadCase.action);
        if (action == m_places.end()) {
            refuse(loadCase.number, "action " + loadCase.action + " is not known");
        } else {
            m_numbers[action->second].push_back(loadCase.number);
        }
    } else if (loadCase.own) {
        placeOwn(loadCase);
    } else {
        leaveOut(loadCase.number, "it has neither an action nor factors");
    }
}

/// Puts members with load cases into units, and the units into their order.
void Preparation::makeUnits()
{
    // Kind, group, pooled or not, then the pool's name or the place: equal for the members of one unit.
    using Order = std::tuple<UnitKind, int, bool, std::string, Category, std::size_t>;
    std::map<Order, std::vector<std::size_t>> sorted;
    for (std::size_t i = 0; i < m_members.size(); ++i) {
        const Member& member = m_members[i];
        if (m_numbers[i].empty()) {
            continue;
        }
        const bool isPooled = lcm_superposition_meaning(member.superposition).excludesSuffixes;
        const UnitKind kind =
            static_cast<int>(i) == m_imperfections ? UnitKind::Imperfection : kindOf(member.category);
        const bool isPool = isPooled && kind != UnitKind::Accidental; // of these just one acts anyway
        sorted[{kind, member.group, isPool, isPool ? firstPart(member.name) : "", member.category,
                isPool ? 0 : i}]
            .push_back(i);
    }
    for (const auto& [order, places] : sorted) {
        Unit unit;
        unit.kind = std::get<UnitKind>(order);
        unit.group = std::get<int>(order);
        for (const std::size_t place : places) {
            Member member = m_members[place];
            member.first = static_cast<int>(m_result.numbers.size());
            member.count = static_cast<int>(m_numbers[place].size());
            std::sort(m_numbers[place].begin(), m_numbers[place].end());
            m_result.numbers.insert(m_result.numbers.end(), m_numbers[place].begin(), m_numbers[place].end());
            unit.members.push_back(static_cast<int>(m_result.members.size()));
            m_result.members.push_back(std::move(member));
        }
        m_result.units.push_back(std::move(unit));
    }
}

void Preparation::numberPools()
{
    std::map<std::string, std::vector<Unit*>> pools;
    for (Unit& unit : m_result.units) {
        const Member& member = m_result.members[static_cast<std::size_t>(unit.members.front())];
        if (unit.kind == UnitKind::Variable &&
            lcm_superposition_meaning(member.superposition).excludesSuffixes) {
            pools[firstPart(member.name)].push_back(&unit);
        }
    }
    for (const auto& [name, units] : pools) {
        for (Unit* unit : units) {
            unit->pool = units.size() > 1 ? m_result.pools : -1;
        }
        m_result.pools += units.size() > 1 ? 1 : 0;
    }
}

Prepared Preparation::run()
{
    readActions();
    for (const LoadCase& loadCase : m_model.loadCases) {
        place(loadCase);
    }
    if (m_result.refused.empty()) {
        makeUnits();
        numberPools();
    }
    return std::move(m_result);
}

} // namespace

std::string firstPart(const std::string& name) { return name.substr(0, name.find('_')); }

Prepared prepare(const Model& model, const LCM_Situation& situation)
{
    return Preparation(model, situation).run();
}

} // namespace mrl::combine
