#include "tests/combine/oracle_acts.h"

#include <algorithm>

#include "combine/decimal.h"

namespace oracle {

using namespace mrl::combine;

std::string first(const std::string& name) { return name.substr(0, name.find('_')); }

long occurrences(const Selection& word, const std::string& of)
{
    return std::count_if(word.begin(), word.end(), [&](char c) { return of.find(c) != std::string::npos; });
}

namespace {

std::array<double, 7> decimals(const Factors& factors)
{
    std::array<double, 7> result{};
    for (std::size_t i = 0; i < 7; ++i) {
        result[i] = shortest(factors[i]);
    }
    result[2] = factors[2] == 0 ? 1 : factors[2] == 0.001f ? 0 : result[2];
    return result;
}

/// All words of a length over an alphabet.
std::vector<Selection> words(const std::string& alphabet, std::size_t length)
{
    std::vector<Selection> result{""};
    for (std::size_t i = 0; i < length; ++i) {
        std::vector<Selection> longer;
        for (const Selection& word : result) {
            for (const char c : alphabet) {
                longer.push_back(word + c);
            }
        }
        result = longer;
    }
    return result;
}

std::vector<Selection> selectionsOf(const Act& act, const LCM_Situation& situation)
{
    const bool isPermanent = act.category == Category::Permanent || act.category == Category::Prestress;
    if (act.category == Category::Seismic && situation.firstComponent > 0) {
        std::vector<Selection> result = words("cCdD", act.cases.size());
        result.push_back(Selection(act.cases.size(), '0'));
        result.erase(
            std::remove_if(result.begin(), result.end(),
                           [](const Selection& s) { return s[0] != '0' && occurrences(s, "cC") != 1; }),
            result.end());
        return result;
    }
    std::vector<Selection> result;
    for (const Selection& word : words("0ufUF", act.cases.size())) {
        const auto n = static_cast<long>(word.size());
        const long u = occurrences(word, "u");
        const long f = occurrences(word, "f");
        const long signs = occurrences(word, "UF");
        const long acting = n - occurrences(word, "0");
        bool fits = acting == 0;
        switch (act.code) {
        case LC_SUPERPOSITION_PERM:
            fits = fits || u == n || f == n;
            break;
        case LC_SUPERPOSITION_PERC:
        case LC_SUPERPOSITION_OLD_PERC:
            fits = fits || u + f == n;
            break;
        case LC_SUPERPOSITION_COND:
            fits = acting == u;
            break;
        case LC_SUPERPOSITION_EXCL:
        case LC_SUPERPOSITION_EXEX:
            fits = acting <= 1 && signs == 0 && (isPermanent || f == 0);
            break;
        case LC_SUPERPOSITION_ALEX:
            fits = acting <= 1 && signs == 0;
            break;
        case LC_SUPERPOSITION_UNSI:
            fits = occurrences(word, "fF") == 0 || (isPermanent && occurrences(word, "uU") == 0);
            break;
        case LC_SUPERPOSITION_USEX:
            fits = acting <= 1 && (isPermanent || occurrences(word, "fF") == 0);
            break;
        }
        if (fits) {
            result.push_back(word);
        }
    }
    return result;
}

} // namespace

namespace {

Act actOf(const std::string& name, Category category, Superposition code, const Factors& factors)
{
    Act act;
    act.name = name;
    act.first = first(name);
    act.category = category;
    act.code = code;
    act.isExex = code == LC_SUPERPOSITION_EXEX;
    act.factors = decimals(factors);
    return act;
}

Act actOf(const Action& action, const LCM_Situation& situation)
{
    Act act = actOf(action.name, action.category, action.superposition, action.factors);
    const bool isGrouped = situation.groups != LCM_Groups::Apart && action.category == Category::Variable;
    act.group = isGrouped ? action.group : 0;
    return act;
}

/// A load case that has no action is one by itself.
Act actOf(const LoadCase& loadCase, std::size_t place)
{
    const bool isPermanent = (*loadCase.own)[1] > 0;
    Act act =
        actOf("LC " + std::to_string(loadCase.number), isPermanent ? Category::Permanent : Category::Variable,
              isPermanent ? LC_SUPERPOSITION_PERM : LC_SUPERPOSITION_COND, *loadCase.own);
    act.cases.push_back(place);
    return act;
}

Superposition codeWhereAlways(Superposition code)
{
    return code == LC_SUPERPOSITION_COND                                    ? LC_SUPERPOSITION_PERM
           : code == LC_SUPERPOSITION_EXCL || code == LC_SUPERPOSITION_EXEX ? LC_SUPERPOSITION_ALEX
                                                                            : code;
}

} // namespace

std::vector<Act> actsOf(const Model& model, const LCM_Situation& situation)
{
    std::vector<Act> acts;
    for (const Action& action : model.actions) {
        acts.push_back(actOf(action, situation));
    }
    Act imperfections;
    imperfections.isImperfection = true;
    imperfections.code = LC_SUPERPOSITION_EXCL;
    for (std::size_t i = 0; i < model.loadCases.size(); ++i) {
        const LoadCase& each = model.loadCases[i];
        if (each.isImperfection) {
            imperfections.cases.push_back(i);
        } else if (!each.action.empty()) {
            std::find_if(acts.begin(), acts.end(), [&](const Act& a) {
                return a.name == each.action;
            })->cases.push_back(i);
        } else if (each.own) {
            acts.push_back(actOf(each, i));
        }
    }
    acts.push_back(imperfections);
    acts.erase(std::remove_if(acts.begin(), acts.end(), [](const Act& a) { return a.cases.empty(); }),
               acts.end());
    for (Act& act : acts) {
        act.block = act.group > 0 ? "group " + std::to_string(act.group)
                    : act.isExex  ? "pool " + act.first
                                  : act.name;
        act.code = situation.always && act.isVariable() ? codeWhereAlways(act.code) : act.code;
        act.selections = selectionsOf(act, situation);
    }
    return acts;
}

} // namespace oracle
