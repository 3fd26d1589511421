// What stands in a report.
#include <QCryptographicHash>
#include <QRegularExpression>

#include "report/programs.h"

using namespace mrl::test;
using testing::HasSubstr;
using testing::Not;

namespace {

using Text = QString;

const char* const SAMPLES[] = {"frame", "road-bridge", "oddities"};

/// "1 | Self weight |".
std::string cells(const std::string& first, const std::string& second)
{
    return "\n" + first + " | " + second + " |";
}

std::string hashIn(const std::string& text)
{
    const auto found = QRegularExpression(Text("SHA-256 +([0-9a-f]{64})")).match(Text::fromStdString(text));
    return found.captured(1).toStdString();
}

/// As the program shows them: what is no text is replaced.
std::string shown(const std::string& title)
{
    std::string text;
    for (const char c : title) {
        text += static_cast<unsigned char>(c) < ' ' ? std::string("\xEF\xBF\xBD") : std::string(1, c);
    }
    return text;
}

class ReportContent : public ReportTest
{
};

} // namespace

TEST_F(ReportContent, EveryActionAndLoadCaseOfTheSamplesStandsInBothKinds)
{
    for (const char* name : SAMPLES) {
        const Text file = sample(name);
        const std::string page = html(file);
        const std::string paper = flowing(joined(pages(file)));
        for (const auto& action : lcJson({"action", "list", file})) {
            EXPECT_THAT(page, HasSubstr(cells(action["name"], shown(action["title"])))) << name;
            EXPECT_THAT(paper, HasSubstr(action["name"].get<std::string>())) << name;
        }
        for (const auto& each : lcJson({"case", "list", file})) {
            const std::string number = std::to_string(each["number"].get<int>());
            if (each["title"].is_null()) {
                EXPECT_THAT(page, HasSubstr(cells(number, std::to_string(each["kind"].get<int>())))) << name;
                continue;
            }
            const std::string title = shown(each["title"]);
            EXPECT_THAT(page, HasSubstr(cells(number, title))) << name;
            EXPECT_THAT(paper, HasSubstr(number + " " + title.substr(0, 12))) << name;
        }
    }
}

TEST_F(ReportContent, HashIsWhatTheCommandInTheReportPrints)
{
    const Text file = sample("frame");
    const std::string page = html(file);
    const auto command =
        QRegularExpression(Text("mrl-lc (export [^\n]* \\| sha256sum)")).match(Text::fromStdString(page));
    ASSERT_TRUE(command.hasMatch());
    const Outcome run = shell(Text(MRL_LC " ") + command.captured(1), path({}));
    ASSERT_EQ(run.err, "");
    EXPECT_EQ(run.out.substr(0, 64), hashIn(page));
    for (const std::string& paper : pages(file)) {
        EXPECT_EQ(hashIn(paper), run.out.substr(0, 64)) << "the foot of every page has it";
    }
}

TEST_F(ReportContent, HashIsThatOfTheExportedJsonAndChangesWithTheContent)
{
    const Text file = sample("oddities");
    const auto exported = [&] {
        const std::string json = lc({"export", file, "--format", "json"});
        return QCryptographicHash::hash(QByteArray::fromStdString(json), QCryptographicHash::Sha256)
            .toHex()
            .toStdString();
    };
    const std::string before = hashIn(html(file));
    EXPECT_EQ(before, exported());
    lc({"case", "create", file, "4711"});
    const std::string after = hashIn(html(file));
    EXPECT_EQ(after, exported());
    EXPECT_NE(after, before);
}

TEST_F(ReportContent, CommandNamesAFileThatTheShellWouldTakeApart)
{
    const Text odd = path("it's a \"tower\".cdb");
    ASSERT_TRUE(QFile::copy(sample("frame"), odd));
    EXPECT_THAT(html(odd), HasSubstr("mrl-lc export 'it'\\''s a \"tower\".cdb' --format json | sha256sum"));
}

TEST_F(ReportContent, ValuesAreTracedToClauseAndState)
{
    const std::string text = html(project("action G\naction P\naction Q_B\n"));
    EXPECT_THAT(text, HasSubstr("G | γG,sup 1.35,  γG,inf 1.00 | Table A1.2(B) | verified |  | "));
    EXPECT_THAT(
        text,
        HasSubstr("P | γG,sup 1.00,  γG,inf 1.00,  γA 1.00 | – | unverified | neutral: A1.3.1 leaves it"));
    EXPECT_THAT(text, HasSubstr("KFI | 1.00 | Table B3, class CC2 (CC1: 0.9, CC3: 1.1) | verified"));
    EXPECT_THAT(text, HasSubstr("Values of the actions | 15 verified, 3 unverified | "));
}

