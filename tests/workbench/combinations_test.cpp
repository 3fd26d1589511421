// The page of combinations: situations, extremes of responses, and where a factor comes from.
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QSvgRenderer>
#include <QSvgWidget>
#include <QTableView>
#include <QTest>

#include "host/mrl_dlib.h"
#include "report/readable.h"
#include "tests/support/contrast.h"
#include "tests/support/project_test.h"
#include "workbench/combinations/combinations_page.h"
#include "workbench/combinations/contribution_picture.h"

namespace mrl::test {

using report::readableCount;
using workbench::CombinationsPage;

namespace {

/// A roof: weight, snow and wind with a load case each, by EN 1990.
class CombinationsPageTest : public ProjectTest
{
  protected:
    CombinationsPageTest()
    {
        project.setDesignCode("en1990");
        project.putAction(soundAction(QStringLiteral("G")).partition(0x10));
        putSnow(0.5f);
        project.putAction(variable(QStringLiteral("W")).psi0(0.6f));
        project.putLoadCase(1, following(QStringLiteral("G")));
        project.putLoadCase(2, following(QStringLiteral("S")));
        project.putLoadCase(3, following(QStringLiteral("W")));
        page.follow(db);
        page.show();
    }

    static ActionBuilder variable(const QString& name)
    {
        return soundAction(name).gamu(1.5f).gamf(0.0f).psi1(0.2f).psi2(0.0f);
    }
    void putSnow(float psi0) const { project.putAction(variable(QStringLiteral("S")).psi0(psi0)); }

    QString write(const QByteArray& text) const
    {
        QFile file(folder.filePath(QStringLiteral("r.csv")));
        file.open(QIODevice::WriteOnly);
        file.write(text);
        return file.fileName();
    }
    QTableView* table(const char* name) const { return page.findChild<QTableView*>(QLatin1String(name)); }
    QString cell(const char* name, int row, int column) const
    {
        return table(name)->model()->index(row, column).data().toString();
    }
    QString label(const char* name) const { return page.findChild<QLabel*>(QLatin1String(name))->text(); }
    void choose(const char* name, int row, int column) const
    {
        table(name)->setCurrentIndex(table(name)->model()->index(row, column));
    }
    int rows(const char* name) const { return table(name)->model()->rowCount(); }

