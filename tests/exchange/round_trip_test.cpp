// Random projects through a file into an empty project.
#include <random>

#include "exchange/apply_plan.h"
#include "exchange/record_cells.h"
#include "exchange/sheet_walk.h"
#include "lcdata/values/packing.h"
#include "tests/exchange/exchange_fixture.h"
#include "tests/support/bytes.h"
#include "tests/support/project_test.h"

using namespace mrl::test;
using mrl::exchange::Outcome;

namespace {

constexpr int PROJECTS = 1000;

struct Way
{
    std::string format;
    FormatOptions options;
};

std::ostream& operator<<(std::ostream& out, const Way& way)
{
    return out << way.format << way.options.encoding;
}

QString randomTitle(std::mt19937& random)
{
    const QString letters = QStringLiteral("aZ09 =+-@'\"\n\r\t,;.ψÄ€");
    QString title;
    for (unsigned long i = 0, length = random() % 34; i < length; ++i) {
        title += letters[static_cast<int>(random() % static_cast<unsigned long>(letters.size()))];
    }
    return title;
}

float randomPart(std::mt19937& random) { return static_cast<float>(random() % 1001) / 1000.0f; }

/// An action that breaks no rule: Psi2 up to Psi1 up to Psi1s up to 1, Gamf up to Gamu.
tagCDB_LC_ACT randomAction(std::mt19937& random, const QString& name)
{
    const float psi2 = randomPart(random);
    const float psi1 = std::max(psi2, randomPart(random));
    const float gamf = randomPart(random);
    return bareAction(name)
        .partition(random() % 2 == 0 ? 0x32 : 0x10)
        .title(randomTitle(random))
        .gamu(1.0f + gamf)
        .gamf(gamf)
        .gama(1.0f + randomPart(random))
        .psi0(randomPart(random))
        .psi1(psi1)
        .psi2(psi2)
        .psi1s(std::max(psi1, randomPart(random)));
}

/// A pair as the dialog stores it that shows it: packing keeps the minor one in steps of 0.002.
float randomPair(std::mt19937& random)
{
    const LCM_FactorPair shown = lcm_unpack_pair(lcm_pack_pair(randomPart(random), randomPart(random)));
    return lcm_pack_pair(shown.main, shown.minor);
}

tagCDB_LC_CTRL randomLoadCase(std::mt19937& random)
{
    const auto weight = [&] { return static_cast<float>(random()) * 1e-7f - 200.0f; };
    LoadCaseBuilder builder = random() % 3 == 0 ? standalone() : following(random() % 2 == 0 ? "G" : "Q");
    builder.title(randomTitle(random)).deadWeight(weight(), weight(), weight()).factor(randomPart(random));
    tagCDB_LC_CTRL record = builder;
    if (record.action == 0) {
        record.gamu = randomPair(random);
        record.psi1 = randomPair(random);
        record.gamf = randomPart(random);
        record.psi0 = randomPart(random);
    }
    return record;
}

void fill(const MemoryProject& project, std::mt19937& random)
{
    for (const char* name : {"G", "Q", "Q_1", "AB"}) {
        project.putAction(randomAction(random, name));
    }
    for (int number = 1, count = static_cast<int>(random() % 8); number <= count; ++number) {
        project.putLoadCase(number * number, randomLoadCase(random));
    }
}

std::vector<std::string> cellsOf(const MemoryProject& project, Sheet sheet)
{
    std::vector<std::string> rows;
    for (mrl::exchange::SheetWalk walk(project.db(), sheet); walk.next();) {
        rows.push_back(joined(walk.cells()));
    }
    return rows;
}

class RoundTrip : public testing::TestWithParam<Way>
{
  protected:
    /// Takes a sheet of one project into another through a file.
    static void carry(const MemoryProject& from, const MemoryProject& to, Sheet sheet)
    {
        // The decimal sign is told: all numbers of a file may be like 1,234.
        FormatOptions options = GetParam().options;
        const std::string file = written(GetParam().format.c_str(), from.db(), {sheet}, options);
        options.sheet = sheet;
        const auto state = mrl::exchange::stateOf(to.db());
        const auto plan =
            mrl::exchange::planOf(state, readAs(GetParam().format.c_str(), file, options).tables);
        EXPECT_EQ(mrl::exchange::apply(plan, state, to.db()), nullptr);
        for (const auto& row : plan.rows) {
            EXPECT_EQ(row.outcome, Outcome::Added);
            EXPECT_TRUE(row.reasons.empty()) << row.reasons[0].message.english();
            EXPECT_TRUE(row.notes.empty()) << row.notes[0].english();
        }
    }
};

TEST_P(RoundTrip, BringsEveryFieldOfRandomProjectsBackBitForBit)
{
    std::mt19937 random(20250611);
    const MemoryProject from(SAMPLE_CODE);
    const MemoryProject to(SAMPLE_CODE);
    for (int i = 0; i < PROJECTS && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        // Their end takes the random project back.
        const mrl::cdb::Transaction ofFrom(from.db());
        const mrl::cdb::Transaction ofTo(to.db());
        fill(from, random);
        for (const Sheet sheet : {Sheet::Actions, Sheet::LoadCases}) {
            carry(from, to, sheet);
            EXPECT_EQ(cellsOf(to, sheet), cellsOf(from, sheet));
        }
        ASSERT_EQ(to.storedNumbers(), from.storedNumbers());
        for (const int number : from.storedNumbers()) {
            EXPECT_TRUE(sameBytes(to.storedLoadCase(number), from.storedLoadCase(number))) << number;
        }
        for (const auto& [name, action] : from.storedActions()) {
            EXPECT_TRUE(sameBytes(to.storedActions().at(name), action)) << name;
        }
    }
}

/// Every format that loses nothing, and another way of writing text.
std::vector<Way> ways()
{
    std::vector<Way> ways{{"csv", told(';', ',', "UTF-16")}};
    for (const std::string& name : losslessFormats()) {
        ways.push_back({name, told(0, name == "tsv" ? '.' : '\0')});
    }
    return ways;
}

INSTANTIATE_TEST_SUITE_P(Formats, RoundTrip, testing::ValuesIn(ways()));

} // namespace
