#include "lcdata/values/situation_text.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Entries = std::vector<LCM_TextEntry>;

const std::vector<std::string> CONSTANTS{"KFI", "XSI", "F1"};

/// Each finding as "section/entry: message; cure", with the key of its entry.
std::vector<std::string> findings(const std::vector<LCM_SituationSection>& sections)
{
    std::vector<std::string> told;
    for (const LCM_SituationFinding& finding : lcm_read_situations(sections, CONSTANTS).findings) {
        const bool isEntry = finding.entry >= 0;
        const auto& section = sections[static_cast<std::size_t>(finding.section)];
        told.push_back((isEntry ? section.entries[static_cast<std::size_t>(finding.entry)].key
                                : "[" + section.name + "]") +
                       ": " + finding.message + "; " + finding.cure);
    }
    return told;
}

LCM_Situation read(const std::vector<LCM_SituationSection>& sections)
{
    EXPECT_THAT(findings(sections), IsEmpty());
    return lcm_read_situations(sections, CONSTANTS).situations.front();
}

std::string text(const std::optional<LCM_Term>& term)
{
    if (!term) {
        return "none";
    }
    std::string words;
    for (const std::string& name : term->constants) {
        words += name + "*";
    }
    for (const LCM_SituationFactor factor : term->factors) {
        words += std::string(lcm_factor(factor).key) + "*";
    }
    return words + std::to_string(term->number).substr(0, 4);
}

/// The factors of an action in a role of the first expression: "KFI*Gamu*1.00 | Gamf*1.00".
std::string factors(const LCM_Situation& situation, LCM_Role role, const std::string& action,
                    const std::vector<std::string>& present = {})
{
    const LCM_RoleEntry* entry = lcm_role_entry(situation.expressions.back(), role, action, present);
    return text(entry->unfavourable) + " | " + text(lcm_favourable_term(*entry));
}

Entries persistent(const Entries& more = {})
{
    Entries entries{{"kind", "ultimate"}, {"G", "KFI*Gamu | Gamf"},    {"P", "Gamu | Gamf"},
                    {"lead", "KFI*Gamu"}, {"others", "KFI*Gamu*Psi0"}, {"A", "none"},
                    {"E", "none"}};
    for (const LCM_TextEntry& entry : more) {
        const auto known = std::find_if(entries.begin(), entries.end(),
                                        [&](const auto& each) { return each.key == entry.key; });
        if (known == entries.end()) {
            entries.push_back(entry);
        } else {
            known->value = entry.value;
        }
    }
    return entries;
}

TEST(SituationText, ReadsThePersistentSituation)
{
    const LCM_Situation situation =
        read({{"persistent", persistent({{"clause", "6.4.3.2, 6.10"}, {"title[de]", "Ständig"}})}});
    EXPECT_EQ(situation.name, "persistent");
    EXPECT_EQ(situation.clause, "6.4.3.2, 6.10");
    EXPECT_THAT(situation.titles, ElementsAre(::testing::Pair("de", "Ständig")));
    EXPECT_EQ(factors(situation, LCM_Role::Permanent, "G"), "KFI*Gamu*1.00 | Gamf*1.00");
    EXPECT_EQ(factors(situation, LCM_Role::Others, "Q_B"), "KFI*Gamu*Psi0*1.00 | Gamf*Psi0*1.00");
    EXPECT_EQ(factors(situation, LCM_Role::Accidental, "A"), "none | none");
}

TEST(SituationText, ReadsSeveralExpressionsAndASettlementOfItsOwn)
{
    const Entries a = persistent({{"lead", "KFI*Gamu*Psi0"}});
    const Entries b = persistent({{"G", "KFI*XSI*Gamu | Gamf"}, {"G SET", "KFI*Gamu | 0"}});
    const LCM_Situation situation = read({{"persistent-ab", {{"kind", "ultimate"}}},
                                          {"persistent-ab / 6.10a", {a.begin() + 1, a.end()}},
                                          {"persistent-ab / 6.10b", {b.begin() + 1, b.end()}}});
    ASSERT_EQ(situation.expressions.size(), 2u);
    EXPECT_EQ(situation.expressions[0].name, "6.10a");
    EXPECT_EQ(factors(situation, LCM_Role::Permanent, "SET_A"), "KFI*Gamu*1.00 | 0.00");
    EXPECT_EQ(factors(situation, LCM_Role::Permanent, "G"), "KFI*XSI*Gamu*1.00 | Gamf*1.00");
}

TEST(SituationText, ReadsTheAccidentalSituation)
{
    const LCM_Situation situation = read({{"accidental", persistent({{"kind", "accidental"},
                                                                     {"G", "Gama"},
                                                                     {"P", "1"},
                                                                     {"A", "Gama"},
                                                                     {"lead", "Psi1"},
                                                                     {"lead when A_F acts", "Psi2"},
                                                                     {"others", "Psi2"}})}});
    EXPECT_EQ(factors(situation, LCM_Role::Lead, "Q", {"A"}), "Psi1*1.00 | Psi1*1.00");
    EXPECT_EQ(factors(situation, LCM_Role::Lead, "Q", {"A_F"}), "Psi2*1.00 | Psi2*1.00");
}