    CombinationsPage page{nullptr};
};

} // namespace

TEST_F(CombinationsPageTest, ShowsSituationsWithClauseFormulaAndCount)
{
    ASSERT_GT(rows("table_situations"), 5);
    EXPECT_EQ(cell("table_situations", 0, 0), QStringLiteral("Persistent and transient"));
    EXPECT_EQ(cell("table_situations", 0, 1), QStringLiteral("6.4.3.2, 6.10"));
    EXPECT_EQ(cell("table_situations", 0, 2),
              QStringLiteral("Σ {K_FI·γ | γ_inf}·G + {γ | γ_inf}·P + K_FI·γ·Q₁ + Σ K_FI·γ·ψ₀·Qᵢ"));
    EXPECT_EQ(cell("table_situations", 0, 3), QStringLiteral("10"));
    EXPECT_TRUE(cell("table_situations", 1, 2).contains(QStringLiteral("\n6.10b: Σ {K_FI·ξ·γ | γ_inf}·G")));
}

TEST_F(CombinationsPageTest, ListsTheCombinationsOfTheChosenSituation)
{
    EXPECT_EQ(rows("table_combinations"), 10);
    EXPECT_EQ(cell("table_combinations", 0, 0), QStringLiteral("1.35*1"));
    choose("table_situations", 1, 0);
    EXPECT_EQ(rows("table_combinations"), 18);
    EXPECT_EQ(cell("table_combinations", 0, 2), QStringLiteral("6.10a"));
}

TEST_F(CombinationsPageTest, SaysThatAListIsTooLongToRead)
{
    project.putAction(variable(QStringLiteral("Q")).partition(0x31));
    for (int number = 11; number <= 20; ++number) {
        project.putLoadCase(number, following(QStringLiteral("Q")));
    }
    page.follow(db);
    EXPECT_EQ(rows("table_combinations"), 0);
    EXPECT_TRUE(label("list_remark").contains(QStringLiteral("too many to read")))
        << qPrintable(label("list_remark"));
}

TEST_F(CombinationsPageTest, ShowsExtremesWithTheirGoverningCombinations)
{
    ASSERT_EQ(page.openResponses(write("name,1,2,3\nM,10,5,-2\nN,1,2,4\n")), QString());
    ASSERT_EQ(rows("table_extremes"), 2);
    EXPECT_EQ(cell("table_extremes", 0, 0), QStringLiteral("M"));
    EXPECT_EQ(cell("table_extremes", 0, 1), QStringLiteral("21")); // 13.5 + 7.5
    EXPECT_EQ(cell("table_extremes", 0, 2), QStringLiteral("1.35*1+1.5*2"));
    EXPECT_EQ(cell("table_extremes", 0, 3), QStringLiteral("7")); // 10 - 3
    EXPECT_EQ(cell("table_extremes", 0, 4), QStringLiteral("1*1+1.5*3"));
}

TEST_F(CombinationsPageTest, AClickShowsTheCombinationLoadCaseByLoadCase)
{
    page.openResponses(write("name,1,2,3\nM,10,5,-2\nN,1,2,4\n"));
    choose("table_extremes", 1, 1);
    ASSERT_EQ(rows("table_terms"), 3);
    EXPECT_EQ(cell("table_terms", 1, 1), QStringLiteral("S"));
    EXPECT_EQ(cell("table_terms", 1, 2), QStringLiteral("accompanying"));
    EXPECT_EQ(cell("table_terms", 1, 3), QStringLiteral("0.75"));
    EXPECT_EQ(cell("table_terms", 1, 4), QStringLiteral("KFI*Gamu*Psi0 = 1*1.5*0.5"));
    EXPECT_EQ(cell("table_terms", 2, 2), QStringLiteral("leading"));
    EXPECT_EQ(cell("table_terms", 2, 6), QStringLiteral("6"));
    EXPECT_TRUE(label("terms_head").contains(QStringLiteral("N, maximum")));
    choose("table_extremes", 1, 3); // the minimum
    EXPECT_EQ(rows("table_terms"), 1);
    EXPECT_TRUE(label("terms_head").contains(QStringLiteral("N, minimum")));
}

TEST_F(CombinationsPageTest, ShowsSeveralResponsesAboveThePictureOnASmallScreen)
{
    page.resize(950, 640);
    page.openResponses(write("name,1,2,3\nM,10,5,-2\nN,1,2,4\nV,1,1,1\nT,2,2,2\nR,0,1,3\n"));
    QApplication::processEvents();
    const QTableView* extremes = table("table_extremes");
    EXPECT_GE(extremes->viewport()->height(), 3 * extremes->rowHeight(0));
    const auto* picture = page.findChild<QSvgWidget*>(QStringLiteral("picture"));
    EXPECT_GE(picture->height(), picture->sizeHint().height() / 2);
    EXPECT_EQ(picture->renderer()->aspectRatioMode(), Qt::KeepAspectRatio);
}

TEST_F(CombinationsPageTest, AChangedPsiIsSeenAtOnceWithWhatItChanges)
{
    page.openResponses(write("name,1,2,3\nM,10,5,-2\nN,1,2,4\n"));
    EXPECT_EQ(cell("table_extremes", 1, 1), QStringLiteral("8.85")); // 1.35 + 0.75 * 2 + 6
    putSnow(0.7f);
    page.follow(db);
    EXPECT_EQ(cell("table_extremes", 1, 1), QStringLiteral("9.45"));
    EXPECT_EQ(label("responses_changes"),
              QStringLiteral("1 of 2 responses changed; most of all N, from 8.85 to 9.45 (6.8 %)"));
    page.follow(db);
    EXPECT_EQ(label("responses_changes"), QString());
}

TEST_F(CombinationsPageTest, SaysWhatForbidsToCombine)
{
    project.putLoadCase(9, following(QStringLiteral("X")));
    page.follow(db);
    EXPECT_TRUE(label("combinations_problem").contains(QStringLiteral("load case 9: action X is not known")));
    EXPECT_EQ(rows("table_situations"), 0);
    EXPECT_EQ(rows("table_combinations"), 0);
}

TEST_F(CombinationsPageTest, SaysWhatIsWrongWithResponses)
{
    EXPECT_TRUE(
        page.openResponses(write("name,1,2,3\nM,1,x,2\n")).contains(QStringLiteral("row 2, load case 2")));
    EXPECT_EQ(page.openResponses(write("name,1,3\nM,1,2\n")), QString());
    EXPECT_TRUE(label("responses_file").contains(QStringLiteral("no column for load case 2")));
    EXPECT_EQ(rows("table_extremes"), 0);
}

TEST_F(CombinationsPageTest, SortsFindsAndCopies)
{
    page.openResponses(write("name,1,2,3\nM,10,0,0\nN,9,0,0\nM2,100,0,0\n"));
    table("table_extremes")->sortByColumn(1, Qt::AscendingOrder);
    EXPECT_EQ(cell("table_extremes", 0, 0), QStringLiteral("N")) << "by value: 12.15, 13.5, 135";
    EXPECT_EQ(cell("table_extremes", 2, 0), QStringLiteral("M2"));
    page.findChild<QLineEdit*>(QStringLiteral("table_extremes_find"))->setText(QStringLiteral("m2"));
    ASSERT_EQ(rows("table_extremes"), 1);
    table("table_extremes")->selectRow(0);
    table("table_extremes")->actions().front()->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("M2\t135\t1.35*1\t100\t1*1\n"));
    EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasHtml());
}

