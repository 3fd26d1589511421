#pragma once

/// What the checker makes of the entries of a situation, once it has guessed who leads, which accident happens and so on.

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "combine/checked_model.h"
#include "combine/checked_part.h"

namespace mrl::combine {

/// Everything that the checker tries.
struct Guess
{
    const LCM_Expression* expression = nullptr;
    const CheckedPiece* accident = nullptr;
    const CheckedBlock* leader = nullptr;
    std::vector<std::string> leaderNames;
    int group = 0; ///< the one that may act where groups exclude each other
    const CheckedBlock* firstShort = nullptr;
    std::map<std::string, std::size_t> poolOwners; ///< of pools in several blocks: the block
    std::vector<std::size_t> alternatives;         ///< of each bracket of a sum
};

class CheckedTerms
{
  public:
    /// All outlive this object.
    CheckedTerms(const LCM_Situation& situation, const std::map<std::string, float>& constants,
                 const std::vector<std::string>& sharedPools)
        : m_situation(situation), m_constants(constants), m_sharedPools(sharedPools)
    {
    }

    /// What a piece takes in a role. @return false where it doesn't act in it
    bool term(const Guess& guess, LCM_Role role, const CheckedPiece& piece, CheckedPart& part) const;
    bool canLead(const Guess& guess, const CheckedPiece& piece) const;
    bool mustAct(const Guess& guess, const CheckedBlock& unit) const;
    bool isShort(const Guess& guess, const CheckedBlock& block) const;

  private:
    double product(const LCM_Term& term, const CheckedPiece& piece) const;
    std::pair<int, int> place(const Guess& guess, const CheckedPiece& piece) const;
    const LCM_SumTerm* sumTerm(const Guess& guess, const CheckedPiece& piece) const;
    Superposition coded(const CheckedPiece& piece) const;

    const LCM_Situation& m_situation;
    const std::map<std::string, float>& m_constants;
    const std::vector<std::string>& m_sharedPools;
};

} // namespace mrl::combine