TEST(SituationText, ReadsTheSeismicSituationWithComponents)
{
    const LCM_Situation situation = read({{"seismic", persistent({{"kind", "seismic"},
                                                                  {"E", "Gama"},
                                                                  {"components", "1, 0.3"},
                                                                  {"may-be-none", "yes"},
                                                                  {"always", "yes"}})}});
    EXPECT_EQ(situation.firstComponent, 1);
    EXPECT_EQ(situation.otherComponents, 0.3);
    EXPECT_TRUE(situation.mayBeNone && situation.always);
}

TEST(SituationText, ReadsTheInfrequentSituationOfBridges)
{
    const LCM_Situation situation = read({{"infrequent", persistent({{"kind", "infrequent"},
                                                                     {"groups", "exclude"},
                                                                     {"lead", "Psi1s"},
                                                                     {"others", "Psi1"},
                                                                     {"at-most", "2"}})}});
    EXPECT_EQ(situation.groups, LCM_Groups::Exclude);
    EXPECT_EQ(situation.atMost, 2);
}

TEST(SituationText, ReadsTheDanishFactorsThatDependOnTheLeadingAction)
{
    const LCM_Situation situation =
        read({{"persistent", persistent({{"G", "KFI*1.00 | 0.90"},
                                         {"others S when W leads", "0"},
                                         {"others S when Q_E leads", "KFI*Gamu*0.6"},
                                         {"others S when T leads", "KFI*Gamu*0.6"},
                                         {"others W when Q_E leads", "KFI*Gamu*0.6"}})}});
    EXPECT_EQ(factors(situation, LCM_Role::Others, "S", {"W"}), "0.00 | 0.00");
    EXPECT_EQ(factors(situation, LCM_Role::Others, "S_H", {"Q_E"}), "KFI*Gamu*0.60 | Gamf*0.60");
    EXPECT_EQ(factors(situation, LCM_Role::Others, "S", {"Q_B"}), "KFI*Gamu*Psi0*1.00 | Gamf*Psi0*1.00");
    EXPECT_EQ(factors(situation, LCM_Role::Others, "W", {"T"}), "KFI*Gamu*Psi0*1.00 | Gamf*Psi0*1.00");
}

TEST(SituationText, ReadsPermanentActionsAlone)
{
    const LCM_Situation situation =
        read({{"p", persistent({{"G", "KFI*1.20 | 1.00"}, {"lead", "none"}, {"others", "none"}})}});
    EXPECT_EQ(factors(situation, LCM_Role::Lead, "Q"), "none | none");
}

TEST(SituationText, ReadsTheBelgianShortTermActions)
{
    const LCM_Situation situation =
        read({{"persistent", persistent({{"short", "S, W, T"}, {"second", "KFI*Gamu*0.3"}})}});
    EXPECT_THAT(situation.expressions[0].shortActions, ElementsAre("S", "W", "T"));
    EXPECT_EQ(factors(situation, LCM_Role::Second, "W"), "KFI*Gamu*0.30 | Gamf*0.30");
}

TEST(SituationText, ReadsSumsWithBrackets)
{
    const Entries common{{"G", "1.2"}, {"P", "1"}, {"A", "none"}, {"E", "none"}};
    const auto sum = [&](const std::string& value) {
        Entries entries = common;
        entries.push_back({"sum", value});
        return read({{"persistent", {{"kind", "ultimate"}}}, {"persistent / 2", entries}})
            .expressions[0]
            .sum.value();
    };
    EXPECT_THAT(sum("0"), IsEmpty());
    const auto two = sum("1.6*L + (0.5*LR or 0.3*S or 0.5*R)");
    ASSERT_EQ(two.size(), 2u);
    EXPECT_EQ(two[0][0].action, "L");
    EXPECT_EQ(text(two[0][0].term), "1.60");
    ASSERT_EQ(two[1].size(), 3u);
    EXPECT_EQ(two[1][1].action, "S");
    const auto three = sum("(1.6*LR or 1.0*S or 1.6*R) + (F1*L or 0.5*W)");
    EXPECT_EQ(text(three[1][0].term), "F1*1.00");
    EXPECT_EQ(sum("1.0*W + F1*L + (0.5*LR or 0.3*S or 0.5*R)").size(), 3u);
    EXPECT_EQ(sum("F1*L + 0.15*S").size(), 2u);
}

TEST(SituationText, RemovedSituationNeedsNothingElse)
{
    EXPECT_TRUE(read({{"infrequent", {{"remove", "yes"}}}}).removed);
}

TEST(SituationText, TellsEveryErrorAtOnceWithEntryAndCure)
{
    EXPECT_THAT(
        findings({{"persistent", persistent({{"kind", "ultimat"},
                                             {"lead", "1,35"},
                                             {"others", "KFI*Gamu*Psi5"},
                                             {"at-mots", "2"},
                                             {"groups", "some"}})}}),
        ElementsAre(
            "kind: 'ultimat' is not known here; write ultimate",
            "lead: '1,35' is no number; write a point: a comma separates numbers and needs a blank behind it",
            "others: 'Psi5' is neither a factor nor a constant of [COMBINATIONS]; write Psi0",
            "at-mots: entry 'at-mots' is not known; write at-most",
            "groups: 'some' is not known here; write one of: together, exclude, apart"));
}

