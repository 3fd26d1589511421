#pragma once

/// How the checker sees a model: actions with their load cases, and which of them act as one.

#include <map>
#include <set>
#include <string>
#include <vector>

#include "combine/model.h"

namespace mrl::combine {

/// An action with its load cases.
struct CheckedPiece
{
    std::string name;
    Category category = Category::Variable;
    Superposition superposition = LC_SUPERPOSITION_COND;
    int group = 0;
    std::string pool; ///< of those that exclude each other: the first part of their name; empty: none
    bool isImperfection = false;
    std::map<LCM_SituationFactor, double> factors;
    std::vector<int> numbers;
};

using CheckedBlock = std::vector<const CheckedPiece*>;

/// Points into itself.
struct CheckedModel
{
    /// @param model one that `prepare` doesn't refuse
    CheckedModel(const Model& model, const LCM_Situation& situation);
    CheckedModel(const CheckedModel&) = delete;
    CheckedModel& operator=(const CheckedModel&) = delete;

    std::vector<CheckedBlock> permanent; ///< pools together
    std::vector<const CheckedPiece*> accidental;
    std::vector<const CheckedPiece*> imperfections;
    std::vector<CheckedBlock> blocks;     ///< variable: load groups, pools, single actions
    std::vector<std::string> sharedPools; ///< pools that are in several blocks
    std::set<int> numbers;                ///< the load cases

  private:
    void addPiece(CheckedPiece piece);
    void findSharedPools();

    std::vector<CheckedPiece> m_pieces;
};

/// The parts of a block of which each acts or rests: pools, and single actions.
std::vector<CheckedBlock> unitsOf(const CheckedBlock& block);

} // namespace mrl::combine
