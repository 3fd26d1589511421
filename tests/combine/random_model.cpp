#include "tests/combine/random_model.h"

#include <sstream>

#include "lcdata/values/situation_text.h"
#include "tests/combine/dice.h"

namespace random_model {

using namespace mrl::combine;

namespace {

const std::vector<std::string> VARIABLE{"Q", "Q_A", "Q_B", "S", "S_H", "W", "T", "L_1", "L_2"};

Factors factorsOf(Dice& dice, Category category)
{
    const bool isPermanent = category == Category::Permanent || category == Category::Prestress;
    const float gamu = dice.of<float>({1.5f, 1.35f, 1.0f, 1.1f});
    const float gamf =
        isPermanent ? dice.of<float>({1.0f, 0.9f, gamu, 0.0f}) : dice.of<float>({0.0f, 0.0f, 1.0f, 0.5f});
    return {gamu,
            gamf,
            dice.of<float>({0.0f, 1.0f, 0.001f, 1.2f}),
            dice.of<float>({0.7f, 0.6f, 1.0f, 0.0f, 1.2f}),
            dice.of<float>({0.5f, 0.2f, 0.0f}),
            dice.of<float>({0.3f, 0.5f, 0.0f}),
            dice.of<float>({0.8f, 0.6f})};
}

void addActions(Dice& dice, int size, Model& model)
{
    const std::vector<Superposition> codes{
        LC_SUPERPOSITION_PERM, LC_SUPERPOSITION_COND, LC_SUPERPOSITION_EXCL, LC_SUPERPOSITION_UNSI,
        LC_SUPERPOSITION_USEX, LC_SUPERPOSITION_ALEX, LC_SUPERPOSITION_EXEX, LC_SUPERPOSITION_PERC};
    std::vector<std::pair<std::string, Category>> names{
        {"G", Category::Permanent},  {"G_1", Category::Permanent},  {"P", Category::Prestress},
        {"A", Category::Accidental}, {"A_F", Category::Accidental}, {"E", Category::Seismic}};
    for (const std::string& name : VARIABLE) {
        names.emplace_back(name, Category::Variable);
    }
    const bool areGrouped = dice.oneIn(2);
    for (const auto& [name, category] : names) {
        if (dice.below(size + 2) >= size) { // the larger, the more actions
            continue;
        }
        const bool isPool = name.rfind("L_", 0) == 0 && !dice.oneIn(3);
        Action action{name, category, isPool ? LC_SUPERPOSITION_EXEX : dice.of(codes), 0,
                      factorsOf(dice, category)};
        action.group = category == Category::Variable && areGrouped && dice.oneIn(2) ? 1 + dice.below(3) : 0;
        model.actions.push_back(action);
    }
}

void addLoadCases(Dice& dice, Model& model)
{
    int number = 1;
    for (const Action& action : model.actions) {
        const int count = dice.below(3) + (dice.oneIn(4) ? 1 : 0);
        for (int i = 0; i < count; ++i) {
            LoadCase loadCase;
            loadCase.number = number;
            loadCase.action = action.name;
            model.loadCases.push_back(loadCase);
            number += 1 + dice.below(3);
        }
    }
    if (dice.oneIn(5)) {
        LoadCase loadCase;
        loadCase.number = number++;
        loadCase.own = factorsOf(dice, dice.oneIn(2) ? Category::Permanent : Category::Variable);
        model.loadCases.push_back(loadCase);
    }
    if (dice.oneIn(5)) {
        LoadCase loadCase;
        loadCase.number = number++;
        loadCase.isImperfection = true;
        model.loadCases.push_back(loadCase);
    }
    for (std::size_t i = model.loadCases.size(); i > 1; --i) { // in any order
        std::swap(model.loadCases[i - 1],
                  model.loadCases[static_cast<std::size_t>(dice.below(static_cast<int>(i)))]);
    }
}

using Entries = std::vector<LCM_TextEntry>;

void variableEntries(Dice& dice, Entries& entries)
{
    const std::vector<std::pair<std::string, std::string>> kinds{{"KFI*Gamu", "KFI*Gamu*Psi0"},
                                                                 {"KFI*Gamu*Psi0", "KFI*Gamu*Psi0"},
                                                                 {"1", "Psi0"},
                                                                 {"Psi1", "Psi2"},
                                                                 {"Psi2", "Psi2"},
                                                                 {"Psi1s", "Psi1"},
                                                                 {"none", "Psi2"},
                                                                 {"none", "none"},
                                                                 {"Gamu | 0.5", "Gamu*Psi0 | 0.2"}};
    const auto& [lead, others] =
        kinds[static_cast<std::size_t>(dice.oneIn(2) ? 0 : dice.below(static_cast<int>(kinds.size())))];
    entries.push_back({"lead", lead});
    entries.push_back({"others", others});
    if (dice.oneIn(4)) {
        entries.push_back({"lead " + dice.of(VARIABLE), dice.of<std::string>({"none", "1.2*Gamu", "Psi2"})});
    }
    if (dice.oneIn(4)) {
        entries.push_back({"others " + dice.of(VARIABLE), dice.of<std::string>({"none", "0.4", "Gamu*0.3"})});
    }
    if (dice.oneIn(4)) {
        entries.push_back({"others " + dice.of(VARIABLE) + " when " + dice.of(VARIABLE) + " leads",
                           dice.of<std::string>({"0", "0.6*Gamu", "none"})});
        entries.push_back(
            {"others when " + dice.of(VARIABLE) + " leads", dice.of<std::string>({"0.1", "Gamu*0.8"})});
    }
    if (dice.oneIn(5)) {
        entries.push_back({"lead when A_F acts", dice.of<std::string>({"Psi2", "none", "0.9"})});
    }
    if (dice.oneIn(4)) {
        entries.push_back({"short", dice.of<std::string>({"S, W, T", "Q, S, L_1", "W"})});
        entries.push_back({"second", dice.of<std::string>({"KFI*Gamu*0.3", "0", "none"})});
    }
}

std::string randomSum(Dice& dice)
{
    std::vector<std::string> names{"Q", "S", "W", "T", "L", "L_1", "Q_A"};
    std::string text;
    while (!names.empty() && !dice.oneIn(4)) {
        std::string bracket;
        for (int i = 0; i <= dice.below(3) && !names.empty(); ++i) {
            const auto at = static_cast<std::size_t>(dice.below(static_cast<int>(names.size())));
            bracket += (bracket.empty() ? "" : " or ") +
                       dice.of<std::string>({"1.6*", "0.5*", "KFI*Gamu*", ""}) + names[at];
            names.erase(names.begin() + static_cast<std::ptrdiff_t>(at));
        }
        const bool isBracket = bracket.find(" or ") != std::string::npos;
        text += (text.empty() ? "" : " + ") + (isBracket ? "(" + bracket + ")" : bracket);
    }
    return text.empty() ? "0" : text;
}

Entries expressionEntries(Dice& dice, bool isAccidental)
{
    Entries entries;
    entries.push_back(
        {"G", dice.of<std::string>({"KFI*Gamu | Gamf", "KFI*XSI*Gamu | Gamf", "1", "1.2 | 0.9", "none"})});
    if (dice.oneIn(4)) {
        entries.push_back({"G G_1", dice.of<std::string>({"1.4 | 0", "none"})});
    }
    entries.push_back({"P", dice.of<std::string>({"Gamu | Gamf", "1"})});
    entries.push_back({"A", isAccidental && !dice.oneIn(4) ? "Gama" : "none"});
    entries.push_back({"E", isAccidental && !dice.oneIn(4) ? "Gama" : "none"});
    if (dice.oneIn(3)) {
        entries.push_back({"I", "1"});
    }
    if (dice.oneIn(4)) {
        entries.push_back({"sum", randomSum(dice)});
    } else {
        variableEntries(dice, entries);
    }
    return entries;
}

Entries wholeEntries(Dice& dice)
{
    Entries entries{{"kind", "ultimate"}};
    if (dice.oneIn(3)) {
        entries.push_back({"groups", dice.of<std::string>({"exclude", "apart", "together"})});
    }
    if (dice.oneIn(3)) {
        entries.push_back({"at-most", std::to_string(1 + dice.below(3))});
    }
    if (dice.oneIn(5)) {
        entries.push_back({"always", "yes"});
    }
    if (dice.oneIn(3)) {
        entries.push_back({"may-be-none", "yes"});
    }
    if (dice.oneIn(3)) {
        entries.push_back({"components", dice.of<std::string>({"1, 0.3", "1, 0", "0.5, 0.5"})});
    }
    return entries;
}

} // namespace

Case make(std::mt19937& random, int size)
{
    Dice dice(random);
    Case each;
    each.model.constants = {{"KFI", dice.of<float>({1.0f, 1.1f})}, {"XSI", 0.85f}};
    addActions(dice, size, each.model);
    addLoadCases(dice, each.model);
    const bool isAccidental = dice.oneIn(3);
    std::vector<LCM_SituationSection> sections{{"s", wholeEntries(dice)}};
    const int expressions = 1 + (dice.oneIn(3) ? 1 + dice.below(2) : 0);
    for (int i = 0; i < expressions; ++i) {
        sections.push_back({"s / " + std::to_string(i), expressionEntries(dice, isAccidental)});
    }
    const LCM_SituationsRead read = lcm_read_situations(sections, {"KFI", "XSI"});
    for (const LCM_SituationFinding& finding : read.findings) {
        each.text.push_back("FINDING " + finding.message);
    }
    for (const LCM_SituationSection& section : sections) {
        each.text.push_back("[SITUATION " + section.name + "]");
        for (const LCM_TextEntry& entry : section.entries) {
            each.text.push_back(entry.key + " = " + entry.value);
        }
    }
    each.situation = read.situations.front();
    return each;
}

std::string describe(const Case& each)
{
    std::ostringstream out;
    for (const std::string& line : each.text) {
        out << line << '\n';
    }
    for (const Action& action : each.model.actions) {
        out << action.name << " category " << static_cast<int>(action.category) << " code "
            << static_cast<int>(action.superposition) << " group " << action.group << " factors";
        for (const float factor : action.factors) {
            out << ' ' << factor;
        }
        out << " cases";
        for (const LoadCase& loadCase : each.model.loadCases) {
            if (loadCase.action == action.name) {
                out << ' ' << loadCase.number;
            }
        }
        out << '\n';
    }
    return out.str();
}

} // namespace random_model
