// How a report falls into pages.
#include <QRegularExpression>

#include "report/programs.h"

using namespace mrl::test;
using testing::HasSubstr;

namespace {

constexpr int CASES = 400;

class ReportPages : public ReportTest
{
  protected:
    /// Some titles take two lines.
    QString longProject() const
    {
        QString script = QStringLiteral("action G\naction Q_B\n");
        for (int i = 1; i <= CASES; ++i) {
            script += QStringLiteral("case %1 %2 \"%3 %1\"\n")
                          .arg(i)
                          .arg(QLatin1String(i % 10 == 0 ? "G" : "Q_B"),
                               QLatin1String(i % 7 == 0 ? "WWWWWWWWWWWWWWWWWWWWWWWWWW" : "Storey"));
        }
        return project(script);
    }
};

bool holdsLoadCase(const std::string& page)
{
    return QRegularExpression(QStringLiteral("^ *\\d+ +(Storey|WWW)"), QRegularExpression::MultilineOption)
        .match(QString::fromStdString(page))
        .hasMatch();
}

} // namespace

TEST_F(ReportPages, EveryPageOfALongTableBeginsWithItsHead)
{
    int withLoadCases = 0;
    for (const std::string& page : pages(longProject())) {
        if (holdsLoadCase(page)) {
            ++withLoadCases;
            const QString text = QString::fromStdString(page);
            const int head = text.indexOf(QRegularExpression(QStringLiteral("Number +Title +DLX")));
            EXPECT_GE(head, 0) << page;
            EXPECT_LT(head, text.indexOf(QRegularExpression(QStringLiteral("\\d+ +(Storey|WWW)")))) << page;
        }
    }
    EXPECT_GT(withLoadCases, 5);
}

TEST_F(ReportPages, EachLoadCaseStandsWholeOnOnePageAndOnce)
{
    const auto all = pages(longProject());
    for (int i = 1; i <= CASES; ++i) {
        const QRegularExpression row(
            QStringLiteral("^ *%1 +(Storey|WWWWWWWWWWWWWWWWWWWWWWWWWW) %1\\b").arg(i),
            QRegularExpression::MultilineOption);
        int found = 0;
        for (const std::string& page : all) {
            found += row.match(QString::fromStdString(page)).hasMatch() ? 1 : 0;
        }
        EXPECT_EQ(found, 1) << "load case " << i;
    }
}

TEST_F(ReportPages, NoNumberIsBrokenIntoTwoLines)
{
    const QString file = project("action G\naction Q_B\ncase 1 Q_B \"Long numbers\"\n");
    lc({"action", "set", file, "Q_B", "--psi0", "0.123456", "--gamu", "1.33333"});
    lc({"case", "set", file, "1", "--dlz", "-123456.7"});
    lc({"case", "create", file, "999999", "--title", "Its own factors"});
    lc({"case", "set", file, "999999", "--gamu", "1.33333", "--gamf", "1", "--psi0", "0.123456", "--dlx",
        "12345.678"});
    const std::string text = joined(pages(file));
    EXPECT_THAT(text, testing::ContainsRegex("Q_B .*1\\.33333 +0\\.00 +1\\.00 +0\\.123456 "));
    EXPECT_THAT(text, HasSubstr("−123456.7 "));
    EXPECT_THAT(text,
                testing::ContainsRegex("999999 Its own .*12345\\.678 .*1\\.333.* +1\\.00 .*0\\.123456 "));
}

TEST_F(ReportPages, PagesAreNumberedAndDated)
{
    const auto all = pages(longProject(), {"--date", "2026-11-22"});
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_THAT(all[i], HasSubstr("Page " + std::to_string(i + 1) + " of " + std::to_string(all.size())));
        EXPECT_THAT(all[i], HasSubstr("22 November 2026"));
    }
}

TEST_F(ReportPages, ContentsTellThePagesOfTheSections)
{
    const auto all = pages(longProject());
    auto entries = QRegularExpression(QStringLiteral("^(\\d +[A-Z][a-z ]+?) {5,}(\\d+)$"),
                                      QRegularExpression::MultilineOption)
                       .globalMatch(QString::fromStdString(all.front()));
    int sections = 0;
    while (entries.hasNext()) {
        const auto entry = entries.next();
        const auto page = static_cast<std::size_t>(entry.captured(2).toInt() - 1);
        ASSERT_LT(page, all.size());
        EXPECT_THAT(flowing(all[page]), HasSubstr(entry.captured(1).simplified().toStdString()));
        ++sections;
    }
    EXPECT_EQ(sections, 7);
}

TEST_F(ReportPages, NoHeadingStandsAloneAtTheFootOfAPage)
{
    for (int cases = 1; cases <= 60; cases += 3) {
        QString script = QStringLiteral("action G\naction Q_B\n");
        for (int i = 1; i <= cases; ++i) {
            script += QStringLiteral("case %1 G \"x\"\n").arg(i);
        }
        script += QStringLiteral("case 900 Q_B \"y\"\n");
        const QString file = project(script);
        for (const std::string& page : pages(file)) {
            QStringList lines = QString::fromStdString(page).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
            ASSERT_GT(lines.size(), 3);
            const QString last = lines[lines.size() - 2].simplified(); // ahead of the foot
            EXPECT_FALSE(QRegularExpression(QStringLiteral("^(\\d [A-Z]|Q_B Cat|G Perm|Number Title)"))
                             .match(last)
                             .hasMatch())
                << last.toStdString();
        }
        QFile::remove(file);
    }
}
