#pragma once

/// Models and situations for tests, in few words.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "combine/count.h"
#include "combine/decimal.h"
#include "combine/enumerate.h"
#include "combine/envelope.h"
#include "combine/plan.h"
#include "lcdata/values/situation_text.h"

namespace samples {

using namespace mrl::combine;

/// Gamu, Gamf, Psi0, Psi1, Psi2; Gama is 1.
inline Factors factors(float gamu, float gamf, float psi0 = 1, float psi1 = 1, float psi2 = 1)
{
    return {gamu, gamf, 1, psi0, psi1, psi2, 0};
}

class ModelBuilder
{
  public:
    ModelBuilder() { m_model.constants = {{"KFI", 1.0f}, {"XSI", 0.85f}, {"F1", 1.0f}}; }

    ModelBuilder& action(const std::string& name, Category category, Superposition superposition,
                         const Factors& factors, const std::vector<int>& numbers, int group = 0)
    {
        m_model.actions.push_back({name, category, superposition, group, factors});
        for (const int number : numbers) {
            LoadCase loadCase;
            loadCase.number = number;
            loadCase.action = name;
            m_model.loadCases.push_back(loadCase);
        }
        return *this;
    }
    ModelBuilder& loadCase(const LoadCase& loadCase)
    {
        m_model.loadCases.push_back(loadCase);
        return *this;
    }
    ModelBuilder& permanent(const std::vector<int>& numbers,
                            Superposition superposition = LC_SUPERPOSITION_PERM)
    {
        return action("G", Category::Permanent, superposition, factors(1.35f, 1.0f), numbers);
    }
    ModelBuilder& snow(const std::vector<int>& numbers)
    {
        return action("S", Category::Variable, LC_SUPERPOSITION_EXCL, factors(1.5f, 0, 0.5f, 0.2f, 0),
                      numbers);
    }
    ModelBuilder& wind(const std::vector<int>& numbers)
    {
        return action("W", Category::Variable, LC_SUPERPOSITION_EXCL, factors(1.5f, 0, 0.6f, 0.2f, 0),
                      numbers);
    }
    ModelBuilder& imposed(const std::vector<int>& numbers,
                          Superposition superposition = LC_SUPERPOSITION_COND)
    {
        return action("Q", Category::Variable, superposition, factors(1.5f, 0, 0.7f, 0.5f, 0.3f), numbers);
    }
    ModelBuilder& constant(const std::string& name, float value)
    {
        m_model.constants[name] = value;
        return *this;
    }

    operator const Model&() const { return m_model; }
    Model& model() { return m_model; }

  private:
    Model m_model;
};

using Entries = std::vector<LCM_TextEntry>;

/// A situation from entries; a finding fails the test.
inline LCM_Situation situation(const Entries& entries, const std::vector<Entries>& expressions = {})
{
    std::vector<LCM_SituationSection> sections{{"s", {{"kind", "ultimate"}}}};
    sections[0].entries.insert(sections[0].entries.end(), entries.begin(), entries.end());
    for (const Entries& expression : expressions) {
        sections.push_back({"s / " + std::to_string(sections.size()), expression});
    }
    const LCM_SituationsRead read = lcm_read_situations(sections, {"KFI", "XSI", "F1"});
    for (const LCM_SituationFinding& finding : read.findings) {
        ADD_FAILURE() << finding.message << "; " << finding.cure;
    }
    return read.situations.front();
}

inline Entries with(Entries entries, const Entries& more)
{
    for (const LCM_TextEntry& entry : more) {
        bool isNew = true;
        for (LCM_TextEntry& known : entries) {
            if (known.key == entry.key) {
                known.value = entry.value;
                isNew = false;
            }
        }
        if (isNew) {
            entries.push_back(entry);
        }
    }
    return entries;
}

inline const Entries PERSISTENT{{"G", "KFI*Gamu | Gamf"},    {"P", "Gamu | Gamf"}, {"lead", "KFI*Gamu"},
                                {"others", "KFI*Gamu*Psi0"}, {"A", "none"},        {"E", "none"}};
inline const Entries CHARACTERISTIC{{"G", "1"},         {"P", "1"},    {"lead", "1"},
                                    {"others", "Psi0"}, {"A", "none"}, {"E", "none"}};
inline const Entries FREQUENT{{"G", "1"},         {"P", "1"},    {"lead", "Psi1"},
                              {"others", "Psi2"}, {"A", "none"}, {"E", "none"}};
inline const Entries QUASI_PERMANENT{{"G", "1"},         {"P", "1"},    {"lead", "Psi2"},
                                     {"others", "Psi2"}, {"A", "none"}, {"E", "none"}};
inline const Entries ACCIDENTAL{{"G", "Gama"},    {"P", "1"},         {"A", "Gama"},
                                {"lead", "Psi1"}, {"others", "Psi2"}, {"E", "none"}};
inline const Entries SEISMIC{{"G", "1"},       {"P", "1"},         {"E", "Gama"},
                             {"lead", "Psi2"}, {"others", "Psi2"}, {"A", "none"}};

/// The different keys of a list, as text, sorted.
inline std::set<std::string> keysOf(const Plan& plan)
{
    std::set<std::string> keys;
    EXPECT_TRUE(enumerate(plan, 100000, [&](const Combination& combination) {
        keys.insert(keyText(combination.key));
        return true;
    }));
    return keys;
}

inline std::vector<int> numbersOf(const Model& model)
{
    std::vector<int> numbers;
    for (const LoadCase& loadCase : model.loadCases) {
        numbers.push_back(loadCase.number);
    }
    return numbers;
}

/// Value, key and leading action of an extreme, as "54.96 = 1.24875*1+1.5*11 (Q)".
inline std::string governing(const Model& model, const LCM_Situation& situation,
                             const std::vector<double>& row,
                             Envelope::Direction direction = Envelope::Direction::Max)
{
    const Plan made = plan(model, situation);
    for (const Remark& remark : made.prepared.refused) {
        ADD_FAILURE() << remark.number << " " << remark.reason;
    }
    Envelope envelope(made, numbersOf(model));
    const auto combination = envelope.combination(row.data(), direction);
    if (!combination) {
        return "none";
    }
    const Extremes extremes = *envelope.extremes(row.data());
    const double value = direction == Envelope::Direction::Max ? extremes.max.value : extremes.min.value;
    EXPECT_NEAR(envelope.value(combination->key, row.data()), value, 1e-12 * (1 + std::abs(value)));
    const std::string leading = combination->leading.empty() ? "" : " (" + combination->leading + ")";
    return decimalText(rounded(value)) + " = " + keyText(combination->key) + leading;
}

} // namespace samples
