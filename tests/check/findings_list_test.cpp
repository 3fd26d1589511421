// docs/findings.md against the rules of the code, both ways.

#include <gmock/gmock.h>

#include <QFile>
#include <QRegularExpression>

#include "check/finding_text.h"
#include "hostlib/data/designcode/designcode.h"

namespace {

struct Row
{
    std::string id;
    std::string condition;
    std::string cure;
};

/// The rows "| `rule` | condition | cure |" of the list.
std::vector<Row> listed()
{
    QFile file(QStringLiteral(MRL_SOURCE "/docs/findings.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    static const QRegularExpression ROW("^\\| `([^`]*)` \\|([^|]*)\\|([^|]*)\\|$",
                                        QRegularExpression::MultilineOption);
    std::vector<Row> rows;
    auto matches = ROW.globalMatch(QString::fromUtf8(file.readAll()));
    while (matches.hasNext()) {
        const QRegularExpressionMatch row = matches.next();
        rows.push_back({row.captured(1).toStdString(), row.captured(2).trimmed().toStdString(),
                        row.captured(3).trimmed().toStdString()});
    }
    return rows;
}

std::vector<std::string> idsOfTheCode()
{
    std::vector<std::string> ids;
    for (const auto& [rule, id] : LCM_RULE_IDS) {
        ids.emplace_back(id);
    }
    const auto last = static_cast<int>(mrl::designcode::WarningRule::ActionInNoSituation);
    for (int rule = 0; rule <= last; ++rule) {
        ids.emplace_back(mrl::designcode::idOf(static_cast<mrl::designcode::WarningRule>(rule)));
    }
    return ids;
}

} // namespace

TEST(FindingsList, HasEveryRuleOfTheCodeOnceAndNoOther)
{
    std::vector<std::string> ids;
    for (const Row& row : listed()) {
        ids.push_back(row.id);
    }
    EXPECT_THAT(ids, testing::UnorderedElementsAreArray(idsOfTheCode()));
}

TEST(FindingsList, TellsConditionAndCureOfEachRule)
{
    for (const Row& row : listed()) {
        EXPECT_NE(row.condition, "") << row.id;
        EXPECT_NE(row.cure, "") << row.id;
    }
}

TEST(FindingsList, IdsAreShortAndInKebabCaseAndNamedOnce)
{
    for (const std::string& id : idsOfTheCode()) {
        EXPECT_THAT(id, testing::MatchesRegex("[a-z][a-z0-9]*(-[a-z0-9]+)*"));
        EXPECT_LE(id.size(), 45u) << id;
    }
    const std::vector<std::string> ids = idsOfTheCode();
    EXPECT_EQ(std::set<std::string>(ids.begin(), ids.end()).size(), ids.size());
}

TEST(FindingsList, EveryRuleHasAText)
{
    // Some patterns have no place for the two arguments, of which Qt warns.
    const auto warnsAgain =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    for (const auto& [rule, id] : LCM_RULE_IDS) {
        LCM_Finding finding{rule, LCM_Subject::Action, 0, 0, {0.5f, 1.5f}};
        const QString text = lcm_finding_english(finding);
        EXPECT_NE(text, QString()) << id;
        EXPECT_FALSE(text.contains('%')) << id;
        EXPECT_NE(lcm_finding_text(finding), QString()) << id;
    }
    qInstallMessageHandler(warnsAgain);
}
