#pragma once

/// The rules of a situation as steps from unit to unit: what may happen at a unit, given what happened before it.

#include <tuple>
#include <vector>

#include "combine/blocks.h"
#include "combine/plan.h"

namespace mrl::combine {

/// What a load group, or a unit without one, does.
enum class Mode : char { Rest, Others, Second, Lead };

/// What must be remembered between two units.
struct State
{
    int accident = -1; ///< kind of the accidental action that acts; -1: none so far
    int leader = 0; ///< kind of the leading action, 1 and up; 0: nobody leads; the choice is made in advance
    bool led = false; ///< the leading one was met
    int acting = 0;   ///< variable actions that act, where the situation limits them
    char first =
        0; ///< short-term actions: 0 none beside the leading one, 1 the first was met, 2 only second ones
    bool grouped = false;   ///< a load group acted, where they exclude each other
    Mode mode = Mode::Rest; ///< of the load group at hand
    bool acted = false;     ///< one of its actions did so
    std::vector<char>
        brackets; ///< of a sum: 0 closed, 1 nothing of it acts, 2 + 2 i alternative i is to act, 3 + 2 i acted
    std::vector<char> pools; ///< pools across load groups: 1 one of its actions acted

    auto tied() const
    {
        return std::tie(accident, leader, led, acting, first, grouped, mode, acted, brackets, pools);
    }
    bool operator<(const State& other) const { return tied() < other.tied(); }
};

/// One thing that may happen at a unit. Without patterns the unit rests.
struct Step
{
    State next;
    int member = -1;
    LCM_Role role = LCM_Role::Others;
    std::vector<Pattern> patterns{};
};

class Walk
{
  public:
    explicit Walk(const ResolvedExpression& expression);

    State start() const;
    /// All that may happen at a unit.
    std::vector<Step> steps(const State& state, int unit) const;
    bool mayEnd(const State& state) const;

  private:
    const Unit& unit(int number) const { return m_prepared.units[static_cast<std::size_t>(number)]; }
    const Member& member(int number) const { return m_prepared.members[static_cast<std::size_t>(number)]; }

    void permanentSteps(const State& state, const Unit& unit, std::vector<Step>& steps) const;
    void accidentSteps(const State& state, const Unit& unit, std::vector<Step>& steps) const;
    void imperfectionSteps(const State& state, const Unit& unit, std::vector<Step>& steps) const;
    void variableSteps(const State& state, int number, std::vector<Step>& steps) const;
    void memberSteps(const State& state, int number, int member, std::vector<Step>& steps) const;
    void act(const State& state, LCM_Role role, int number, int member, std::vector<Step>& steps) const;
    std::optional<FactorPair> pair(const State& state, LCM_Role role, int member) const;
    bool isTaken(const State& state, int member) const;
    bool mayRest(const State& state, int number) const;
    bool hasOthersTerm(const State& state, const Unit& unit) const;
    bool everyGroupMustAct(const State& state) const;

    std::vector<State> leadersChosen(const State& state, int number) const;
    std::vector<State> bracketsOpened(const State& state, int number) const;
    std::vector<State> modesTaken(const State& state, int number) const;
    bool close(State& state, int number) const;
    bool canLead(const State& state, int member) const;
    const std::vector<std::string>& leaderNames(const State& state) const;
    const std::vector<std::string>& accidentNames(const State& state) const;

    const ResolvedExpression& m_expression;
    const Prepared& m_prepared;
    const LCM_Situation& m_situation;
    Blocks m_blocks;
};

} // namespace mrl::combine
