#include "rules/load_case_row.h"

#include <gmock/gmock.h>

#include <cmath>

#include "lcdata/values/packing.h"
#include "tests/support/action_builder.h"
#include "tests/support/bytes.h"
#include "tests/support/load_case_builder.h"
#include "tests/support/load_case_setup.h"
#include "tests/support/record_layout.h"

namespace {

using namespace mrl::test;

LCM_LoadCaseFactors cells(float gamu, float gama, float psi1 = 0.0f, float psi1s = 0.0f)
{
    LCM_LoadCaseFactors result;
    result[LCM_FactorId::Gamu] = gamu;
    result[LCM_FactorId::Gama] = gama;
    result[LCM_FactorId::Psi1] = psi1;
    result[LCM_FactorId::Psi1s] = psi1s;
    return result;
}

tagCDB_LC_CTRL stored(const LCM_LoadCaseFactors& row, const LCM_LoadCaseSetup& columns = setupOfAllFactors())
{
    tagCDB_LC_CTRL record{};
    lcm_store_factors(row, columns, record);
    return record;
}

// The field of Gamu and Gama. Worked out step by step: the main value rounded to three decimals in double and
// turned into a float, then the minor value times 0.0001 (double, turned into a float) added in single
// precision.
//   1.35 and 1.0:   trunc(1350.0000238 + 0.5) = 1350 -> 1.35f = 3FACCCCD (step 2^-23 = 1.19e-7);
//                   1e-4 / 1.19e-7 = 838.86 steps -> + 839 = 0x347 -> 3FACD014
//   1.35 and 0:     0 is stored as 0.001; 1e-7 / 1.19e-7 = 0.84 steps -> + 1 -> 3FACCCCE
//   0 and 1.0:      just 1e-4f = 38D1B717
//   -1.0 and 1.0:   trunc(-1000 + 0.5) = -999 -> -0.999f = BF7FBE77 (step 2^-24); 1e-4 is 1677.7 steps
//                   towards zero: BF7FBE77 - 0x68E = BF7FB7E9
//   1.3506:         trunc(1351.1) = 1351 -> 1.351; 1.3504: trunc(1350.9) = 1350 -> 1.35
//   1.2345 and 0.7: trunc(1235.0) = 1235 -> 1.235f = 3F9E147B; 7e-5 / 1.19e-7 = 587.2 -> + 0x24B
TEST(LoadcasePacking, SafetyPairHasTheBitsWorkedOutByHand)
{
    EXPECT_EQ(bits(stored(cells(1.35f, 1.0f)).gamu), 0x3FACD014u);
    EXPECT_EQ(bits(stored(cells(1.35f, 0.0f)).gamu), 0x3FACCCCEu);
    EXPECT_EQ(bits(stored(cells(0.0f, 1.0f)).gamu), 0x38D1B717u);
    EXPECT_EQ(bits(stored(cells(0.0f, 0.0f)).gamu), 0x33D6BF96u);
    EXPECT_EQ(bits(stored(cells(1.0f, 1.0f)).gamu), 0x3F800347u);
    EXPECT_EQ(bits(stored(cells(-1.0f, 1.0f)).gamu), 0xBF7FB7E9u);
    EXPECT_EQ(bits(stored(cells(1.35f, -0.5f)).gamu), 0x3FACCB2Au);
    EXPECT_EQ(bits(stored(cells(1.3506f, 1.0f)).gamu), 0x3FACF0D8u);
    EXPECT_EQ(bits(stored(cells(1.3504f, 1.0f)).gamu), 0x3FACD014u);
    EXPECT_EQ(bits(stored(cells(1.2345f, 0.7f)).gamu), 0x3F9E16C6u);
    EXPECT_EQ(bits(stored(cells(1.5f, 1.35f)).gamu), 0x3FC0046Cu);
    EXPECT_EQ(bits(stored(cells(1.0e6f, 1.0f)).gamu), 0x49742400u); // the minor value is below half a step
}

TEST(LoadcasePacking, EitherMateUndefinedMakesTheSafetyPairUndefined)
{
    EXPECT_EQ(bits(stored(cells(LC_UNDEFINED, 1.0f)).gamu), 0xC7C34F80u);
    EXPECT_EQ(bits(stored(cells(1.35f, LC_UNDEFINED)).gamu), 0xC7C34F80u);
    EXPECT_EQ(bits(stored(cells(LC_UNDEFINED, LC_UNDEFINED)).gamu), 0xC7C34F80u);
}

// 0.5 and 0.9: 3F000000, step 2^-24 = 5.96e-8; 9e-5 / 5.96e-8 = 1509.9 -> + 0x5E6
// 0.2 and 0.2: 3E4CCCCD, step 2^-26 = 1.49e-8; 2e-5 / 1.49e-8 = 1342.2 -> + 0x53E
TEST(LoadcasePacking, CombinationPairHasTheBitsWorkedOutByHandAndNoZeroRule)
{
    EXPECT_EQ(bits(stored(cells(0, 0, 0.5f, 0.9f)).psi1), 0x3F0005E6u);
    EXPECT_EQ(bits(stored(cells(0, 0, 0.2f, 0.2f)).psi1), 0x3E4CD20Bu);
    EXPECT_EQ(bits(stored(cells(0, 0, 0.7f, 0.0f)).psi1), 0x3F333333u);
    EXPECT_EQ(bits(stored(cells(0, 0, 0.0f, 0.0f)).psi1), 0u);
    EXPECT_EQ(bits(stored(cells(0, 0, LC_UNDEFINED, 0.5f)).psi1), 0xC7C34F80u);
    EXPECT_EQ(bits(stored(cells(0, 0, 0.5f, LC_UNDEFINED)).psi1), 0xC7C34F80u);
}

TEST(LoadcasePacking, FactorWithoutAColumnIsZero)
{
    LCM_LoadCaseFactors row;
    row.fill(0.5f);
    LCM_LoadCaseSetup none = setupOfAllFactors();
    none.factorColumns.fill(false);
    EXPECT_TRUE(sameBytes(stored(row, none), tagCDB_LC_CTRL{}));

    LCM_LoadCaseSetup withoutMain = setupOfAllFactors();
    withoutMain.factorColumns[LCM_FactorId::Gamu] = false;
    EXPECT_EQ(bits(stored(row, withoutMain).gamu), bits(0.5e-4f));
}

TEST(LoadcaseRow, RecordWithAnActionHoldsUndefinedFactorsOnly)
{
    for (const int word : {70, codeOf("G"), codeOf("gone")}) {
        tagCDB_LC_CTRL record{};
        record.action = word;
        lcm_store_factors(cells(1.35f, 1.0f, 0.5f, 0.9f), setupOfAllFactors(), record);
        EXPECT_TRUE(sameBytes(record, [&] {
            tagCDB_LC_CTRL expected = following(word);
            expected.factor = 0.0f;
            return expected;
        }()));
    }
}

TEST(LoadcaseRow, AccidentalFactorOfZeroComesBackAsTwoThousandths)
{
    const tagCDB_LC_CTRL record = stored(cells(1.35f, 0.0f, 0.7f, 0.0f));
    const LCM_LoadCaseFactors shown = lcm_shown_factors(record, nullptr);
    EXPECT_FLOAT_EQ(shown[LCM_FactorId::Gamu], 1.35f);
    EXPECT_FLOAT_EQ(shown[LCM_FactorId::Gama], 0.002f);
    EXPECT_EQ(shown[LCM_FactorId::Psi1s], 0.0f);
}

TEST(StoredFactors, OfAPairThatFollowsTheActionAreBothUndefined)
{
    tagCDB_LC_CTRL record{};
    record.gamu = LC_UNDEFINED;
    record.psi1 = lcm_pack_pair(0.5f, 0.8f);
    record.gamf = 0.9f;
    const LCM_LoadCaseFactors factors = lcm_stored_factors(record);
    EXPECT_EQ(factors[LCM_FactorId::Gamu], LC_UNDEFINED);
    EXPECT_EQ(factors[LCM_FactorId::Gama], LC_UNDEFINED);
    EXPECT_EQ(factors[LCM_FactorId::Psi1], 0.5f);
    EXPECT_EQ(factors[LCM_FactorId::Psi1s], 0.8f);
    EXPECT_EQ(factors[LCM_FactorId::Gamf], 0.9f);
    EXPECT_EQ(factors[LCM_FactorId::Psi2], 0.0f);
}

TEST(LoadcaseRow, EveryFactorHasItsPlaceInTheRecordBothWays)
{
    for (const mrl::test::FactorPlace& place : mrl::test::FACTOR_PLACES) {
        // The minor one of a pair stands in the field as its ten-thousandth.
        const float field = place.half == mrl::test::Half::Minor ? 0.5e-4f : 0.5f;
        tagCDB_LC_CTRL record = standalone();
        mrl::test::putFloatAt(record, place.loadCaseByte, field);
        LCM_LoadCaseFactors factors = lcm_shown_factors(record, nullptr);
        EXPECT_EQ(factors[lcm_factor_of_load_case_column(place.column)->id], 0.5f) << place.key;
        EXPECT_FLOAT_EQ(mrl::test::floatAt(stored(factors), place.loadCaseByte), field) << place.key;
    }
}

TEST(LoadcaseRow, ShowsTheActionsFactorsAndNotTheRecords)
{
    tagCDB_LC_CTRL record = following(codeOf("G"));
    record.gamu = 9.0f;
    const tagCDB_LC_ACT g =
        bareAction("G").gamu(1.35f).gamf(1.0f).gama(1.1f).psi0(0.7f).psi1(0.5f).psi2(0.3f).psi1s(0.9f);
    const LCM_LoadCaseFactors shown = lcm_shown_factors(record, &g);
    EXPECT_EQ(shown[LCM_FactorId::Gamu], 1.35f);
    EXPECT_EQ(shown[LCM_FactorId::Gamf], 1.0f);
    EXPECT_EQ(shown[LCM_FactorId::Gama], 1.1f);
    EXPECT_EQ(shown[LCM_FactorId::Psi0], 0.7f);
    EXPECT_EQ(shown[LCM_FactorId::Psi1], 0.5f);
    EXPECT_EQ(shown[LCM_FactorId::Psi2], 0.3f);
    EXPECT_EQ(shown[LCM_FactorId::Psi1s], 0.9f);
}

TEST(LoadcaseRow, ImperfectionAndMissingActionShowZeros)
{
    const tagCDB_LC_ACT g = bareAction("G").factors(1.0f);
    for (const auto& shown :
         {lcm_shown_factors(following(70), &g), lcm_shown_factors(following(codeOf("X")), nullptr)}) {
        for (const LCM_Factor& factor : LCM_FACTORS) {
            EXPECT_EQ(shown[factor.id], 0.0f) << factor.key;
        }
    }
}

TEST(LoadcaseRow, UndefinedFactorsOfALoadCaseWithoutActionSurviveFillAndRead)
{
    tagCDB_LC_CTRL record = standalone();
    record.gamu = record.gamf = record.psi0 = record.psi1 = record.psi2 = LC_UNDEFINED;
    const LCM_LoadCaseRow row = lcm_row_of_record(1, record, nullptr, setupOfAllFactors());
    EXPECT_TRUE(sameBytes(lcm_record_of_row(row, setupOfAllFactors()), record));
}

struct DeadWeightCase
{
    int gravity;
    int systemClass;
    bool box;
    float expected[3];
};

class LoadcaseDeadWeight : public testing::TestWithParam<DeadWeightCase>
{
};

// Cells: amount 2 in the scalar column, 3, -4 and 5 in the components. Per gravity, class and box: what is
// stored. The box off: only the amount along gravity. The box on: the components that the class shows, the
// one along gravity with gravity's sign. Then the class takes away what it lacks.
TEST_P(LoadcaseDeadWeight, IsStoredBySignClassAndBox)
{
    const auto& param = GetParam();
    tagCDB_LC_CTRL record{};
    lcm_store_dead_weight({2.0f, 3.0f, -4.0f, 5.0f},
                          setupOfAllFactors(param.gravity, param.systemClass, param.box), record);
    EXPECT_EQ(record.dlx, param.expected[0]);
    EXPECT_EQ(record.dly, param.expected[1]);
    EXPECT_EQ(record.dlz, param.expected[2]);
}

INSTANTIATE_TEST_SUITE_P(
    AllDirections, LoadcaseDeadWeight,
    testing::Values(DeadWeightCase{1, 0, false, {2, 0, 0}}, DeadWeightCase{-1, 0, false, {-2, 0, 0}},
                    DeadWeightCase{2, 0, false, {0, 2, 0}}, DeadWeightCase{-2, 0, false, {0, -2, 0}},
                    DeadWeightCase{3, 0, false, {0, 0, 2}}, DeadWeightCase{-3, 0, false, {0, 0, -2}},
                    DeadWeightCase{1, 0, true, {3, -4, 5}}, DeadWeightCase{-1, 0, true, {-3, -4, 5}},
                    DeadWeightCase{2, 0, true, {3, 4, 5}}, DeadWeightCase{-2, 0, true, {3, -4, 5}},
                    DeadWeightCase{3, 0, true, {3, -4, 5}}, DeadWeightCase{-3, 0, true, {3, -4, -5}},
                    DeadWeightCase{1, 1, false, {2, 0, 0}}, DeadWeightCase{-1, 1, false, {-2, 0, 0}},
                    DeadWeightCase{2, 1, false, {0, 2, 0}}, DeadWeightCase{-2, 1, false, {0, -2, 0}},
                    DeadWeightCase{3, 1, false, {0, 0, 0}}, DeadWeightCase{-3, 1, false, {0, 0, 0}},
                    DeadWeightCase{1, 1, true, {3, -4, 0}}, DeadWeightCase{-1, 1, true, {-3, -4, 0}},
                    DeadWeightCase{2, 1, true, {3, 4, 0}}, DeadWeightCase{-2, 1, true, {3, -4, 0}},
                    DeadWeightCase{3, 1, true, {3, -4, 0}}, DeadWeightCase{-3, 1, true, {3, -4, 0}},
                    DeadWeightCase{1, 3, false, {0, 0, 0}}, DeadWeightCase{-1, 3, false, {0, 0, 0}},
                    DeadWeightCase{2, 3, false, {0, 0, 0}}, DeadWeightCase{-2, 3, false, {0, 0, 0}},
                    DeadWeightCase{3, 3, false, {0, 0, 2}}, DeadWeightCase{-3, 3, false, {0, 0, -2}},
                    DeadWeightCase{1, 3, true, {0, 0, 5}}, DeadWeightCase{-1, 3, true, {0, 0, 5}},
                    DeadWeightCase{2, 3, true, {0, 0, 5}}, DeadWeightCase{-2, 3, true, {0, 0, 5}},
                    DeadWeightCase{3, 3, true, {0, 0, 5}}, DeadWeightCase{-3, 3, true, {0, 0, -5}},
                    // a direction that names no axis
                    DeadWeightCase{0, 0, false, {0, 0, 0}}, DeadWeightCase{4, 0, false, {0, 0, 0}},
                    DeadWeightCase{-4, 0, true, {3, -4, 5}},
                    DeadWeightCase{std::numeric_limits<int>::min(), 0, true, {3, -4, 5}}));

TEST(LoadcaseDeadWeight, NegativeInputMeansItsAmount)
{
    tagCDB_LC_CTRL record{};
    lcm_store_dead_weight({-1.0f, 0, 0, 0}, setupOfAllFactors(-3), record);
    EXPECT_EQ(record.dlz, -1.0f);
}

TEST(LoadcaseDeadWeight, ZeroAlongGravityIsStoredAsPlainZero)
{
    tagCDB_LC_CTRL record{};
    lcm_store_dead_weight({}, setupOfAllFactors(-3), record);
    EXPECT_EQ(bits(record.dlz), 0u);
    lcm_store_dead_weight({}, setupOfAllFactors(-3, 0, true), record);
    EXPECT_EQ(bits(record.dlz), 0u);
}

TEST(LoadcaseDeadWeight, ComponentAlongGravityIsShownAsAnAmount)
{
    tagCDB_LC_CTRL record{};
    record.dlx = -1.0f;
    record.dly = -2.0f;
    record.dlz = -3.0f;
    const auto x = lcm_shown_dead_weight(record, -1);
    EXPECT_THAT((std::array{x.factor, x.dlx, x.dly, x.dlz}), testing::ElementsAre(1, 1, -2, -3));
    const auto y = lcm_shown_dead_weight(record, 2);
    EXPECT_THAT((std::array{y.factor, y.dlx, y.dly, y.dlz}), testing::ElementsAre(2, -1, 2, -3));
    const auto z = lcm_shown_dead_weight(record, -3);
    EXPECT_THAT((std::array{z.factor, z.dlx, z.dly, z.dlz}), testing::ElementsAre(3, -1, -2, 3));
    const auto noAxis = lcm_shown_dead_weight(record, 7);
    EXPECT_THAT((std::array{noAxis.factor, noAxis.dlx, noAxis.dly, noAxis.dlz}),
                testing::ElementsAre(-3, -1, -2, -3));
}

TEST(LoadcaseDeadWeight, SystemClassesOfferTheirComponents)
{
    EXPECT_EQ(lcm_shown_components(0), (std::array{true, true, true}));
    EXPECT_EQ(lcm_shown_components(1), (std::array{true, true, false}));
    EXPECT_EQ(lcm_shown_components(3), (std::array{false, false, true}));
}

TEST(LoadcaseRow, RebuiltRecordStartsFromZerosAndHasFactorOne)
{
    LCM_LoadCaseRow row;
    row.number = 7;
    row.title = "Wind";
    row.action = codeOf("W");
    tagCDB_LC_CTRL expected = following(codeOf("W"));
    expected.title[0] = 0x00690057u; // "Wi", the earlier unit in the low half
    expected.title[1] = 0x0064006Eu; // "nd"
    EXPECT_TRUE(sameBytes(lcm_record_of_row(row, setupOfAllFactors()), expected));
}

TEST(LoadcaseRow, ChangeOfActionKeepsTitleAndDeadWeightAndDropsFactors)
{
    tagCDB_LC_CTRL record = standalone();
    record.gamf = 1.1f;
    record.psi0 = 0.4f;
    record.dlz = -1.0f;
    record.title[0] = 0x41;
    const tagCDB_LC_CTRL bound = lcm_record_with_action(record, codeOf("Q"));
    tagCDB_LC_CTRL expected = following(codeOf("Q"));
    expected.dlz = -1.0f;
    expected.title[0] = 0x41;
    EXPECT_TRUE(sameBytes(bound, expected));

    for (const int word : {0, 70}) {
        expected.action = word;
        expected.gamu = expected.gamf = expected.psi0 = expected.psi1 = expected.psi2 = 0.0f;
        EXPECT_TRUE(sameBytes(lcm_record_with_action(record, word), expected)) << word;
    }
}

TEST(LoadcaseRow, CodesChangeCaseByteByByte)
{
    EXPECT_EQ(lcm_lower_code(codeOf("Q_1")), codeOf("q_1"));
    EXPECT_EQ(lcm_lower_code(codeOf("AB_C")), codeOf("ab_c"));
    EXPECT_EQ(lcm_upper_code(codeOf("aBc")), codeOf("ABC"));
    EXPECT_EQ(lcm_lower_code(0x00000051), codeOf("q")); // ends at the zero byte
    EXPECT_EQ(lcm_lower_code(0), 0x20202020);
    EXPECT_EQ(lcm_upper_code(0x51000000), 0x20202020);
}

TEST(LoadcaseRow, MarkerNamesTheCodeWithItsTrailingBlanks)
{
    EXPECT_EQ(lcm_missing_action_text(codeOf("X")), "*** Action X    is missing ***");
    EXPECT_EQ(lcm_missing_action_text(codeOf("Ab_1")), "*** Action Ab_1 is missing ***");
}

} // namespace