/// A situation with one entry that is wrong, and what is told of it.
struct Wrong
{
    LCM_TextEntry entry;
    std::string told;
};

class WrongEntry : public ::testing::TestWithParam<Wrong>
{
};

TEST_P(WrongEntry, IsToldWithACure)
{
    EXPECT_THAT(findings({{"s", persistent({GetParam().entry})}}),
                ElementsAre(GetParam().entry.key + ": " + GetParam().told));
}

INSTANTIATE_TEST_SUITE_P(
    Entries, WrongEntry,
    ::testing::Values(
        Wrong{{"G", "KFI*"}, "the entry ends too early; write a number or a name"},
        Wrong{{"G", ""}, "the entry ends too early; write a number or a name"},
        Wrong{{"G", "KFI Gamu"}, "'Gamu' is too much here; end the entry before it, or join it by *"},
        Wrong{{"G", "1.2Gamu"}, "a sign is missing behind '1.2'; write 1.2*G..."},
        Wrong{{"G", "-1"}, "'-' has no meaning here; a term is a product of numbers and names, joined by *"},
        Wrong{{"G", "1.2.3"}, "'1.2.3' is no number; write digits with one point, such as 1.35"},
        Wrong{{"G", "1 | 2 | 3"}, "'|' is too much here; end the entry before it, or join it by *"},
        Wrong{{"at-most", "0"}, "'0' is no number of actions; write a whole number from 1, such as 2"},
        Wrong{{"at-most", "1.5"}, "'1.5' is no number of actions; write a whole number from 1, such as 2"},
        Wrong{{"components", "0.3, 1"},
              "'0.3, 1' is no pair of components; write the greater factor first, such as 1, 0.3"},
        Wrong{{"components", "1"},
              "'1' is no pair of components; write the greater factor first, such as 1, 0.3"},
        Wrong{{"always", "ja"}, "'ja' is not known here; write one of: yes, no"},
        Wrong{{"others S when W acts", "0"},
              "the words behind 'others' can't be read; write 'lead NAME', 'others NAME when NAME leads' or "
              "'lead when NAME acts'"},
        Wrong{{"G when Q leads", "1"},
              "the words behind 'G' can't be read; write 'lead NAME', 'others NAME when NAME leads' or 'lead "
              "when NAME acts'"}));

TEST(SituationText, TellsWrongSums)
{
    const auto told = [](const std::string& sum) {
        return findings(
            {{"s",
              {{"kind", "ultimate"}, {"G", "1"}, {"P", "1"}, {"sum", sum}, {"A", "none"}, {"E", "none"}}}});
    };
    EXPECT_THAT(
        told("1.6"),
        ElementsAre(
            "sum: a term of the sum names no action; write the factor and the action, such as 1.6*L"));
    EXPECT_THAT(told("1.6*L or S"),
                ElementsAre("sum: 'or' stands outside a bracket; put the alternatives between ( and )"));
    EXPECT_THAT(
        told("(1.6*L or S"),
        ElementsAre(
            "sum: a bracket isn't closed; join the alternatives by 'or' and close the bracket with )"));
    EXPECT_THAT(told("1.6*L*S"), ElementsAre(::testing::StartsWith("sum: 'S' is neither")));
}

TEST(SituationText, TellsWhatIsMissingOrTooMuch)
{
    Entries incomplete = persistent();
    incomplete.erase(incomplete.begin() + 5); // A
    EXPECT_THAT(findings({{"s", incomplete}}),
                ElementsAre("[s]: 'A' is missing; write 'A = none' if nothing of it acts"));
    EXPECT_THAT(findings({{"s", persistent({{"sum", "0"}})}}),
                ElementsAre("[s]: 'lead' stands beside 'sum'; leave one of them out",
                            "[s]: 'others' stands beside 'sum'; leave one of them out"));
    EXPECT_THAT(findings({{"s", persistent({{"short", "S"}})}}),
                ElementsAre("[s]: 'short' and 'second' go together; state both, or none of them"));
    EXPECT_THAT(findings({{"s", {{"clause", "1"}}}}),
                ElementsAre("[s]: 'kind' is missing; write 'kind = ultimate' or another kind",
                            "[s]: the situation has no expression; state G, P, lead, others, A and E"));
    EXPECT_THAT(findings({{"s", persistent()}, {"s", persistent()}}),
                ElementsAre("[s]: 's' stands twice; give each section a name of its own"));
    Entries twice = persistent();
    twice.push_back({"G", "1"});
    EXPECT_THAT(findings({{"s", twice}}),
                ElementsAre("G: 'G' stands twice in this section; leave one of them out"));
    EXPECT_THAT(findings({{"s / a", persistent()}, {"s", {{"kind", "ultimate"}}}}),
                ElementsAre("kind: 'kind' belongs to the whole situation; write it in [SITUATION s]"));
}

} // namespace
