#include "combine/checker.h"

#include <algorithm>
#include <limits>

namespace mrl::combine {

namespace {

constexpr double NEVER = -std::numeric_limits<double>::infinity();

} // namespace

Checker::Checker(const Model& model, const LCM_Situation& situation)
    : m_situation(situation), m_model(model, situation),
      m_terms(situation, model.constants, m_model.sharedPools)
{
}

bool Checker::allows(const Key& key) const
{
    std::map<int, double> factors;
    for (const Share& share : key) {
        if (m_model.numbers.count(share.number) == 0) {
            return false;
        }
        factors[share.number] = share.factor;
    }
    const auto worth = [&](const CheckedPiece& piece, const CheckedPart* part) {
        std::vector<double> own;
        own.reserve(piece.numbers.size());
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
    return search([&](const CheckedPiece& piece, const CheckedPart* part) {
        std::vector<double> own;
        own.reserve(piece.numbers.size());
        for (const int number : piece.numbers) {
            own.push_back(responses.at(number));
        }
        return part == nullptr ? 0 : partGreatest(*part, own);
    });
}

/// A unit at rest; never where it must act.
double Checker::unitRests(const Guess& guess, const CheckedBlock& unit, bool isExcluded,
                          const Worth& worth) const
{
    CheckedPart unused;
    const bool hasTerm = std::any_of(unit.begin(), unit.end(), [&](const CheckedPiece* piece) {
        return m_terms.term(guess, LCM_Role::Others, *piece, unused);
    });
    if (!isExcluded && hasTerm && m_terms.mustAct(guess, unit)) {
        return NEVER;
    }
    double sum = 0;
    for (const CheckedPiece* piece : unit) {
        sum += worth(*piece, nullptr);
    }
    return sum;
}

/// The best of one member that acts in a role while the others of the unit rest.
double Checker::unitActs(const Guess& guess, const CheckedBlock& unit, std::size_t number, LCM_Role role,
                         const Worth& worth) const
{
    double best = NEVER;
    for (const CheckedPiece* piece : unit) {
        CheckedPart part;
        const bool leads = role == LCM_Role::Lead;
        const auto owner = guess.poolOwners.find(piece->pool);
        const bool isElsewhere = owner != guess.poolOwners.end() && owner->second != number;
        const bool isLedByAnother =
            leads && piece->group == 0 && guess.leaderNames != std::vector<std::string>{piece->name};
        const bool isIdle = !leads && guess.leader == nullptr && m_terms.canLead(guess, *piece) &&
                            !m_terms.mustAct(guess, unit);
        const bool isUnused = !leads && guess.leader == &m_model.blocks[number] &&
                              m_terms.canLead(guess, *piece) && !m_terms.mustAct(guess, unit);
        if (isElsewhere || isLedByAnother || isIdle || isUnused ||
            (leads && !m_terms.canLead(guess, *piece)) || !m_terms.term(guess, role, *piece, part)) {
            continue;
        }
        double value = worth(*piece, &part);
        for (const CheckedPiece* other : unit) {
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
    for (const CheckedBlock& unit : unitsOf(m_model.blocks[number])) {
        const LCM_Role own =
            role == LCM_Role::Second && !m_terms.isShort(guess, unit) ? LCM_Role::Others : role;
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
    for (std::size_t i = 0; i < m_model.blocks.size(); ++i) {
        const CheckedBlock& own = m_model.blocks[i];
        const int group = own.front()->group;
        const bool isExcluded =
            m_situation.groups == LCM_Groups::Exclude && group > 0 && group != guess.group;
        const bool isFurther = m_terms.isShort(guess, own) && guess.firstShort != &own;
        double rest = 0;
        for (const CheckedBlock& unit : unitsOf(own)) {
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
    const int most = m_situation.atMost > 0 ? m_situation.atMost : static_cast<int>(m_model.blocks.size());
    for (std::size_t i = 0; i < gains.size() && gains[i] > 0 && acting < most; ++i, ++acting) {
        sum += gains[i];
    }
    if (acting > most) {
        return NEVER;
    }
    return sum;
}

double Checker::shorts(Guess& guess, const Worth& worth) const
{
    double best = NEVER;
    guess.firstShort = nullptr;
    best = variable(guess, worth);
    for (const CheckedBlock& block : m_model.blocks) {
        if (guess.leader != &block && m_terms.isShort(guess, block)) {
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
    for (const CheckedBlock& block : m_model.blocks) {
        guess.leader = &block;
        std::vector<std::string> names;
        for (const CheckedPiece* piece : block) {
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
    for (const CheckedBlock& block : m_model.blocks) {
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
    if (pool == m_model.sharedPools.size()) {
        return brackets(guess, worth);
    }
    double best = NEVER;
    for (std::size_t i = 0; i < m_model.blocks.size(); ++i) {
        guess.poolOwners[m_model.sharedPools[pool]] = i;
        best = std::max(best, pools(guess, pool + 1, worth));
    }
    return best;
}

double Checker::constant(const Guess& guess, const Worth& worth) const
{
    double sum = 0;
    for (const CheckedBlock& unit : m_model.permanent) {
        const bool isPrestress = unit.front()->category == Category::Prestress;
        const bool mayRest = permanentMayRest(unit.front()->superposition);
        double best = NEVER;
        bool acts = false;
        for (const CheckedPiece* piece : unit) {
            CheckedPart part;
            if (!m_terms.term(guess, isPrestress ? LCM_Role::Prestress : LCM_Role::Permanent, *piece, part)) {
                continue;
            }
            acts = true;
            double value = worth(*piece, &part);
            for (const CheckedPiece* other : unit) {
                value += other == piece ? 0 : worth(*other, nullptr);
            }
            best = std::max(best, value);
        }
        double rest = 0;
        for (const CheckedPiece* piece : unit) {
            rest += worth(*piece, nullptr);
        }
        sum += mayRest || !acts ? std::max(best, rest) : best;
    }
    for (const CheckedPiece* piece : m_model.imperfections) {
        CheckedPart part;
        double best = worth(*piece, nullptr);
        if (m_terms.term(guess, LCM_Role::Imperfection, *piece, part)) {
            best = std::max(best, worth(*piece, &part));
        }
        sum += best;
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
    std::vector<const CheckedPiece*> all = m_model.accidental;
    all.push_back(nullptr);
    for (const CheckedPiece* acting : all) {
        CheckedPart part;
        const bool isSeismic = acting != nullptr && acting->category == Category::Seismic;
        guess.accident = acting;
        if (acting == nullptr
                ? isNeeded
                : !m_terms.term(guess, isSeismic ? LCM_Role::Seismic : LCM_Role::Accidental, *acting, part)) {
            continue;
        }
        double value = constant(guess, worth);
        for (const CheckedPiece* piece : m_model.accidental) {
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
