#pragma once

/// A second look at combinations, which shares nothing with the plan but the situation's entries: it tries every
/// expression, accidental action, load group, leading action, first short-term action and alternative of a bracket, and
/// takes each block's best term by itself. It tells whether a key is allowed, and a response's greatest value. Slow on
/// purpose; the plan is what to use.

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "combine/checked_part.h"
#include "combine/model.h"

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
    /// An action with its load cases.
    struct Piece
    {
        std::string name;
        Category category = Category::Variable;
        Superposition superposition = Superposition::Cond;
        int group = 0;
        std::string pool; ///< of EXEX: the first part of its name; empty: none
        bool isImperfection = false;
        std::map<LCM_SituationFactor, double> factors;
        std::vector<int> numbers;
    };

    /// What the worth of a piece is that acts, or rests (null). A key has worth 0 where it fits and minus infinity where
    /// it doesn't; a response has its best value.
    using Worth = std::function<double(const Piece&, const CheckedPart*)>;
    using Block = std::vector<const Piece*>;

    /// Everything that is tried.
    struct Guess
    {
        const LCM_Expression* expression = nullptr;
        const Piece* accident = nullptr;
        const Block* leader = nullptr;
        std::vector<std::string> leaderNames;
        int group = 0; ///< the one that may act where groups exclude each other
        const Block* firstShort = nullptr;
        std::map<std::string, std::size_t> poolOwners; ///< of pools in several blocks: the block
        std::vector<std::size_t> alternatives;         ///< of each bracket of a sum
    };

    static std::map<LCM_SituationFactor, double> decimals(const Factors& stored);
    static Piece ownPiece(const LoadCase& loadCase);
    std::vector<Piece> actions() const;
    void addPiece(Piece piece);
    void findSharedPools();
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
    double unitActs(const Guess& guess, const Block& unit, std::size_t number, LCM_Role role,
                    const Worth& worth) const;
    double unitRests(const Guess& guess, const Block& unit, bool isExcluded, const Worth& worth) const;
    std::vector<Block> units(const Block& block) const;

    bool term(const Guess& guess, LCM_Role role, const Piece& piece, CheckedPart& part) const;
    double product(const LCM_Term& term, const Piece& piece) const;
    std::pair<int, int> place(const Guess& guess, const Piece& piece) const;
    const LCM_SumTerm* sumTerm(const Guess& guess, const Piece& piece) const;
    bool canLead(const Guess& guess, const Piece& piece) const;
    bool mustAct(const Guess& guess, const Block& unit) const;
    bool isShort(const Guess& guess, const Block& block) const;
    Superposition coded(const Piece& piece) const;

    const Model& m_model;
    const LCM_Situation& m_situation;
    std::vector<Piece> m_pieces;
    std::vector<Block> m_permanent; ///< EXEX pools together
    std::vector<const Piece*> m_accidental;
    std::vector<const Piece*> m_imperfections;
    std::vector<Block> m_blocks;       ///< load groups, pools, single actions
    std::vector<std::string> m_shared; ///< pools that are in several blocks
    std::set<int> m_numbers;
};

} // namespace mrl::combine
