#include "combine/checker.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "combine/decimal.h"

namespace mrl::combine {

namespace {

constexpr double NEVER = -std::numeric_limits<double>::infinity();
constexpr double TOLERANCE = 1e-12; // of factors that were typed

bool same(double a, double b) { return std::fabs(a - b) <= TOLERANCE; }

} // namespace

Checker::Checker(const Model& model, const LCM_Situation& situation) : m_model(model), m_situation(situation)
{
    std::map<std::string, Piece> named;
    Piece imperfections;
    imperfections.name = "IMP";
    imperfections.isImperfection = true;
    imperfections.superposition = Superposition::Excl;
    std::vector<Piece> own;
    const auto readFactors = [](Piece& piece, const Factors& factors) {
        for (std::size_t i = 0; i < factors.size(); ++i) {
            piece.factors[static_cast<LCM_SituationFactor>(i)] = shortest(factors[i]);
        }
        double& gama = piece.factors[LCM_SituationFactor::Gama];
        gama = std::fabs(gama) < 1e-7 ? 1 : std::fabs(gama - 0.001) < 1e-7 ? 0 : gama;
    };
    for (const Action& action : model.actions) {
        Piece& piece = named[action.name];
        piece.name = action.name;
        piece.category = action.category;
        piece.superposition = action.superposition;
        piece.group =
            situation.groups == LCM_Groups::Apart || action.category != Category::Variable ? 0 : action.group;
        piece.pool =
            action.superposition == Superposition::Exex ? action.name.substr(0, action.name.find('_')) : "";
        readFactors(piece, action.factors);
    }
    for (const LoadCase& loadCase : model.loadCases) {
        if (loadCase.isImperfection) {
            imperfections.numbers.push_back(loadCase.number);
        } else if (!loadCase.action.empty()) {
            named[loadCase.action].numbers.push_back(loadCase.number);
        } else if (loadCase.own) {
            const bool isPermanent = factor(*loadCase.own, LCM_SituationFactor::Gamf) > 0;
            Piece piece;
            piece.name = "LC " + std::to_string(loadCase.number);
            piece.category = isPermanent ? Category::Permanent : Category::Variable;
            piece.superposition = isPermanent ? Superposition::Perm : Superposition::Cond;
            piece.numbers = {loadCase.number};
            readFactors(piece, *loadCase.own);
            own.push_back(piece);
        }
    }
    m_pieces.reserve(named.size() + own.size() + 1); // pieces are pointed at
    for (auto& [name, piece] : named) {
        addPiece(std::move(piece));
    }
    for (Piece& piece : own) {
        addPiece(std::move(piece));
    }
    addPiece(std::move(imperfections));
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
    const auto fits = [&](const Piece& piece, const Part* part) {
        const auto all = [&](const std::vector<double>& wanted, int marked, double mark) {
            int count = 0; // load cases that have the marked factor and couldn't have another one
            int could = 0;
            for (const int number : piece.numbers) {
                const double x = factors.count(number) == 0 ? 0 : factors.at(number);
                const bool isWanted =
                    std::any_of(wanted.begin(), wanted.end(), [&](double w) { return same(w, x); });
                const bool isMarked = marked != 0 && same(std::fabs(x), std::fabs(mark));
                if (!isWanted && !isMarked) {
                    return false;
                }
                count += isWanted ? 0 : 1;
                could += isMarked ? 1 : 0;
            }
            return marked == 0 || (could > 0 && (marked < 0 || count <= 1));
        };
        const auto fitsOne = [&](double factor, bool hasSigns, bool isSome) {
            // Without signs, a load case with the other sign is neither wanted nor marked.
            for (const int number : piece.numbers) {
                const double x = factors.count(number) == 0 ? 0 : factors.at(number);
                if (!hasSigns && !same(x, factor) && !same(x, 0)) {
                    return false;
                }
            }
            return all({0}, isSome ? -1 : 1, factor);
        };
        if (part == nullptr) {
            return all({0}, 0, 0) ? 0 : NEVER;
        }
        const double u = part->worse;
        const double f = part->better;
        bool isFit = false;
        if (part->first > 0) {
            const double second = u * part->others;
            return all({second, -second}, 1, u * part->first) ? 0 : NEVER;
        }
        switch (part->superposition) {
        case Superposition::Cond:
            isFit = part->isPermanent ? all({0, u}, 0, 0) : fitsOne(u, false, true);
            break;
        case Superposition::Excl:
        case Superposition::Exex:
            isFit = fitsOne(u, false, false) || (part->isPermanent && fitsOne(f, false, false));
            break;
        case Superposition::Alex:
            isFit = fitsOne(u, false, false) || (!part->leads && fitsOne(f, false, false));
            break;
        case Superposition::Unsi:
        case Superposition::Usex:
            isFit = fitsOne(u, true, part->superposition == Superposition::Unsi) ||
                    (part->isPermanent && fitsOne(f, true, part->superposition == Superposition::Unsi));
            break;
        case Superposition::Perm:
            isFit = all({u}, 0, 0) || (!part->leads && all({f}, 0, 0));
            break;
        case Superposition::Perc:
            isFit = all({u, f}, 0, 0) && (!part->leads || !all({f}, 0, 0) || same(u, f));
            break;
        }
        return isFit ? 0 : NEVER;
    };
    return search(fits) == 0;
}

double Checker::greatest(const std::map<int, double>& responses) const
{
    return search([&](const Piece& piece, const Part* part) {
        if (part == nullptr) {
            return 0.0;
        }
        std::vector<double> r;
        for (const int number : piece.numbers) {
            r.push_back(responses.at(number));
        }
        const double u = part->worse;
        const double f = part->better;
        const auto sum = [&](const std::function<double(double)>& each) {
            double total = 0;
            for (const double x : r) {
                total += each(x);
            }
            return total;
        };
        const auto most = [&](const std::function<double(double)>& each) {
            double best = NEVER;
            for (const double x : r) {
                best = std::max(best, each(x));
            }
            return best;
        };
        const double worst = part->isPermanent ? std::max(std::fabs(u), std::fabs(f)) : std::fabs(u);
        if (part->first > 0) {
            return sum([&](double x) { return std::fabs(u * part->others * x); }) +
                   most([&](double x) { return std::fabs(u * x) * (part->first - part->others); });
        }
        switch (part->superposition) {
        case Superposition::Cond: {
            const double best = most([&](double x) { return u * x; });
            const double all = sum([&](double x) { return std::max(0.0, u * x); });
            return part->isPermanent || best >= 0 ? all : best;
        }
        case Superposition::Excl:
        case Superposition::Exex:
            return most([&](double x) { return part->isPermanent ? std::max(u * x, f * x) : u * x; });
        case Superposition::Alex:
            return most([&](double x) { return part->leads ? u * x : std::max(u * x, f * x); });
        case Superposition::Unsi:
            return sum([&](double x) { return worst * std::fabs(x); });
        case Superposition::Usex:
            return most([&](double x) { return worst * std::fabs(x); });
        case Superposition::Perm: {
            const double all = sum([](double x) { return x; });
            return part->leads ? u * all : std::max(u * all, f * all);
        }
        case Superposition::Perc:
            break;
        }
        const double loss = most([&](double x) { return u * x - std::max(u * x, f * x); });
        return sum([&](double x) { return std::max(u * x, f * x); }) + (part->leads ? loss : 0);
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

const LCM_SumTerm* Checker::sumTerm(const Guess& guess, const Piece& piece) const
{
    const LCM_SumTerm* found = nullptr;
    bool isPicked = false;
    int closest = 0;
    for (std::size_t i = 0; i < guess.expression->sum->size(); ++i) {
        const LCM_Bracket& bracket = guess.expression->sum->at(i);
        for (std::size_t j = 0; j < bracket.size(); ++j) {
            if (lcm_action_matches(bracket[j].action, piece.name) > closest) {
                closest = lcm_action_matches(bracket[j].action, piece.name);
                found = &bracket[j];
                isPicked = guess.alternatives.at(i) == j;
            }
        }
    }
    return isPicked ? found : nullptr;
}

bool Checker::term(const Guess& guess, LCM_Role role, const Piece& piece, Part& part) const
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
    const bool isShared = std::find(m_shared.begin(), m_shared.end(), unit.front()->pool) != m_shared.end();
    const bool isExcluded =
        guess.expression->sum && m_situation.groups == LCM_Groups::Exclude && unit.front()->group > 0;
    return !isShared && !isExcluded && std::any_of(unit.begin(), unit.end(), [&](const Piece* piece) {
        const Superposition code = coded(*piece);
        return code == Superposition::Perm || code == Superposition::Perc || code == Superposition::Alex;
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

double Checker::unitRests(const Guess&, const Block& unit, const Worth& worth) const
{
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
        Part part;
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
        Part unused;
        const bool hasTerm = std::any_of(unit.begin(), unit.end(), [&](const Piece* piece) {
            return term(guess, LCM_Role::Others, *piece, unused);
        });
        const LCM_Role own = role == LCM_Role::Second && !isShort(guess, unit) ? LCM_Role::Others : role;
        double rest = mustAct(guess, unit) && hasTerm ? NEVER : unitRests(guess, unit, worth);
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
            Part unused;
            const bool hasTerm = std::any_of(unit.begin(), unit.end(), [&](const Piece* piece) {
                return term(guess, LCM_Role::Others, *piece, unused);
            });
            rest += mustAct(guess, unit) && hasTerm && !isExcluded ? NEVER : unitRests(guess, unit, worth);
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
            Part part;
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
        sum += mayRest || !acts ? std::max(best, unitRests(guess, unit, worth)) : best;
    }
    for (const Piece* piece : m_imperfections) {
        Part part;
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
        Part part;
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
