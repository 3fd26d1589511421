#include "tests/actions/actions_fixture.h"

#include <QHeaderView>

#include <cmath>

#include "tests/support/record_layout.h"

using mrl::test::ActionBuilder;
using mrl::test::ACTIONS_CODE;
using mrl::test::ActionsProject;
using mrl::test::ActionsTab;
using mrl::test::FACTOR_PLACES;
using mrl::test::FactorPlace;
using mrl::test::floatAt;
using mrl::test::partitionWords;
using mrl::test::putFloatAt;
using mrl::test::replaced;
using mrl::test::soundAction;

namespace {

QStringList captions(const ActionsTab& tab)
{
    QStringList list;
    for (int column = 0; column < tab.table.columnCount(); ++column) {
        list << tab.table.horizontalHeaderItem(column)->text();
    }
    return list;
}

std::vector<int> columnIds(const ActionsTab& tab)
{
    std::vector<int> ids;
    for (int column = 0; column < tab.table.columnCount(); ++column) {
        ids.push_back(tab.table.getColumnId(column));
    }
    return ids;
}

std::string withoutFactors()
{
    std::string code = ACTIONS_CODE;
    for (const char* mark : {"Gamu", "Gamf", "Gama", "Psi0", "Psi1", "Psi2", "Psi1s"}) {
        code = replaced(code, std::string(mark) + " = 1\n", std::string(mark) + " = 0\n");
    }
    return code;
}

} // namespace

TEST(ActionsTable, FactorColumnsFollowTheFixedOnesInTheirOwnOrder)
{
    const ActionsProject project;
    const ActionsTab tab(project);
    EXPECT_EQ(captions(tab), QStringList({"Action", "Description", "Partition", "Superposition", "gU", "gF",
                                          "gA", "p0", "p1", "p2", "p1s"}));
    EXPECT_EQ(columnIds(tab), (std::vector<int>{100, 101, 102, 103, 104, 105, 106, 107, 108, 109, 110}));
}

TEST(ActionsTable, HeadersTellWhatTheirColumnIs)
{
    const ActionsProject project;
    const ActionsTab tab(project);
    QStringList toolTips;
    for (int column = 0; column < tab.table.columnCount(); ++column) {
        toolTips << tab.table.horizontalHeaderItem(column)->toolTip();
    }
    EXPECT_EQ(toolTips,
              QStringList({"Action", "Description", "Partition", "Handling of the loadcases",
                           "Unfavourable safety factor", "Favourable safety factor",
                           "Accidental safety factor", "Combination factor p0", "Combination factor p1",
                           "Combination factor p2", "Combination factor p1s"}));
}

TEST(ActionsTable, LaterFactorTakesTheNextFreePlace)
{
    const ActionsProject project(replaced(ACTIONS_CODE, "Psi0 = 1\n", "Psi0 = 0\n"));
    const ActionsTab tab(project);
    EXPECT_EQ(columnIds(tab), (std::vector<int>{100, 101, 102, 103, 104, 105, 106, 108, 109, 110}));
}

TEST(ActionsTable, CodeWithoutFactorsHasFourColumns)
{
    const ActionsProject project(withoutFactors());
    ActionsTab tab(project);
    EXPECT_EQ(tab.table.columnCount(), 4);
    EXPECT_FALSE(tab.widget.hasFactorColumns());
    EXPECT_TRUE(tab.widget.isValid());
}

TEST(ActionsTable, AccidentalFactorAloneDoesNotCountAsAFactorColumn)
{
    std::string code = withoutFactors();
    const ActionsProject project(replaced(code, "Gama = 0\n", "Gama = 1\n"));
    const ActionsTab tab(project);
    EXPECT_EQ(tab.table.columnCount(), 5);
    EXPECT_FALSE(tab.widget.hasFactorColumns());
}

TEST(ActionsTable, LabelNoneHidesASafetyFactorAndNoCombinationFactor)
{
    const ActionsProject project(replaced(replaced(ACTIONS_CODE, "TXT_GAMA = gA", "TXT_GAMA = none"),
                                          "TXT_PSI0 = p0", "TXT_PSI0 = none"));
    const ActionsTab tab(project);
    EXPECT_EQ(tab.table.getColumnNumber(ACT_COL_GAMA), -1);
    ASSERT_GE(tab.table.getColumnNumber(ACT_COL_PSI0), 0);
    EXPECT_TRUE(captions(tab).contains("none"));
}

