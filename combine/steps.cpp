#include "combine/steps.h"

#include <algorithm>
#include <map>

namespace mrl::combine {

namespace {

const std::vector<std::string> NOBODY;

char toAct(int alternative) { return static_cast<char>(2 + 2 * alternative); }

} // namespace

Walk::Walk(const ResolvedExpression& expression)
    : m_expression(expression), m_prepared(expression.prepared()), m_situation(expression.situation()),
      m_blocks(expression)
{
}

State Walk::start() const
{
    State state;
    state.brackets.resize(m_blocks.brackets().size());
    state.pools.resize(static_cast<std::size_t>(m_prepared.pools));
    return state;
}

bool Walk::mayEnd(const State& state) const
{
    const bool isExclusive = m_situation.groups == LCM_Groups::Exclude;
    return (state.leader == 0 || state.led) && state.first != 2 &&
           (state.accident >= 0 || !m_expression.needsAccident()) &&
           (!isExclusive || state.grouped || !everyGroupMustAct(state));
}

std::vector<Step> Walk::steps(const State& state, int number) const
{
    std::vector<Step> steps;
    switch (unit(number).kind) {
    case UnitKind::Permanent:
        permanentSteps(state, unit(number), steps);
        break;
    case UnitKind::Imperfection:
        imperfectionSteps(state, unit(number), steps);
        break;
    case UnitKind::Accidental:
        accidentSteps(state, unit(number), steps);
        break;
    case UnitKind::Variable:
        variableSteps(state, number, steps);
        break;
    }
    return steps;
}

void Walk::permanentSteps(const State& state, const Unit& unit, std::vector<Step>& steps) const
{
    bool mustAct = false;
    for (const int each : unit.members) {
        const Category category = member(each).category;
        const LCM_Role role = category == Category::Prestress ? LCM_Role::Prestress : LCM_Role::Permanent;
        const auto factors = m_expression.factors().pair(role, member(each), NOBODY);
        if (factors) {
            steps.push_back(
                {state, each, role, m_expression.factors().patterns(role, member(each), *factors)});
            const LCM_SuperpositionMeaning means = lcm_superposition_meaning(member(each).superposition);
            const bool restsWithinItsPattern = means.acting == LCM_Acting::Any && !means.hasBothSigns;
            mustAct = mustAct || means.isAlwaysThere || restsWithinItsPattern;
        }
    }
    if (!mustAct) {
        steps.push_back({state});
    }
}

void Walk::imperfectionSteps(const State& state, const Unit& unit, std::vector<Step>& steps) const
{
    steps.push_back({state});
    const int each = unit.members.front();
    const auto factors = m_expression.factors().pair(LCM_Role::Imperfection, member(each), NOBODY);
    if (factors) {
        steps.push_back({state, each, LCM_Role::Imperfection,
                         m_expression.factors().patterns(LCM_Role::Imperfection, member(each), *factors)});
    }
}

void Walk::accidentSteps(const State& state, const Unit& unit, std::vector<Step>& steps) const
{
    steps.push_back({state});
    const int each = unit.members.front();
    const bool isSeismic = member(each).category == Category::Seismic;
    const LCM_Role role = isSeismic ? LCM_Role::Seismic : LCM_Role::Accidental;
    const auto factors = m_expression.factors().pair(role, member(each), NOBODY);
    if (factors && state.accident < 0) {
        State next = state;
        next.accident = m_expression.accidentKind(each);
        steps.push_back({next, each, role, m_expression.factors().patterns(role, member(each), *factors)});
    }
}

std::vector<State> Walk::leadersChosen(const State& state, int number) const
{
    std::vector<State> states{state};
    if (number == m_blocks.firstVariable()) {
        for (int kind = 1; kind <= m_expression.leaderKinds(); ++kind) {
            states.push_back(state);
            states.back().leader = kind;
        }
    }
    return states;
}

std::vector<State> Walk::bracketsOpened(const State& state, int number) const
{
    std::vector<State> states{state};
    for (std::size_t i = 0; i < m_blocks.brackets().size(); ++i) {
        if (m_blocks.brackets()[i].firstUnit != number) {
            continue;
        }
        const std::vector<bool>& must = m_blocks.brackets()[i].must;
        std::vector<State> opened;
        for (State& each : states) {
            for (std::size_t alternative = 0; alternative < must.size(); ++alternative) {
                each.brackets[i] = toAct(static_cast<int>(alternative));
                opened.push_back(each);
            }
            if (std::find(must.begin(), must.end(), false) != must.end()) {
                each.brackets[i] = 1;
                opened.push_back(each);
            }
        }
        states = std::move(opened);
    }
    return states;
}

std::vector<State> Walk::modesTaken(const State& state, int number) const
{
    if (!m_blocks.opens(number)) {
        return {state};
    }
    std::vector<State> states{state}; // at rest
    State acting = state;
    acting.acting += m_situation.atMost > 0 ? 1 : 0;
    const bool isFull = m_situation.atMost > 0 && state.acting == m_situation.atMost;
    const bool isExcluded = state.grouped && unit(number).group > 0;
    if (isFull || isExcluded) {
        return states;
    }
    const bool isShort = m_blocks.isShort(number);
    if (!isShort || state.first != 1) {
        states.push_back(acting);
        states.back().mode = Mode::Others;
        states.back().first = isShort ? char{1} : state.first;
    }
    if (isShort) {
        states.push_back(acting);
        states.back().mode = Mode::Second;
        states.back().first = state.first == 0 ? char{2} : state.first;
    }
    if (state.leader > 0 && !state.led) {
        states.push_back(acting);
        states.back().mode = Mode::Lead;
        states.back().led = true;
    }
    return states;
}

bool Walk::close(State& state, int number) const
{
    if (m_blocks.closes(number)) {
        if (state.mode != Mode::Rest && !state.acted) {
            return false;
        }
        const bool isExclusive = m_situation.groups == LCM_Groups::Exclude;
        state.grouped = state.grouped || (isExclusive && unit(number).group > 0 && state.mode != Mode::Rest);
        state.mode = Mode::Rest;
        state.acted = false;
    }
    for (std::size_t i = 0; i < m_blocks.brackets().size(); ++i) {
        if (m_blocks.brackets()[i].lastUnit == number) {
            if (state.brackets[i] != 1 && state.brackets[i] % 2 == 0) {
                return false;
            }
            state.brackets[i] = 0;
        }
    }
    return true;
}

void Walk::variableSteps(const State& state, int number, std::vector<Step>& steps) const
{
    for (const State& withLeader : leadersChosen(state, number)) {
        for (const State& withBrackets : bracketsOpened(withLeader, number)) {
            for (const State& ready : modesTaken(withBrackets, number)) {
                if (mayRest(ready, number)) {
                    steps.push_back({ready});
                }
                for (const int each : unit(number).members) {
                    memberSteps(ready, number, each, steps);
                }
            }
        }
    }
    const auto isDead = [&](Step& step) { return !close(step.next, number); };
    steps.erase(std::remove_if(steps.begin(), steps.end(), isDead), steps.end());
}

const std::vector<std::string>& Walk::leaderNames(const State& state) const
{
    return state.leader == 0 ? NOBODY : m_expression.leaderNames(state.leader - 1);
}

const std::vector<std::string>& Walk::accidentNames(const State& state) const
{
    return state.accident < 0 ? NOBODY : m_expression.accidentNames(state.accident);
}

/// Whether the alternative that a member stands in was taken for its bracket.
bool Walk::isTaken(const State& state, int each) const
{
    const SumPlace& place = m_expression.place(each);
    return place.bracket >= 0 &&
           (state.brackets[static_cast<std::size_t>(place.bracket)] & ~1) == toAct(place.alternative);
}

/// What a member takes in a role; nothing where it can't act.
std::optional<FactorPair> Walk::pair(const State& state, LCM_Role role, int each) const
{
    const RoleFactors& factors = m_expression.factors();
    if (m_expression.isSum()) {
        return isTaken(state, each) ? std::optional(factors.pair(m_expression.place(each).term, member(each)))
                                    : std::nullopt;
    }
    return factors.pair(role, member(each),
                        role == LCM_Role::Lead ? accidentNames(state) : leaderNames(state));
}

bool Walk::mayRest(const State& state, int number) const
{
    const Unit& own = unit(number);
    const bool isReplaced = // another group acts in its place
        own.group > 0 && m_situation.groups == LCM_Groups::Exclude && state.mode == Mode::Rest;
    return !m_blocks.mustAct(number) || isReplaced || !hasOthersTerm(state, own);
}

bool Walk::hasOthersTerm(const State& state, const Unit& unit) const
{
    return std::any_of(unit.members.begin(), unit.members.end(),
                       [&](int each) { return pair(state, LCM_Role::Others, each).has_value(); });
}

/// Whether there are load groups, and each has an action that must act beside the leading one.
bool Walk::everyGroupMustAct(const State& state) const
{
    std::map<int, bool> mustAct;
    for (std::size_t i = 0; i < m_prepared.units.size(); ++i) {
        const Unit& each = m_prepared.units[i];
        if (each.group > 0) {
            const bool must = m_blocks.mustAct(static_cast<int>(i)) && hasOthersTerm(state, each);
            mustAct[each.group] = mustAct[each.group] || must;
        }
    }
    return !mustAct.empty() &&
           std::all_of(mustAct.begin(), mustAct.end(), [](const auto& group) { return group.second; });
}

bool Walk::canLead(const State& state, int each) const
{
    return !m_expression.isSum() && m_expression.factors().canLead(member(each), accidentNames(state));
}

void Walk::memberSteps(const State& state, int number, int each, std::vector<Step>& steps) const
{
    const int pool = unit(number).pool;
    if (state.mode == Mode::Rest || (pool >= 0 && state.pools[static_cast<std::size_t>(pool)] != 0)) {
        return;
    }
    const bool mustAct = m_blocks.mustAct(number);
    const bool leadable = canLead(state, each);
    if (state.mode == Mode::Lead) {
        if (leadable && m_expression.leaderKind(each) == state.leader - 1) {
            act(state, LCM_Role::Lead, number, each, steps);
        }
        if (!leadable || mustAct) {
            act(state, LCM_Role::Others, number, each, steps);
        }
        return;
    }
    // Without a leading action only those act that cannot lead, or must act anyway.
    if (state.leader > 0 || !leadable || mustAct) {
        const bool isSecond = state.mode == Mode::Second && m_expression.isShort(unit(number));
        act(state, isSecond ? LCM_Role::Second : LCM_Role::Others, number, each, steps);
    }
}

void Walk::act(const State& state, LCM_Role role, int number, int each, std::vector<Step>& steps) const
{
    const auto factors = pair(state, role, each);
    if (!factors) {
        return;
    }
    Step step{state, each, role, m_expression.factors().patterns(role, member(each), *factors)};
    step.next.acted = state.acted || state.mode != Mode::Lead || role == LCM_Role::Lead;
    if (m_expression.isSum()) {
        step.next.brackets[static_cast<std::size_t>(m_expression.place(each).bracket)] |= 1;
    }
    if (unit(number).pool >= 0) {
        step.next.pools[static_cast<std::size_t>(unit(number).pool)] = 1;
    }
    steps.push_back(std::move(step));
}

} // namespace mrl::combine
