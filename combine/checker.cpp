#include "combine/checker.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "combine/decimal.h"

namespace mrl::combine {

namespace {

constexpr double NEVER = -std::numeric_limits<double>::infinity();

} // namespace

Checker::Checker(const Model& model, const LCM_Situation& situation) : m_model(model), m_situation(situation)
{
    std::vector<Piece> pieces = actions();
    std::map<std::string, std::size_t> places;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        places[pieces[i].name] = i;
    }
    Piece imperfections;
    imperfections.name = "IMP";
    imperfections.isImperfection = true;
    imperfections.superposition = Superposition::Excl;
    for (const LoadCase& loadCase : model.loadCases) {
        if (loadCase.isImperfection) {
            imperfections.numbers.push_back(loadCase.number);
        } else if (!loadCase.action.empty()) {
            pieces[places.at(loadCase.action)].numbers.push_back(loadCase.number);
        } else if (loadCase.own) {
            pieces.push_back(ownPiece(loadCase));
        }
    }
    pieces.push_back(std::move(imperfections));
    m_pieces.reserve(pieces.size()); // they are pointed at
    for (Piece& piece : pieces) {
        addPiece(std::move(piece));
    }
    findSharedPools();
}

std::map<LCM_SituationFactor, double> Checker::decimals(const Factors& stored)
{
    std::map<LCM_SituationFactor, double> factors;
    for (std::size_t i = 0; i < stored.size(); ++i) {
        factors[static_cast<LCM_SituationFactor>(i)] = shortest(stored[i]);
    }
    double& gama = factors[LCM_SituationFactor::Gama];
    gama = std::fabs(gama) < 1e-7 ? 1 : std::fabs(gama - 0.001) < 1e-7 ? 0 : gama;
    return factors;
}

std::vector<Checker::Piece> Checker::actions() const
{
    std::vector<Piece> pieces;
    for (const Action& action : m_model.actions) {
        Piece piece;
        piece.name = action.name;
        piece.category = action.category;
        piece.superposition = action.superposition;
        const bool isGrouped =
            m_situation.groups != LCM_Groups::Apart && action.category == Category::Variable;
        piece.group = isGrouped ? action.group : 0;
        const bool isPool = action.superposition == Superposition::Exex;
        piece.pool = isPool ? action.name.substr(0, action.name.find('_')) : "";
        piece.factors = decimals(action.factors);
        pieces.push_back(std::move(piece));
    }
    return pieces;
}

Checker::Piece Checker::ownPiece(const LoadCase& loadCase)
{
    const bool isPermanent = factor(*loadCase.own, LCM_SituationFactor::Gamf) > 0;
    Piece piece;
    piece.name = "LC " + std::to_string(loadCase.number);
    piece.category = isPermanent ? Category::Permanent : Category::Variable;
    piece.superposition = isPermanent ? Superposition::Perm : Superposition::Cond;
    piece.numbers = {loadCase.number};
    piece.factors = decimals(*loadCase.own);
    return piece;
}

void Checker::findSharedPools()
{
    std::map<std::string, int> homes;
    for (const Block& block : m_blocks) {
        std::set<std::string> inBlock;
        for (const Piece* piece : block) {
            inBlock.insert(piece->pool);
        }
        for (const std::string& pool : inBlock) {
            if (!pool.empty() && ++homes[pool] == 2) {
                m_shared.push_back(pool);
            }
        }
    }
}

void Checker::addPiece(Piece piece)
{
    if (piece.numbers.empty()) {
        return;
    }
    m_numbers.insert(piece.numbers.begin(), piece.numbers.end());
    m_pieces.push_back(std::move(piece));
    const Piece* own = &m_pieces.back();
    if (own->isImperfection) {
        m_imperfections.push_back(own);
        return;
    }
    if (own->category == Category::Accidental || own->category == Category::Seismic) {
        m_accidental.push_back(own);
        return;
    }
    std::vector<Block>& blocks = own->category == Category::Variable ? m_blocks : m_permanent;
    for (Block& block : blocks) {
        const Piece* other = block.front();
        const bool isOneGroup = own->group > 0 && own->group == other->group;
        const bool isOnePool = own->group == 0 && other->group == 0 && !own->pool.empty() &&
                               own->pool == other->pool && own->category == other->category;
        if (isOneGroup || isOnePool) {
            block.push_back(own);
            return;
        }
    }
    blocks.push_back({own});
}