TEST_F(ReportContent, ValueOfABaseNamesItsFile)
{
    const std::string text = html(project("action G\naction Q_B\n", "din-en1990-na"));
    EXPECT_THAT(text, HasSubstr("din-en1990-na, on en1990"));
    EXPECT_THAT(text, HasSubstr("(en1990) | "));
}

TEST_F(ReportContent, DeviationsTellBothValuesAndTheSource)
{
    const Text file = project("action G\naction Q_B\n");
    EXPECT_THAT(html(file), HasSubstr("No action deviates from what the design code says of it."));
    lc({"action", "set", file, "Q_B", "--psi0", "0.65", "--superposition", "EXCL"});
    lc({"action", "create", file, "XX", "--partition", "Q", "--gamu", "1.2"});
    const std::string text = html(file);
    EXPECT_THAT(text, HasSubstr("\nQ_B | ψ0 | 0.65 | 0.70 | Table A1.1 | verified | "));
    EXPECT_THAT(text,
                HasSubstr("\nQ_B | Superposition | EXCL exclusive within category | COND conditional | "));
    EXPECT_THAT(text, HasSubstr("ψ0 0.65 | – | set by hand | see the deviations | "));
    EXPECT_THAT(text, HasSubstr("Actions that the design code doesn't have: XX"));
    EXPECT_THAT(text, HasSubstr("Deviations from the code | 2 | "));
}

TEST_F(ReportContent, CountsOfTheSituationsAreThoseOfTheCommandLine)
{
    const Text file = sample("frame");
    std::string text = html(file);
    text.erase(std::remove(text.begin(), text.end(), ','), text.end());
    for (const char* situation : {"persistent", "accidental", "seismic", "quasi-permanent"}) {
        const auto counted = lcJson({"combine", file, "--situation", situation, "--count"});
        EXPECT_THAT(text, HasSubstr(" | " + counted["count"].get<std::string>() + " | " +
                                    counted["distinct"].get<std::string>() + " | "))
            << situation;
    }
    EXPECT_THAT(text, HasSubstr("persistent-ab / 6.10a"));
}

TEST_F(ReportContent, FindingsAreThoseOfTheCheck)
{
    const Text file = sample("oddities");
    const std::string text = html(file);
    const auto findings = lcJson({"check", file})["findings"];
    ASSERT_FALSE(findings.empty());
    for (const auto& finding : findings) {
        EXPECT_THAT(text, HasSubstr(finding["message"].get<std::string>() + " | " +
                                    finding["rule"].get<std::string>()));
    }
    EXPECT_THAT(text, HasSubstr("Findings | " + std::to_string(findings.size()) + " | "));
    EXPECT_THAT(html(project("action G\n")), HasSubstr("No rule finds fault"));
}

TEST_F(ReportContent, RefusedCombinationsTellWhy)
{
    const Text file = project("action G\ncase 7 G \"Dead\"\n");
    lc({"action", "set", file, "G", "--gamf", "2"});
    const std::string text = html(file);
    EXPECT_THAT(text, HasSubstr("Nothing is combined before this is mended:"));
    EXPECT_THAT(text, HasSubstr("load case 7"));
}

TEST_F(ReportContent, GermanReportHasGermanWordsAndNumbers)
{
    const Text file = sample("frame");
    lc({"action", "set", file, "Q_B", "--psi0", "0.65"});
    const QStringList german{"--language", "de", "--date", "2026-11-22"};
    const std::string text = html(file, german);
    for (const char* expected :
         {"1  Norm und ihre Werte", "2  Einwirkungen", "3  Lastfälle der Einwirkungen", "22. November 2026",
          "| 1,35 |", "0,65 | 0,70 |", "G (Ständig)", "geprüft", "von Hand gesetzt", "Bemessungssituationen",
          "persistent: Ständig und vorübergehend"}) {
        EXPECT_THAT(text, HasSubstr(expected));
    }
    EXPECT_THAT(joined(pages(file, german)), HasSubstr("Seite 1 von "));
}

TEST_F(ReportContent, GermanReportHasNoEnglishTextOfOurs)
{
    const std::string text = html(sample("oddities"), {"--language", "de"});
    const Text translations = Text::fromStdString(contentOf(MRL_SOURCE "/translations/mrl_report_de.ts"));
    auto sources = QRegularExpression(Text("<source>([^<%&]{12,})</source>")).globalMatch(translations);
    ASSERT_TRUE(sources.hasNext());
    while (sources.hasNext()) {
        EXPECT_THAT(text, Not(HasSubstr(sources.next().captured(1).toStdString())));
    }
}