TEST_F(CombinationsPageTest, HintsInTheFieldsCanBeReadInLightAndDark)
{
    inLightAndDark([] {
        const CombinationsPage coloured(nullptr);
        const auto fields = coloured.findChildren<QLineEdit*>();
        EXPECT_EQ(fields.size(), 4);
        for (const QLineEdit* field : fields) {
            const QPalette shown = field->palette();
            EXPECT_GE(contrastOf(shown.color(QPalette::PlaceholderText), shown.color(QPalette::Base)), 4.5)
                << field->objectName().toStdString();
        }
    });
}

/// As many whole rows of a table as one sees at once.
int rowsInSight(const QTableView* table)
{
    int count = 0;
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        const QRect place = table->visualRect(table->model()->index(row, 0));
        count += place.top() >= 0 && place.bottom() < table->viewport()->height() ? 1 : 0;
    }
    return count;
}

TEST_F(CombinationsPageTest, OnASmallScreenWholeRowsOfEachTableAreInSight)
{
    page.resize(540, 450); // what a window of 800x600 leaves
    QCoreApplication::processEvents();
    page.openResponses(write("name,1,2,3\nM,10,0,0\nN,9,0,0\nM2,100,0,0\nV,1,2,3\n"));
    QCoreApplication::processEvents();
    EXPECT_GE(rowsInSight(table("table_situations")), 1);
    EXPECT_GE(rowsInSight(table("table_extremes")), 2);
    EXPECT_GE(rowsInSight(table("table_terms")), 1);
    EXPECT_FALSE(page.findChild<QLineEdit*>(QStringLiteral("table_combinations_find"))->isVisible());
    EXPECT_TRUE(page.findChild<QLineEdit*>(QStringLiteral("table_extremes_find"))->isVisible());
}

TEST(ReadableCount, IsANumberThatOneCanRead)
{
    EXPECT_EQ(readableCount(combine::BigInt("900")), QStringLiteral("900"));
    EXPECT_EQ(readableCount(combine::BigInt("15233672")), QStringLiteral("15.2 million"));
    EXPECT_EQ(readableCount(combine::BigInt("104857600000")), QStringLiteral("104.9 billion"));
    EXPECT_EQ(readableCount(combine::BigInt("1152921504606846976")), QStringLiteral("1.2·10^18"));
}

TEST(ContributionPicture, HasABarForEachActionAndTheSum)
{
    combine::Origin origin;
    origin.action = "Q <office>";
    origin.factor = 1.5;
    origin.role = LCM_Role::Lead;
    const QByteArray svg =
        workbench::contributionPicture(QStringLiteral("M"), {{origin, 10.0}, {origin, -2.0}});
    EXPECT_EQ(svg.count("<rect"), 3) << "the ground, one action, the sum";
    EXPECT_TRUE(svg.contains("Q &lt;office&gt;, leading"));
    EXPECT_TRUE(svg.contains(">12</text>")) << svg.constData();
}

} // namespace mrl::test