bool Checker::allows(const Key& key) const
{
    std::map<int, double> factors;
    for (const Share& share : key) {
        if (m_numbers.count(share.number) == 0) {
            return false;
        }
        factors[share.number] = share.factor;
    }
    const auto worth = [&](const Piece& piece, const CheckedPart* part) {
        std::vector<double> own;
        for (const int number : piece.numbers) {
            own.push_back(factors.count(number) == 0 ? 0 : factors.at(number));
        }
        const bool fits = part == nullptr
                              ? std::count(own.begin(), own.end(), 0.0) == static_cast<long>(own.size())
                              : partFits(*part, own);
        return fits ? 0 : NEVER;
    };
    return search(worth) == 0;
}

double Checker::greatest(const std::map<int, double>& responses) const
{
    return search([&](const Piece& piece, const CheckedPart* part) {
        std::vector<double> own;
        for (const int number : piece.numbers) {
            own.push_back(responses.at(number));
        }
        return part == nullptr ? 0 : partGreatest(*part, own);
    });
}

double Checker::product(const LCM_Term& term, const Piece& piece) const
{
    double value = term.number;
    for (const std::string& name : term.constants) {
        value *= shortest(m_model.constants.at(name));
    }
    for (const LCM_SituationFactor each : term.factors) {
        value *= piece.factors.at(each);
    }
    return rounded(value);
}

Superposition Checker::coded(const Piece& piece) const
{
    const Superposition own = piece.superposition;
    if (!m_situation.always || piece.category != Category::Variable || piece.isImperfection) {
        return own;
    }
    return own == Superposition::Cond                                 ? Superposition::Perm
           : own == Superposition::Excl || own == Superposition::Exex ? Superposition::Alex
                                                                      : own;
}

/// The bracket and the alternative of a piece in the sum; -1 where it has none.
std::pair<int, int> Checker::place(const Guess& guess, const Piece& piece) const
{
    std::pair<int, int> found{-1, -1};
    int closest = 0;
    for (std::size_t i = 0; i < guess.expression->sum->size(); ++i) {
        const LCM_Bracket& bracket = guess.expression->sum->at(i);
        for (std::size_t j = 0; j < bracket.size(); ++j) {
            if (lcm_action_matches(bracket[j].action, piece.name) > closest) {
                closest = lcm_action_matches(bracket[j].action, piece.name);
                found = {static_cast<int>(i), static_cast<int>(j)};
            }
        }
    }
    return found;
}

const LCM_SumTerm* Checker::sumTerm(const Guess& guess, const Piece& piece) const
{
    const auto [bracket, alternative] = place(guess, piece);
    if (bracket < 0 ||
        guess.alternatives.at(static_cast<std::size_t>(bracket)) != static_cast<std::size_t>(alternative)) {
        return nullptr;
    }
    return &guess.expression->sum->at(static_cast<std::size_t>(bracket))
                .at(static_cast<std::size_t>(alternative));
}

bool Checker::term(const Guess& guess, LCM_Role role, const Piece& piece, CheckedPart& part) const
{
    LCM_RoleEntry entry;
    const bool isVariable = role == LCM_Role::Lead || role == LCM_Role::Others || role == LCM_Role::Second;
    if (isVariable && guess.expression->sum) {
        const LCM_SumTerm* found = sumTerm(guess, piece);
        if (found == nullptr) {
            return false;
        }
        entry.unfavourable = found->term;
    } else {
        std::vector<std::string> present =
            role == LCM_Role::Others ? guess.leaderNames : std::vector<std::string>{};
        if (role == LCM_Role::Lead && guess.accident != nullptr) {
            present.push_back(guess.accident->name);
        }
        const LCM_RoleEntry* found = lcm_role_entry(*guess.expression, role, piece.name, present);
        if (found == nullptr || !found->unfavourable) {
            return false;
        }
        entry = *found;
    }
    part.superposition = coded(piece);
    part.worse = product(*entry.unfavourable, piece);
    part.better = product(*lcm_favourable_term(entry), piece);
    part.isPermanent = role == LCM_Role::Permanent || role == LCM_Role::Prestress;
    part.leads = role == LCM_Role::Lead;
    part.first = role == LCM_Role::Seismic ? m_situation.firstComponent : 0;
    part.others = m_situation.otherComponents;
    return true;
}