TEST(ActionsTable, HiddenFactorWithALimitKeepsTheTabInvalid)
{
    const ActionsProject project(replaced(ACTIONS_CODE, "TXT_GAMU = gU", "TXT_GAMU = none"));
    ActionsTab tab(project);
    EXPECT_EQ(tab.cell("G", ACT_COL_GAMU), nullptr);
    EXPECT_FALSE(tab.isRowValid("G"));
    EXPECT_FALSE(tab.widget.isValid());
}

TEST(ActionsTable, RowsStandSortedByNameWithTheChildrenAmongThem)
{
    ActionsProject project;
    for (const char* name : {"W_1", "Q_2", "A", "U1", "G"}) {
        project.putAction(soundAction(name));
    }
    const ActionsTab tab(project);
    EXPECT_EQ(tab.names(), QStringList({"A", "G", "Q_2", "U1", "W_1"}));
}

TEST(ActionsTable, ActiveChildShowsWithoutItsFreeParent)
{
    ActionsProject project;
    project.putAction(soundAction("Q_1"));
    const ActionsTab tab(project);
    EXPECT_EQ(tab.names(), QStringList({"Q_1"}));
}

TEST(ActionsTable, ProjectWithoutActionsShowsTheTwoDefaults)
{
    const ActionsProject project;
    ActionsTab tab(project);
    EXPECT_EQ(tab.names(), QStringList({"G", "Q"}));
    EXPECT_TRUE(tab.widget.isValid());
}

TEST(ActionsTable, FillingIsNoChangeByTheUser)
{
    const ActionsProject project;
    ActionsTab tab(project, nullptr, 0, false);
    QSignalSpy count(&tab.widget, SIGNAL(signal_actionCountChanged()));
    QSignalSpy values(&tab.widget, SIGNAL(signal_actionValuesChanged(int, int)));
    tab.widget.fillTable();
    EXPECT_EQ(count.count(), 1);
    EXPECT_EQ(values.count(), 0);
    EXPECT_FALSE(tab.widget.isModified());
}

TEST(ActionsTable, RowShowsItsRecord)
{
    ActionsProject project;
    project.putAction(soundAction("Q_1").title("Offices, own").partition(0x131).gamu(1.5f).psi0(0.7f));
    const ActionsTab tab(project);
    EXPECT_EQ(tab.text(0, ACT_COL_ACTION), QStringLiteral("Q_1 "));
    EXPECT_EQ(tab.text(0, ACT_COL_DESCRIPTION), QStringLiteral("Offices, own"));
    EXPECT_EQ(tab.text(0, ACT_COL_PARTITION), QStringLiteral("Q_1 (Variable) Loadgroup 1"));
    EXPECT_EQ(tab.text(0, ACT_COL_SUPERPOSITION), QStringLiteral("COND conditional"));
    EXPECT_EQ(tab.text(0, ACT_COL_GAMU), QStringLiteral("1.50"));
    EXPECT_EQ(tab.text(0, ACT_COL_PSI0), QStringLiteral("0.70"));
    EXPECT_EQ(tab.cell(0, ACT_COL_ACTION)->data(ROLE_ACTION_CODE).toInt(), lcm_pack_word("Q_1"));
}

TEST(ActionsTable, LoadGroupWithPermShowsBoth)
{
    ActionsProject project;
    project.putAction(soundAction("Q").partition(0x130));
    const ActionsTab tab(project);
    EXPECT_EQ(tab.text(0, ACT_COL_PARTITION), QStringLiteral("Q_1 (Variable) Loadgroup 1"));
    EXPECT_EQ(tab.text(0, ACT_COL_SUPERPOSITION), QStringLiteral("PERM permanent"));
}

TEST(ActionsTable, SuperpositionSevenShowsPercAndIsReadAsEight)
{
    ActionsProject project;
    project.putAction(soundAction("Q").partition(0x37));
    ActionsTab tab(project);
    EXPECT_EQ(tab.text(0, ACT_COL_SUPERPOSITION), QStringLiteral("PERC permanent with individual factors"));
    EXPECT_EQ(tab.record("Q").partition, 0x38);
}

TEST(ActionsTable, EveryWordShowsTheBitsOfThePartitionWordAndIsReadAsThem)
{
    ActionsProject project;
    const auto words = partitionWords();
    const auto name = [](std::size_t i) { return QStringLiteral("A%1").arg(i); };
    for (std::size_t i = 0; i < words.size(); ++i) {
        project.putAction(soundAction(name(i)).partition(words[i].word));
    }
    ActionsTab tab(project);
    for (std::size_t i = 0; i < words.size(); ++i) {
        const QString partition = tab.text(name(i), ACT_COL_PARTITION);
        const QString superposition = tab.text(name(i), ACT_COL_SUPERPOSITION);
        EXPECT_TRUE(partition.startsWith(QString::fromStdString(words[i].partition) + " ("))
            << partition.toStdString();
        EXPECT_TRUE(superposition.startsWith(QString::fromStdString(words[i].superposition) + ' '))
            << superposition.toStdString();
        EXPECT_EQ(tab.record(name(i)).partition, words[i].word);
    }
}

