// Through the real table and the real database: what a person didn't touch comes back as it was.
#include "tests/actions/actions_fixture.h"

#include <random>

#include "hostlib/data/designcode/designcode.h"
#include "rules/action_row.h"

using mrl::test::ActionBuilder;
using mrl::test::ActionsProject;
using mrl::test::ActionsTab;
using mrl::test::soundAction;

namespace {

/// All entries of the model by their code's text.
std::map<std::string, tagCDB_LC_ACT> modelRecords(const LCM_DataClass& model)
{
    std::map<std::string, tagCDB_LC_ACT> records;
    for (const LCM_ActionEntry* parent : model.actions) {
        if (parent->state != LCM_STATE_PLACEHOLDER) {
            records[mrl::test::codeName(parent->record).toStdString()] = parent->record;
        }
        for (const LCM_SubAction* child : parent->subActions) {
            records[mrl::test::codeName(child->record).toStdString()] = child->record;
        }
    }
    return records;
}

/// A factor as a project may hold it, `Gama` aside: small, big, negative, with many digits.
float anyFactor(std::mt19937& random)
{
    switch (random() % 5) {
    case 0:
        return static_cast<float>(random() % 300) / 100.0f;
    case 1:
        return std::ldexp(static_cast<float>(random()), -static_cast<int>(random() % 60));
    case 2:
        return -std::ldexp(static_cast<float>(random()), -static_cast<int>(random() % 60));
    case 3:
        return LC_UNDEFINED;
    default:
        return 1.0f / static_cast<float>(1 + random() % 999);
    }
}

tagCDB_LC_ACT randomAction(std::mt19937& random, int number)
{
    QString title;
    for (unsigned long i = 0, length = random() % 34; i < length; ++i) {
        title += QChar(static_cast<ushort>(' ' + random() % 0x2000));
    }
    ActionBuilder builder(QString::number(number, 36).toUpper().prepend("U"));
    builder.title(title).partition(static_cast<int>(random() % 6 * 16 + random() % 7));
    return builder.gamu(anyFactor(random))
        .gamf(anyFactor(random))
        .gama(1.0f + static_cast<float>(random() % 100) / 64.0f)
        .psi0(anyFactor(random))
        .psi1(anyFactor(random))
        .psi2(anyFactor(random))
        .psi1s(anyFactor(random));
}

/// The manager's OK on a project that nobody edited.
void accept(const ActionsProject& project)
{
    ActionsTab tab(project);
    tab.widget.save(true);
}

} // namespace

TEST(RoundTrip, EveryActionOfEveryShippedCodeComesBackFromItsRow)
{
    ASSERT_GE(mrl::designcode::list().size(), 7u);
    for (const mrl::designcode::Found& code : mrl::designcode::list()) {
        const auto project = ActionsProject::ofShippedCode(code.name);
        ActionsTab tab(*project);
        tab.widget.slot_addAllClicked();
        const auto records = modelRecords(*tab.widget.workingModel());
        EXPECT_EQ(static_cast<int>(records.size()), tab.table.rowCount()) << code.name;
        for (const auto& [name, record] : records) {
            tagCDB_LC_ACT expected = record;
            expected.gama = tab.table.getColumnNumber(ACT_COL_GAMA) < 0 ? 0.0f : lcm_shown_gama(record.gama);
            for (const LCM_Factor& factor : LCM_FACTORS) {
                if (tab.table.getColumnNumber(factor.actionColumn) < 0) {
                    expected.*factor.actionField = 0.0f; // a factor without a column isn't kept
                }
            }
            const tagCDB_LC_ACT read = tab.record(QString::fromStdString(name).trimmed());
            EXPECT_EQ(std::memcmp(&read, &expected, sizeof read), 0) << code.name << ", " << name;
        }
    }
}

