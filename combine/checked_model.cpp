#include "combine/checked_model.h"

#include <algorithm>

#include "combine/checked_part.h"
#include "combine/decimal.h"
#include "lcdata/values/gama.h"

namespace mrl::combine {

namespace {

/// Of the factors as they are stored, `Gama` has a zero rule.
std::map<LCM_SituationFactor, double> decimals(const Factors& stored)
{
    std::map<LCM_SituationFactor, double> factors;
    for (std::size_t i = 0; i < stored.size(); ++i) {
        factors[static_cast<LCM_SituationFactor>(i)] = shortest(stored[i]);
    }
    factors[LCM_SituationFactor::Gama] = shortest(lcm_shown_gama(factor(stored, LCM_SituationFactor::Gama)));
    return factors;
}

std::vector<CheckedPiece> actions(const Model& model, const LCM_Situation& situation)
{
    std::vector<CheckedPiece> pieces;
    for (const Action& action : model.actions) {
        CheckedPiece piece;
        piece.name = action.name;
        piece.category = action.category;
        piece.superposition = action.superposition;
        const bool isGrouped = situation.groups != LCM_Groups::Apart && action.category == Category::Variable;
        piece.group = isGrouped ? action.group : 0;
        const bool isPool = excludesSuffixes(action.superposition);
        piece.pool = isPool ? action.name.substr(0, action.name.find('_')) : "";
        piece.factors = decimals(action.factors);
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

/// A load case that is its own action.
CheckedPiece ownPiece(const LoadCase& loadCase)
{
    const bool isPermanent = factor(*loadCase.own, LCM_SituationFactor::Gamf) > 0;
    CheckedPiece piece;
    piece.name = "LC " + std::to_string(loadCase.number);
    piece.category = isPermanent ? Category::Permanent : Category::Variable;
    piece.superposition = isPermanent ? LC_SUPERPOSITION_PERM : LC_SUPERPOSITION_COND;
    piece.numbers = {loadCase.number};
    piece.factors = decimals(*loadCase.own);
    return piece;
}

} // namespace

CheckedModel::CheckedModel(const Model& model, const LCM_Situation& situation)
{
    std::vector<CheckedPiece> pieces = actions(model, situation);
    std::map<std::string, std::size_t> places;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        places[pieces[i].name] = i;
    }
    CheckedPiece allImperfections;
    allImperfections.name = "IMP";
    allImperfections.isImperfection = true;
    allImperfections.superposition = LC_SUPERPOSITION_EXCL;
    for (const LoadCase& loadCase : model.loadCases) {
        if (loadCase.isImperfection) {
            allImperfections.numbers.push_back(loadCase.number);
        } else if (!loadCase.action.empty()) {
            pieces[places.at(loadCase.action)].numbers.push_back(loadCase.number);
        } else if (loadCase.own) {
            pieces.push_back(ownPiece(loadCase));
        }
    }
    pieces.push_back(std::move(allImperfections));
    m_pieces.reserve(pieces.size()); // they are pointed at
    for (CheckedPiece& piece : pieces) {
        addPiece(std::move(piece));
    }
    findSharedPools();
}

void CheckedModel::findSharedPools()
{
    std::map<std::string, int> homes;
    for (const CheckedBlock& block : blocks) {
        std::set<std::string> inBlock;
        for (const CheckedPiece* piece : block) {
            inBlock.insert(piece->pool);
        }
        for (const std::string& pool : inBlock) {
            if (!pool.empty() && ++homes[pool] == 2) {
                sharedPools.push_back(pool);
            }
        }
    }
}

void CheckedModel::addPiece(CheckedPiece piece)
{
    if (piece.numbers.empty()) {
        return;
    }
    numbers.insert(piece.numbers.begin(), piece.numbers.end());
    m_pieces.push_back(std::move(piece));
    const CheckedPiece* own = &m_pieces.back();
    if (own->isImperfection) {
        imperfections.push_back(own);
        return;
    }
    if (own->category == Category::Accidental || own->category == Category::Seismic) {
        accidental.push_back(own);
        return;
    }
    std::vector<CheckedBlock>& home = own->category == Category::Variable ? blocks : permanent;
    for (CheckedBlock& block : home) {
        const CheckedPiece* other = block.front();
        const bool isOneGroup = own->group > 0 && own->group == other->group;
        const bool isOnePool = own->group == 0 && other->group == 0 && !own->pool.empty() &&
                               own->pool == other->pool && own->category == other->category;
        if (isOneGroup || isOnePool) {
            block.push_back(own);
            return;
        }
    }
    home.push_back({own});
}

std::vector<CheckedBlock> unitsOf(const CheckedBlock& block)
{
    std::vector<CheckedBlock> units;
    for (const CheckedPiece* piece : block) {
        const auto home = std::find_if(units.begin(), units.end(), [&](const CheckedBlock& unit) {
            return !piece->pool.empty() && unit.front()->pool == piece->pool;
        });
        if (home == units.end()) {
            units.push_back({piece});
        } else {
            home->push_back(piece);
        }
    }
    return units;
}

} // namespace mrl::combine
