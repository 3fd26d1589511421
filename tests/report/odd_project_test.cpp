// Projects that nobody would make on purpose.
#include "report/programs.h"

using namespace mrl::test;
using testing::HasSubstr;
using testing::Not;

namespace {

class OddProjectReport : public ReportTest
{
};

} // namespace

TEST_F(OddProjectReport, EmptyProjectSaysSo)
{
    const QString file = project({});
    const std::string text = html(file);
    EXPECT_THAT(text, HasSubstr("The project has no actions."));
    EXPECT_THAT(text, HasSubstr("The project has no load cases."));
    EXPECT_FALSE(pages(file).empty());
}

TEST_F(OddProjectReport, ProjectWithoutItsDesignCodeIsToldAndListed)
{
    auto content =
        nlohmann::json::parse(lc({"export", project("action G\ncase 3 G \"Three\"\n"), "--format", "json"}));
    content["facts"] = {{"designcode", "nowhere"}}; // and no copy of it
    QFile json(path("in.json"));
    ASSERT_TRUE(json.open(QIODevice::WriteOnly));
    json.write(QByteArray::fromStdString(content.dump()));
    json.close();
    const QString file = path("nocode.cdb");
    lc({"new", file, "--from", json.fileName()});
    const std::string text = html(file);
    EXPECT_THAT(text, HasSubstr("No design code is active: "));
    EXPECT_THAT(text, HasSubstr("3 | Three | "));
    EXPECT_FALSE(pages(file).empty());
}

TEST_F(OddProjectReport, TextOfAProjectNeverBecomesMarkup)
{
    const QString file = project("action G\ncase 1 G \"<script>&'x\"\n");
    const std::string page = contentOf(write(file, "html"));
    EXPECT_THAT(page, Not(HasSubstr("<script")));
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;&amp;'x"));
}

TEST_F(OddProjectReport, LoadCasesOfMissingActionsAndOtherModulesHaveTheirGroups)
{
    const QString file =
        project("action G\naction Q_B\ncase 1 G \"a\"\ncase 2 Q_B \"b\"\ncase 3 IMP \"c\"\n");
    lc({"case", "create", file, "4", "--title", "d"});
    lc({"del", file, "14", "Q_B"});
    lc({"put", file, "12", "9", "07000000000000000000000000000000"});
    const std::string text = html(file);
    EXPECT_THAT(text, HasSubstr("Q_B  action that the project lacks"));
    EXPECT_THAT(text, HasSubstr("IMP  Imperfections"));
    EXPECT_THAT(text, HasSubstr("Without an action"));
    EXPECT_THAT(text, HasSubstr("Of other modules"));
    EXPECT_THAT(text, HasSubstr("9 | 7 | "));
    EXPECT_THAT(text, HasSubstr("4, and 1 of other modules"));
}

TEST_F(OddProjectReport, DeadWeightThatTheSystemLacksIsStillToldOf)
{
    const QString file = path("plane.cdb");
    lc({"new", file, "--code", "en1990", "--system", "plane"});
    lc({"case", "create", file, "1"});
    EXPECT_THAT(html(file), HasSubstr("DLX | DLY | Factor"));
    lc({"case", "set", file, "1", "--dlz", "-1.5"});
    const std::string text = html(file);
    EXPECT_THAT(text, HasSubstr("DLX | DLY | DLZ | Factor"));
    EXPECT_THAT(text, HasSubstr("−1.50"));
}

TEST_F(OddProjectReport, TenThousandLoadCasesInTurnsStayReadable)
{
    const QString file = project("action G\naction Q_B\n");
    QFile csv(path("cases.csv"));
    ASSERT_TRUE(csv.open(QIODevice::WriteOnly));
    csv.write("number,title,action\n");
    for (int i = 1; i <= 10000; ++i) {
        csv.write(
            QStringLiteral("%1,Step %1,%2\n").arg(i).arg(QLatin1String(i % 2 == 0 ? "G" : "Q_B")).toUtf8());
    }
    csv.close();
    lc({"import", file, csv.fileName()});
    const auto all = pages(file);
    EXPECT_THAT(flowing(joined(all)), HasSubstr("more up to 9999"));
    EXPECT_THAT(all[all.size() - 3], HasSubstr("Step "));
    const std::string page = contentOf(write(file, "html"));
    const std::string svg = page.substr(page.find("<svg"), page.find("</svg>") - page.find("<svg"));
    EXPECT_LT(svg.size(), 50000u) << "what can't be told apart is drawn once";
}