TEST(RoundTrip, EveryShippedActionIsFreeOfFindings)
{
    for (const mrl::designcode::Found& code : mrl::designcode::list()) {
        const auto project = ActionsProject::ofShippedCode(code.name);
        ActionsTab tab(*project);
        tab.widget.slot_addAllClicked();
        EXPECT_TRUE(tab.widget.isValid()) << code.name;
    }
}

TEST(RoundTrip, RandomActionsAreStoredAsTheyWere)
{
    std::mt19937 random(4711);
    ActionsProject project;
    for (int i = 0; i < 300; ++i) {
        project.putAction(randomAction(random, i));
    }
    const auto before = project.storedActions();
    ActionsTab tab(project);
    // The two defaults come on top, since no stored action is one of the design code.
    ASSERT_EQ(tab.table.rowCount(), 302);
    tab.table.sortByColumn(tab.table.getColumnNumber(ACT_COL_PSI1), Qt::DescendingOrder);
    tab.widget.save(true);
    const auto after = project.storedActions();
    for (const auto& [name, record] : before) {
        ASSERT_EQ(after.count(name), 1u) << name;
        EXPECT_EQ(std::memcmp(&after.at(name), &record, sizeof record), 0) << name;
    }
}

TEST(RoundTrip, FactorWithoutAColumnIsStoredAsZero)
{
    ActionsProject project(mrl::test::replaced(mrl::test::ACTIONS_CODE, "Psi0 = 1\n", "Psi0 = 0\n"));
    project.putAction(soundAction("G").psi0(0.7f));
    accept(project);
    EXPECT_EQ(project.storedActions().at("G   ").psi0, 0.0f);
}

TEST(RoundTrip, GamaWithoutAColumnIsStoredAsAThousandth)
{
    ActionsProject project(mrl::test::replaced(mrl::test::ACTIONS_CODE, "Gama = 1\n", "Gama = 0\n"));
    project.putAction(soundAction("G").gama(1.3f));
    accept(project);
    EXPECT_EQ(project.storedActions().at("G   ").gama, 0.001f);
}

TEST(RoundTrip, StoredZeroOfGamaIsStoredAsOne)
{
    ActionsProject project;
    project.putAction(soundAction("G").gama(0.0f));
    accept(project);
    EXPECT_EQ(project.storedActions().at("G   ").gama, 1.0f);
}

TEST(RoundTrip, StoredThousandthOfGamaStays)
{
    ActionsProject project;
    project.putAction(soundAction("G").gama(0.001f));
    accept(project);
    EXPECT_EQ(project.storedActions().at("G   ").gama, 0.001f);
}

TEST(RoundTrip, TitleOfThirtyFourUnitsLosesTheLast)
{
    ActionsProject project;
    tagCDB_LC_ACT foreign = soundAction("G");
    for (std::uint32_t& word : foreign.title) {
        word = 0x00780078; // two x
    }
    project.putAction(foreign);
    accept(project);
    EXPECT_EQ(lcm_title_text(project.storedActions().at("G   ").title), QString(33, 'x'));
}

TEST(RoundTrip, SuffixOfTwoCharactersKeepsTheFirstAndMovesWithTheNextAcceptance)
{
    ActionsProject project;
    project.putAction(ActionBuilder("G_12").gamu(1.0f));
    accept(project);
    ASSERT_EQ(project.storedActions().count("G_12"), 1u);
    EXPECT_EQ(project.storedActions().at("G_12").suffix, lcm_pack_word("1"));
    accept(project);
    EXPECT_EQ(project.storedActions().count("G_12"), 0u);
    EXPECT_EQ(project.storedActions().count("G_1 "), 1u);
}

TEST(RoundTrip, UnderscoreInTheFirstPartBeginsTheSuffix)
{
    ActionsProject project;
    tagCDB_LC_ACT foreign = soundAction("G");
    lcm_pack_field("A_BC", foreign.name);
    project.putAction(foreign);
    accept(project);
    const tagCDB_LC_ACT stored = project.storedActions().at("A_BC");
    EXPECT_EQ(std::memcmp(stored.name, "A   ", 4), 0);
    EXPECT_EQ(stored.suffix, lcm_pack_word("B"));
}