TEST(ActionsTable, EveryFactorColumnShowsItsPlaceInTheRecordAndIsReadIntoIt)
{
    for (const FactorPlace& place : FACTOR_PLACES) {
        ActionsProject project;
        tagCDB_LC_ACT stored = soundAction("G").gama(0.25f);
        putFloatAt(stored, place.actionByte, 0.5f);
        project.putAction(stored);
        ActionsTab tab(project);
        EXPECT_EQ(tab.text("G", place.column), QStringLiteral("0.50")) << place.key;
        tab.cell("G", place.column)->setText(QStringLiteral("0.75"));
        EXPECT_EQ(floatAt(tab.record("G"), place.actionByte), 0.75f) << place.key;
    }
}

TEST(ActionsTable, StoredZeroOfGamaShowsOneAndStoredThousandthShowsZero)
{
    ActionsProject project;
    project.putAction(soundAction("A").gama(0.0f));
    project.putAction(soundAction("G").gama(0.001f));
    const ActionsTab tab(project);
    EXPECT_EQ(tab.text("A", ACT_COL_GAMA), QStringLiteral("1.00"));
    EXPECT_EQ(tab.text("G", ACT_COL_GAMA), QStringLiteral("0.00"));
}

TEST(ActionsTable, NameCannotBeEdited)
{
    const ActionsProject project;
    ActionsTab tab(project);
    EXPECT_FALSE(tab.cell("G", ACT_COL_ACTION)->flags() & Qt::ItemIsEditable);
    EXPECT_TRUE(tab.cell("G", ACT_COL_ACTION)->flags() & Qt::ItemIsSelectable);
}

TEST(ActionsTable, CombosOfferTheirListsInOrder)
{
    const ActionsProject project;
    const ActionsTab tab(project);
    const auto ids = [&tab](int column) {
        auto* header = dynamic_cast<MRL_H_TwHeaderComboBoxItem*>(
            tab.table.horizontalHeaderItem(tab.table.getColumnNumber(column)));
        std::vector<int> list;
        for (const ComboList& entry : header->getComboEntries(0)) {
            list.push_back(entry.id);
            EXPECT_EQ(entry.reserved, -99999);
        }
        return list;
    };
    EXPECT_EQ(ids(ACT_COL_PARTITION), (std::vector<int>{1, 2, 3, 4, 5, 49, 50, 51, 52, 53}));
    EXPECT_EQ(ids(ACT_COL_SUPERPOSITION), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 8}));
}

TEST(ActionsTable, ForeignCategoriesAndSuperpositionsSurviveTheRow)
{
    ActionsProject project;
    project.putAction(soundAction("Q").partition(0xB9));
    ActionsTab tab(project);
    EXPECT_EQ(tab.record("Q").partition, 0xB9);
}

TEST(ActionsTable, FactorsThatAreNoNumbersAreShownAndJudged)
{
    ActionsProject project;
    const float infinity = std::numeric_limits<float>::infinity();
    project.putAction(soundAction("Q").gamu(std::numeric_limits<float>::quiet_NaN()).psi0(infinity));
    ActionsTab tab(project);
    EXPECT_TRUE(tab.isRed("Q", ACT_COL_GAMU));
    EXPECT_TRUE(tab.isRed("Q", ACT_COL_PSI0));
    EXPECT_FALSE(tab.widget.isValid());
    EXPECT_EQ(tab.record("Q").psi0, infinity);
    EXPECT_TRUE(std::isnan(tab.record("Q").gamu));
}

TEST(ActionsTable, TableStaysSortable)
{
    const ActionsProject project;
    ActionsTab tab(project);
    EXPECT_TRUE(tab.table.isSortingEnabled());
    tab.table.sortByColumn(tab.table.getColumnNumber(ACT_COL_GAMU), Qt::DescendingOrder);
    EXPECT_EQ(tab.names(), QStringList({"Q", "G"})); // 1.5 above 1.35
}

TEST(ActionsTable, RowsAreAsHighAsTheirTextAndEightPixelsMore)
{
    const ActionsProject project;
    const ActionsTab tab(project);
    const QHeaderView* rows = tab.table.verticalHeader();
    EXPECT_EQ(rows->defaultSectionSize(), rows->fontMetrics().height() + 8);
    EXPECT_EQ(tab.table.objectName(), QStringLiteral("actions table"));
}