bool Checker::canLead(const Guess& guess, const Piece& piece) const
{
    if (guess.expression->sum) {
        return false;
    }
    std::vector<std::string> accident;
    if (guess.accident != nullptr) {
        accident.push_back(guess.accident->name);
    }
    const LCM_RoleEntry* lead = lcm_role_entry(*guess.expression, LCM_Role::Lead, piece.name, accident);
    const LCM_RoleEntry* others = lcm_role_entry(*guess.expression, LCM_Role::Others, piece.name);
    bool decidesForOthers = false;
    for (const LCM_RoleEntry& entry : guess.expression->entries) {
        decidesForOthers = decidesForOthers || (entry.role == LCM_Role::Others && !entry.when.empty() &&
                                                lcm_action_matches(entry.when, piece.name) != 0);
    }
    return lead != nullptr && lead->unfavourable &&
           (decidesForOthers || others == nullptr || !(lead->unfavourable == others->unfavourable));
}

bool Checker::mustAct(const Guess& guess, const Block& unit) const
{
    const Piece& front = *unit.front();
    const bool isSum = guess.expression->sum.has_value();
    const bool isShared = std::find(m_shared.begin(), m_shared.end(), front.pool) != m_shared.end();
    const bool isExcluded = isSum && m_situation.groups == LCM_Groups::Exclude && front.group > 0;
    const bool isSpread =
        isSum && std::any_of(unit.begin(), unit.end(), [&](const Piece* piece) {
            return place(guess, *piece) != place(guess, front) || place(guess, front).first < 0;
        });
    return !isShared && !isExcluded && !isSpread &&
           std::any_of(unit.begin(), unit.end(), [&](const Piece* piece) {
               const Superposition code = coded(*piece);
               const LCM_RoleEntry* others = lcm_role_entry(*guess.expression, LCM_Role::Others, piece->name);
               return (code == Superposition::Perm || code == Superposition::Perc ||
                       code == Superposition::Alex) &&
                      (isSum || (others != nullptr && others->unfavourable));
           });
}

bool Checker::isShort(const Guess& guess, const Block& block) const
{
    return std::any_of(block.begin(), block.end(), [&](const Piece* piece) {
        return std::any_of(
            guess.expression->shortActions.begin(), guess.expression->shortActions.end(),
            [&](const std::string& name) { return lcm_action_matches(name, piece->name) != 0; });
    });
}