TEST(RoundTrip, SuffixBehindFourCharactersIsLost)
{
    ActionsProject project;
    project.putAction(ActionBuilder("ABCD_1").gamu(1.0f));
    accept(project);
    EXPECT_EQ(project.storedActions().at("ABCD").suffix, 0);
}

TEST(RoundTrip, BlankSuffixBecomesZero)
{
    ActionsProject project;
    tagCDB_LC_ACT foreign = soundAction("G");
    foreign.suffix = 0x20202020;
    project.putAction(foreign);
    accept(project);
    EXPECT_EQ(project.storedActions().at("G   ").suffix, 0);
}

TEST(RoundTrip, NameThatIsNoUtf8GetsAKeyOfItsOwn)
{
    ActionsProject project;
    tagCDB_LC_ACT foreign = soundAction("G");
    foreign.name[0] = '\xE4'; // a Latin-1 letter
    project.putAction(foreign);
    accept(project);
    EXPECT_EQ(project.storedActions().count(std::string("\xE4   ")), 1u);
    EXPECT_EQ(project.storedActions().count(std::string("\xEF\xBF\xBD ")),
              1u); // the replacement character, three bytes
}

TEST(RoundTrip, RecordUnderAForeignKeyMovesToTheKeyOfItsName)
{
    ActionsProject project;
    project.putAction(mrl::test::codeOf("U2"), soundAction("U1"));
    accept(project);
    EXPECT_EQ(project.storedActions().count("U2  "), 0u);
    EXPECT_EQ(project.storedActions().count("U1  "), 1u);
}

TEST(RoundTrip, RecordUnderAKeyOfTheDesignCodeStandsBesideItsOwn)
{
    ActionsProject project;
    project.putAction(mrl::test::codeOf("A"), soundAction("U1"));
    accept(project);
    EXPECT_EQ(project.storedActions().count("A   "), 1u);
    EXPECT_EQ(project.storedActions().count("U1  "), 1u);
}

TEST(RoundTrip, OtherRecordsOfAnActionsKeyGoAndTheLastOfKindOneStays)
{
    ActionsProject project;
    project.putAction(soundAction("G").gamu(1.1f));
    const tagCDB_LC_ACT second = soundAction("G").gamu(1.2f);
    tagCDB_LC_ACT foreign = soundAction("G").gamu(1.3f);
    foreign.kind = 2;
    const int code = mrl::test::codeOf("G");
    project.append(14, code, second);
    project.append(14, code, foreign);
    accept(project);
    tagCDB_LC_ACT read{};
    int length = sizeof read;
    ASSERT_EQ(mrl_cdb_get(project.db(), 14, code, &read, &length, 0), CD_OK);
    EXPECT_EQ(read.gamu, 1.2f);
    EXPECT_EQ(mrl_cdb_get(project.db(), 14, code, &read, &length, 1), CD_END);
    mrl_cdb_free_ex(project.db(), 14, code);
}

TEST(RoundTrip, LoadGroupWithAnotherCategoryBecomesVariable)
{
    ActionsProject project;
    project.putAction(soundAction("G").partition(0x210));
    accept(project);
    EXPECT_EQ(project.storedActions().at("G   ").partition, 0x230);
}

TEST(RoundTrip, KeysOfOtherModulesStay)
{
    ActionsProject project;
    project.putAction(soundAction("G"));
    const int words[2] = {1, 5};
    project.put(14, 12, words);
    project.putAction(0x20202020, soundAction("G").gamu(1.1f));
    project.putAction(mrl::test::codeOf("Y1"), soundAction("G").gamu(1.2f));
    accept(project);
    const auto stored = project.storedActions();
    EXPECT_EQ(stored.size(), 4u);
    EXPECT_EQ(stored.at("    ").gamu, 1.1f);
    EXPECT_EQ(stored.at("Y1  ").gamu, 1.2f);
}
