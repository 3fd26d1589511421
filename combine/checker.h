#pragma once

/// A second look at combinations, which shares nothing with the plan but the situation's entries: it tries every
/// expression, accidental action, load group, leading action, first short-term action and alternative of a bracket, and
/// takes each block's best term by itself. It tells whether a key is allowed, and a response's greatest value. Slow on
/// purpose; the plan is what to use.

#include <functional>
#include <map>

#include "combine/checked_model.h"
#include "combine/checked_terms.h"

namespace mrl::combine {

class Checker
{
  public:
    /// Both outlive this object. The model is one that `prepare` doesn't refuse.
    Checker(const Model& model, const LCM_Situation& situation);

    /// Whether a combination of the situation has these factors.
    bool allows(const Key& key) const;

    /// The greatest value of a response, by load case; minus infinity where there is no combination.
    double greatest(const std::map<int, double>& responses) const;

  private:
    /// What the worth of a piece is that acts, or rests (null). A key has worth 0 where it fits and minus infinity where
    /// it doesn't; a response has its best value.
    using Worth = std::function<double(const CheckedPiece&, const CheckedPart*)>;

    double search(const Worth& worth) const;
    double accidents(Guess& guess, const Worth& worth) const;
    double pools(Guess& guess, std::size_t pool, const Worth& worth) const;
    double brackets(Guess& guess, const Worth& worth) const;
    double groups(Guess& guess, const Worth& worth) const;
    double leaders(Guess& guess, const Worth& worth) const;
    double shorts(Guess& guess, const Worth& worth) const;
    double variable(const Guess& guess, const Worth& worth) const;
    double constant(const Guess& guess, const Worth& worth) const;
    double block(const Guess& guess, std::size_t number, LCM_Role role, const Worth& worth) const;
    double unitActs(const Guess& guess, const CheckedBlock& unit, std::size_t number, LCM_Role role,
                    const Worth& worth) const;
    double unitRests(const Guess& guess, const CheckedBlock& unit, bool isExcluded, const Worth& worth) const;

    const LCM_Situation& m_situation;
    CheckedModel m_model;
    CheckedTerms m_terms;
};

} // namespace mrl::combine