std::vector<Checker::Block> Checker::units(const Block& block) const
{
    std::vector<Block> units;
    for (const Piece* piece : block) {
        const auto home = std::find_if(units.begin(), units.end(), [&](const Block& unit) {
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

/// A unit at rest; never where it must act.
double Checker::unitRests(const Guess& guess, const Block& unit, bool isExcluded, const Worth& worth) const
{
    CheckedPart unused;
    const bool hasTerm = std::any_of(unit.begin(), unit.end(), [&](const Piece* piece) {
        return term(guess, LCM_Role::Others, *piece, unused);
    });
    if (!isExcluded && hasTerm && mustAct(guess, unit)) {
        return NEVER;
    }
    double sum = 0;
    for (const Piece* piece : unit) {
        sum += worth(*piece, nullptr);
    }
    return sum;
}

/// The best of one member that acts in a role while the others of the unit rest.
double Checker::unitActs(const Guess& guess, const Block& unit, std::size_t number, LCM_Role role,
                         const Worth& worth) const
{
    double best = NEVER;
    for (const Piece* piece : unit) {
        CheckedPart part;
        const bool leads = role == LCM_Role::Lead;
        const auto owner = guess.poolOwners.find(piece->pool);
        const bool isElsewhere = owner != guess.poolOwners.end() && owner->second != number;
        const bool isLedByAnother =
            leads && piece->group == 0 && guess.leaderNames != std::vector<std::string>{piece->name};
        const bool isIdle =
            !leads && guess.leader == nullptr && canLead(guess, *piece) && !mustAct(guess, unit);
        const bool isUnused =
            !leads && guess.leader == &m_blocks[number] && canLead(guess, *piece) && !mustAct(guess, unit);
        if (isElsewhere || isLedByAnother || isIdle || isUnused || (leads && !canLead(guess, *piece)) ||
            !term(guess, role, *piece, part)) {
            continue;
        }
        double value = worth(*piece, &part);
        for (const Piece* other : unit) {
            value += other == piece ? 0 : worth(*other, nullptr);
        }
        best = std::max(best, value);
    }
    return best;
}

/// A block that acts in a role: of its units at least one does.
double Checker::block(const Guess& guess, std::size_t number, LCM_Role role, const Worth& worth) const
{
    double none = 0;     // the best with no unit yet in the role that is asked for
    double some = NEVER; // with one or more
    for (const Block& unit : units(m_blocks[number])) {
        const LCM_Role own = role == LCM_Role::Second && !isShort(guess, unit) ? LCM_Role::Others : role;
        double rest = unitRests(guess, unit, false, worth);
        if (role == LCM_Role::Lead) {
            rest = std::max(rest, unitActs(guess, unit, number, LCM_Role::Others, worth));
        }
        const double acts = unitActs(guess, unit, number, own, worth);
        some = std::max({some + rest, some + acts, none + acts});
        none += rest;
    }
    return some;
}

double Checker::variable(const Guess& guess, const Worth& worth) const
{
    double sum = 0;
    int acting = 0;
    std::vector<double> gains;
    for (std::size_t i = 0; i < m_blocks.size(); ++i) {
        const Block& own = m_blocks[i];
        const int group = own.front()->group;
        const bool isExcluded =
            m_situation.groups == LCM_Groups::Exclude && group > 0 && group != guess.group;
        const bool isFurther = isShort(guess, own) && guess.firstShort != &own;
        double rest = 0;
        for (const Block& unit : units(own)) {
            rest += unitRests(guess, unit, isExcluded, worth);
        }
        double acts = NEVER;
        if (guess.leader == &own) {
            acts = isExcluded ? NEVER : block(guess, i, LCM_Role::Lead, worth);
            rest = NEVER;
        } else if (guess.firstShort == &own) {
            acts = isExcluded ? NEVER : block(guess, i, LCM_Role::Others, worth);
            rest = NEVER;
        } else if (!isExcluded && !(isFurther && guess.firstShort == nullptr)) {
            acts = block(guess, i, isFurther ? LCM_Role::Second : LCM_Role::Others, worth);
        }
        if (rest == NEVER) {
            sum += acts;
            ++acting;
        } else {
            sum += rest;
            gains.push_back(acts - rest);
        }
    }
    std::sort(gains.rbegin(), gains.rend());
    const int most = m_situation.atMost > 0 ? m_situation.atMost : static_cast<int>(m_blocks.size());
    for (std::size_t i = 0; i < gains.size() && gains[i] > 0 && acting < most; ++i, ++acting) {
        sum += gains[i];
    }
    return acting > most ? NEVER : sum;
}

double Checker::shorts(Guess& guess, const Worth& worth) const
{
    double best = NEVER;
    guess.firstShort = nullptr;
    best = variable(guess, worth);
    for (const Block& block : m_blocks) {
        if (guess.leader != &block && isShort(guess, block)) {
            guess.firstShort = &block;
            best = std::max(best, variable(guess, worth));
        }
    }
    guess.firstShort = nullptr;
    return best;
}

double Checker::leaders(Guess& guess, const Worth& worth) const
{
    guess.leader = nullptr;
    guess.leaderNames.clear();
    double best = shorts(guess, worth);
    for (const Block& block : m_blocks) {
        guess.leader = &block;
        std::vector<std::string> names;
        for (const Piece* piece : block) {
            names.push_back(piece->name);
        }
        if (block.front()->group > 0) {
            guess.leaderNames = names;
            best = std::max(best, shorts(guess, worth));
            continue;
        }
        for (const std::string& name : names) {
            guess.leaderNames = {name};
            best = std::max(best, shorts(guess, worth));
        }
    }
    return best;
}

double Checker::groups(Guess& guess, const Worth& worth) const
{
    std::set<int> numbers;
    for (const Block& block : m_blocks) {
        numbers.insert(block.front()->group);
    }
    numbers.erase(0);
    if (m_situation.groups != LCM_Groups::Exclude || numbers.empty()) {
        return guess.expression->sum ? shorts(guess, worth) : leaders(guess, worth);
    }
    double best = NEVER;
    for (const int number : numbers) {
        guess.group = number;
        best = std::max(best, guess.expression->sum ? shorts(guess, worth) : leaders(guess, worth));
    }
    return best;
}

double Checker::brackets(Guess& guess, const Worth& worth) const
{
    const std::size_t at = guess.alternatives.size();
    if (!guess.expression->sum || at == guess.expression->sum->size()) {
        return groups(guess, worth);
    }
    double best = NEVER;
    for (std::size_t i = 0; i < guess.expression->sum->at(at).size(); ++i) {
        guess.alternatives.push_back(i);
        best = std::max(best, brackets(guess, worth));
        guess.alternatives.pop_back();
    }
    return best;
}

double Checker::pools(Guess& guess, std::size_t pool, const Worth& worth) const
{
    if (pool == m_shared.size()) {
        return brackets(guess, worth);
    }
    double best = NEVER;
    for (std::size_t i = 0; i < m_blocks.size(); ++i) {
        guess.poolOwners[m_shared[pool]] = i;
        best = std::max(best, pools(guess, pool + 1, worth));
    }
    return best;
}

double Checker::constant(const Guess& guess, const Worth& worth) const
{
    double sum = 0;
    for (const Block& unit : m_permanent) {
        const bool isPrestress = unit.front()->category == Category::Prestress;
        const Superposition code = unit.front()->superposition;
        const bool mayRest = code == Superposition::Excl || code == Superposition::Exex ||
                             code == Superposition::Unsi || code == Superposition::Usex;
        double best = NEVER;
        bool acts = false;
        for (const Piece* piece : unit) {
            CheckedPart part;
            if (!term(guess, isPrestress ? LCM_Role::Prestress : LCM_Role::Permanent, *piece, part)) {
                continue;
            }
            acts = true;
            double value = worth(*piece, &part);
            for (const Piece* other : unit) {
                value += other == piece ? 0 : worth(*other, nullptr);
            }
            best = std::max(best, value);
        }
        double rest = 0;
        for (const Piece* piece : unit) {
            rest += worth(*piece, nullptr);
        }
        sum += mayRest || !acts ? std::max(best, rest) : best;
    }
    for (const Piece* piece : m_imperfections) {
        CheckedPart part;
        const bool acts = term(guess, LCM_Role::Imperfection, *piece, part);
        sum += std::max(worth(*piece, nullptr), acts ? worth(*piece, &part) : NEVER);
    }
    return sum;
}

double Checker::accidents(Guess& guess, const Worth& worth) const
{
    const auto& entries = guess.expression->entries;
    const bool isNeeded =
        !m_situation.mayBeNone && std::any_of(entries.begin(), entries.end(), [](const auto& entry) {
            return (entry.role == LCM_Role::Accidental || entry.role == LCM_Role::Seismic) &&
                   entry.unfavourable;
        });
    double best = NEVER;
    std::vector<const Piece*> all = m_accidental;
    all.push_back(nullptr);
    for (const Piece* acting : all) {
        CheckedPart part;
        const bool isSeismic = acting != nullptr && acting->category == Category::Seismic;
        guess.accident = acting;
        if (acting == nullptr
                ? isNeeded
                : !term(guess, isSeismic ? LCM_Role::Seismic : LCM_Role::Accidental, *acting, part)) {
            continue;
        }
        double value = constant(guess, worth);
        for (const Piece* piece : m_accidental) {
            value += worth(*piece, piece == acting ? &part : nullptr);
        }
        best = std::max(best, value + pools(guess, 0, worth));
    }
    return best;
}

double Checker::search(const Worth& worth) const
{
    double best = NEVER;
    for (const LCM_Expression& expression : m_situation.expressions) {
        Guess guess;
        guess.expression = &expression;
        best = std::max(best, accidents(guess, worth));
    }
    return best;
}

} // namespace mrl::combine
