#include "lcdata/values/factors.h"

#include <gmock/gmock.h>

#include "lcdata/factor_marks.h"
#include "lcdata/values/packing.h"
#include "support/record_layout.h"

using mrl::test::FACTOR_PLACES;
using mrl::test::FactorPlace;
using mrl::test::Half;

namespace {

const LCM_Factor& factorOf(const FactorPlace& place)
{
    const LCM_Factor* factor = lcm_factor_of_action_column(place.column);
    EXPECT_NE(factor, nullptr) << place.key;
    return *factor;
}

} // namespace

TEST(Factors, StandWhereTheLayoutOfTheRecordsHasThem)
{
    ASSERT_EQ(LCM_FACTORS.size(), FACTOR_PLACES.size());
    for (const FactorPlace& place : FACTOR_PLACES) {
        const LCM_Factor& factor = factorOf(place);
        EXPECT_STREQ(factor.key, place.key);
        EXPECT_EQ(lcm_factor_of_load_case_column(place.column), &factor);
        tagCDB_LC_ACT action{};
        mrl::test::putFloatAt(action, place.actionByte, 0.5f);
        EXPECT_EQ(lcm_stored_factor(action, factor), 0.5f) << place.key;
        tagCDB_LC_CTRL loadCase{};
        mrl::test::putFloatAt(loadCase, place.loadCaseByte, 0.5f);
        EXPECT_EQ(loadCase.*factor.loadCaseField, 0.5f) << place.key;
    }
}

TEST(Factors, ArePackedAsTheirFieldsAre)
{
    for (const FactorPlace& place : FACTOR_PLACES) {
        const LCM_Factor& factor = factorOf(place);
        const Half half = factor.packing == LCM_FactorPacking::Alone  ? Half::Whole
                          : factor.packing == LCM_FactorPacking::Main ? Half::Main
                                                                      : Half::Minor;
        EXPECT_EQ(half, place.half) << place.key;
    }
}

TEST(Factors, TwoOfAPairAreEachOthersPartner)
{
    using Id = LCM_FactorId;
    const auto partner = [](Id id) { return lcm_partner_of(lcm_factor(id)); };
    EXPECT_EQ(partner(Id::Gamu), &lcm_factor(Id::Gama));
    EXPECT_EQ(partner(Id::Gama), &lcm_factor(Id::Gamu));
    EXPECT_EQ(partner(Id::Psi1), &lcm_factor(Id::Psi1s));
    EXPECT_EQ(partner(Id::Psi1s), &lcm_factor(Id::Psi1));
    for (const Id alone : {Id::Gamf, Id::Psi0, Id::Psi2}) {
        EXPECT_EQ(partner(alone), nullptr);
    }
}

TEST(Factors, NoOtherColumnIsOne)
{
    for (const int column : {0, 100, 103, 111, 112, 113, -1}) {
        EXPECT_EQ(lcm_factor_of_action_column(column), nullptr) << column;
        EXPECT_EQ(lcm_factor_of_load_case_column(column), nullptr) << column;
    }
}

TEST(Factors, ThreeAreSafetyFactorsAndGamaIsTheAccidentalOne)
{
    std::vector<std::string> safety;
    for (const LCM_Factor& factor : LCM_FACTORS) {
        if (lcm_is_safety(factor.kind)) {
            safety.emplace_back(factor.key);
        }
    }
    EXPECT_THAT(safety, testing::ElementsAre("Gamu", "Gamf", "Gama"));
    EXPECT_EQ(lcm_factor(LCM_FactorId::Gama).kind, LCM_FactorKind::Accidental);
}

TEST(Factors, HaveTheOptionAndTheLabelThatTheirNamesSay)
{
    EXPECT_EQ(lcm_factor_option(lcm_factor(LCM_FactorId::Psi1s)), "--psi1s");
    EXPECT_EQ(lcm_label_key("Psi1s"), "TXT_PSI1S");
    EXPECT_EQ(lcm_label_key("gamu"), "TXT_GAMU");
}

TEST(Factors, OnlyGamaIsShownOtherwiseThanItIsStored)
{
    tagCDB_LC_ACT action{};
    for (const LCM_Factor& factor : LCM_FACTORS) {
        const bool isGama = factor.id == LCM_FactorId::Gama;
        action.*factor.actionField = 0.0f;
        EXPECT_EQ(lcm_shown_factor(action, factor), isGama ? 1.0f : 0.0f) << factor.key;
        action.*factor.actionField = 0.001f;
        EXPECT_EQ(lcm_shown_factor(action, factor), isGama ? 0.0f : 0.001f) << factor.key;
        EXPECT_EQ(lcm_factor_to_store(factor, 0.0f), isGama ? 0.001f : 0.0f) << factor.key;
        EXPECT_EQ(lcm_factor_to_store(factor, 0.7f), 0.7f) << factor.key;
    }
}

TEST(FactorMarks, EachFactorHasTheBooleanOfItsName)
{
    // The order of the booleans in the class that other modules see.
    const std::vector<std::string> names{"Gama", "Gamu", "Gamf", "Psi0", "Psi1", "Psi1s", "Psi2"};
    for (const LCM_Factor& factor : LCM_FACTORS) {
        MRL_LC_Action_Info info;
        info.*lcm_mark_of(factor.id) = true;
        bool bytes[7] = {};
        std::memcpy(bytes, &info, sizeof bytes);
        for (std::size_t i = 0; i < names.size(); ++i) {
            EXPECT_EQ(bytes[i], names[i] == factor.key) << factor.key << ' ' << i;
        }
        EXPECT_TRUE(lcm_has_factor(info, factor));
    }
}
