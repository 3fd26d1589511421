// The program: its options, what it refuses, and what it leaves behind.
#include <QDir>

#include "report/programs.h"

using namespace mrl::test;
using testing::HasSubstr;

namespace {

class ReportProgram : public ReportTest
{
  protected:
    static Outcome report(const QStringList& arguments,
                          const std::vector<std::pair<QString, QString>>& variables = {})
    {
        return runProgram(QStringLiteral(MRL_REPORT), arguments, variables);
    }
    static std::string fails(int code, const QStringList& arguments,
                             const std::vector<std::pair<QString, QString>>& variables = {})
    {
        const Outcome run = report(arguments, variables);
        EXPECT_EQ(run.code, code) << run.err;
        EXPECT_EQ(run.out, "");
        EXPECT_THAT(run.err, testing::StartsWith("mrl-report: "));
        return run.err;
    }
};

} // namespace

TEST_F(ReportProgram, HelpAndVersionNeedNoDisplay)
{
    EXPECT_THAT(report({"--help"}, {{"QT_QPA_PLATFORM", ""}, {"DISPLAY", ""}}).out, HasSubstr("--language"));
    EXPECT_THAT(report({"--version"}, {{"QT_QPA_PLATFORM", ""}}).out, HasSubstr("mrl-report 1."));
}

TEST_F(ReportProgram, ReportNeedsNoDisplay)
{
    const Outcome run =
        report({sample("frame"), "-o", path("r.pdf")}, {{"QT_QPA_PLATFORM", ""}, {"DISPLAY", ""}});
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_THAT(contentOf(path("r.pdf")), testing::StartsWith("%PDF-"));
}

TEST_F(ReportProgram, WrongUsageIsToldWithItsReason)
{
    const QString file = sample("frame");
    EXPECT_THAT(fails(2, {}), HasSubstr("FILE is required"));
    EXPECT_THAT(fails(2, {file}), HasSubstr("--output is required"));
    EXPECT_THAT(fails(2, {file, "-o", path("r.docx")}), HasSubstr("has to end in .pdf, .html or .htm"));
    EXPECT_THAT(fails(2, {file, file, "-o", path("r.pdf")}), HasSubstr("is too much"));
    EXPECT_THAT(fails(2, {file, "-o", path("r.pdf"), "--language", "fr"}),
                HasSubstr("'fr' is none of en, de"));
    EXPECT_THAT(fails(2, {file, "-o", path("r.pdf"), "--date", "22.11."}), HasSubstr("'22.11.' is no day"));
    EXPECT_THAT(fails(2, {file, "-o", path("r.pdf"), "--nonsense"}), HasSubstr("nonsense"));
    EXPECT_THAT(fails(2, {file, "-o", path("r.pdf")}, {{"SOURCE_DATE_EPOCH", "soon"}}), HasSubstr("'soon'"));
    EXPECT_FALSE(QFile::exists(path("r.pdf")));
}

TEST_F(ReportProgram, UnreadableProjectIsToldAndNothingIsWritten)
{
    EXPECT_THAT(fails(3, {path("none.cdb"), "-o", path("r.pdf")}), HasSubstr("none.cdb"));
    QFile foreign(path("foreign.cdb"));
    ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
    foreign.write("no project at all");
    foreign.close();
    EXPECT_THAT(fails(3, {foreign.fileName(), "-o", path("r.html")}), HasSubstr("foreign.cdb"));
    EXPECT_FALSE(QFile::exists(path("r.pdf")));
    EXPECT_FALSE(QFile::exists(path("r.html")));
}

TEST_F(ReportProgram, ProjectIsNeverWrittenOver)
{
    const QString odd = path("tower.pdf");
    ASSERT_TRUE(QFile::copy(sample("frame"), odd));
    const std::string before = contentOf(odd);
    EXPECT_THAT(fails(1, {odd, "-o", odd}), HasSubstr("can't be the file to write"));
    EXPECT_EQ(contentOf(odd), before);
}

TEST_F(ReportProgram, FolderThatIsNotThereIsTold)
{
    EXPECT_THAT(fails(3, {sample("frame"), "-o", path("none/r.pdf")}), HasSubstr("none/r.pdf"));
}

TEST_F(ReportProgram, FullDiskLeavesTheOldFileAndNothingElse)
{
    const QString file = sample("frame");
    for (const char* kind : {"pdf", "html"}) {
        const QString out = path(QStringLiteral("old.") + kind);
        QFile old(out);
        ASSERT_TRUE(old.open(QIODevice::WriteOnly));
        old.write("of yesterday");
        old.close();
        const QStringList before = QDir(path({})).entryList(QDir::Files);
        const Outcome run = shell(QStringLiteral("trap '' XFSZ; ulimit -f 4; '%1' '%2' -o '%3'")
                                      .arg(QStringLiteral(MRL_REPORT), file, out));
        EXPECT_EQ(run.code, 3);
        EXPECT_THAT(run.err, HasSubstr(out.toStdString()));
        EXPECT_EQ(contentOf(out), "of yesterday");
        EXPECT_EQ(QDir(path({})).entryList(QDir::Files), before);
    }
}

TEST_F(ReportProgram, SameDateGivesTheSameBytesWhereverAndWhenever)
{
    const QString file = sample("frame");
    for (const char* kind : {"pdf", "html"}) {
        const QString name = QString::fromLatin1(kind);
        const auto bytes = [&](const QStringList& options,
                               const std::vector<std::pair<QString, QString>>& variables) {
            const Outcome run = report(QStringList(options) << file << "-o" << path("r." + name), variables);
            EXPECT_EQ(run.code, 0) << run.err;
            return contentOf(path("r." + name));
        };
        // 2026-11-22 00:00:00 UTC
        const std::string told = bytes({"--date", "2026-11-22"}, {{"TZ", "Asia/Tokyo"}});
        EXPECT_EQ(bytes({}, {{"SOURCE_DATE_EPOCH", "1795305600"}, {"TZ", "America/Lima"}}), told);
        EXPECT_EQ(bytes({"--date", "2026-11-22"}, {{"LC_ALL", "C"}}), told);
        EXPECT_NE(bytes({"--date", "2026-11-23"}, {}), told);
    }
}

TEST_F(ReportProgram, LanguageIsThatOfTheUserUnlessTold)
{
    const QString file = sample("frame");
    const auto page = [&](const QStringList& options, const QString& locale) {
        EXPECT_EQ(report(QStringList(options) << file << "-o" << path("r.html"),
                         {{"LC_ALL", locale}, {"XDG_CONFIG_HOME", path("home")}})
                      .code,
                  0);
        return contentOf(path("r.html"));
    };
    EXPECT_THAT(page({}, "de_DE.UTF-8"), HasSubstr("<html lang=\"de\">"));
    EXPECT_THAT(page({}, "C.UTF-8"), HasSubstr("<html lang=\"en\">"));
    EXPECT_THAT(page({"--language", "en"}, "de_DE.UTF-8"), HasSubstr("<html lang=\"en\">"));
}

TEST_F(ReportProgram, ManPageTellsEveryOption)
{
    const std::string help = report({"--help"}).out;
    const std::string page = contentOf(MRL_SOURCE "/report/mrl-report.1");
    for (const char* option : {"--output", "--language", "--date", "--help", "--version"}) {
        EXPECT_THAT(help, HasSubstr(option));
        EXPECT_THAT(page, HasSubstr(option));
    }
}
