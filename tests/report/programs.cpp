#include "report/programs.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

namespace mrl::test {

namespace {

constexpr int LONGEST_MS = 250000;
constexpr char FORM_FEED = '\f';

QString plainText(QString html)
{
    html.remove(QRegularExpression(QStringLiteral("<style>.*?</style>"),
                                   QRegularExpression::DotMatchesEverythingOption));
    html.replace(QRegularExpression(QStringLiteral("</t[dh]>")), QStringLiteral(" | "));
    html.remove(QRegularExpression(QStringLiteral("<[^>]*>")));
    return html.replace(QChar(QChar::Nbsp), QLatin1Char(' '))
        .replace(QLatin1String("&lt;"), QLatin1String("<"))
        .replace(QLatin1String("&gt;"), QLatin1String(">"))
        .replace(QLatin1String("&quot;"), QLatin1String("\""))
        .replace(QLatin1String("&amp;"), QLatin1String("&"));
}

/// A line of a script as mrl-lc apply wants it.
QByteArray operationOf(const QString& line)
{
    const QStringList words =
        line.section(QLatin1Char('"'), 0, 0).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    nlohmann::json operation;
    if (words[0] == QLatin1String("action")) {
        operation = {{"op", "action create"}, {"name", words[1].toStdString()}};
    } else {
        operation = {{"op", "case create"},
                     {"number", words[1].toInt()},
                     {"action", words[2].toStdString()},
                     {"title", line.section(QLatin1Char('"'), 1).chopped(1).toStdString()}};
    }
    return QByteArray::fromStdString(operation.dump() + "\n");
}

} // namespace

Outcome runProgram(const QString& program, const QStringList& arguments,
                   const std::vector<std::pair<QString, QString>>& variables)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : variables) {
        environment.insert(name, value);
    }
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(LONGEST_MS)) << program.toStdString();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            process.readAllStandardOutput().toStdString(), process.readAllStandardError().toStdString()};
}

Outcome shell(const QString& command, const QString& folder)
{
    const QString place = folder.isEmpty() ? QString() : QStringLiteral("cd '%1'; ").arg(folder);
    return runProgram(QStringLiteral("/bin/bash"), {QStringLiteral("-c"), place + command});
}

std::string contentOf(const QString& file)
{
    QFile read(file);
    return read.open(QIODevice::ReadOnly) ? read.readAll().toStdString() : std::string();
}

QString ReportTest::sample(const QString& name) const
{
    const QString copy = path(name + QStringLiteral(".cdb"));
    EXPECT_TRUE(QFile::copy(QStringLiteral(MRL_SAMPLES "/%1.cdb").arg(name), copy));
    return copy;
}

QString ReportTest::project(const QString& script, const QString& design) const
{
    const QString file = path(QStringLiteral("p.cdb"));
    lc({QStringLiteral("new"), file, QStringLiteral("--code"), design});
    QFile operations(path(QStringLiteral("script")));
    EXPECT_TRUE(operations.open(QIODevice::WriteOnly));
    for (const QString& line : script.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        operations.write(operationOf(line));
    }
    operations.close();
    const Outcome run =
        runProgram(QStringLiteral(MRL_LC), {QStringLiteral("apply"), file, operations.fileName()});
    EXPECT_EQ(run.code, 0) << run.err;
    return file;
}

std::string ReportTest::lc(const QStringList& arguments) const
{
    const Outcome run = runProgram(QStringLiteral(MRL_LC), arguments);
    EXPECT_LE(run.code, 1) << run.err;
    return run.out;
}

QString ReportTest::write(const QString& project, const QString& kind, QStringList options) const
{
    const QString file = path(QStringLiteral("report.") + kind);
    options << project << QStringLiteral("-o") << file;
    if (!options.contains(QStringLiteral("--language"))) {
        options << QStringLiteral("--language") << QStringLiteral("en");
    }
    const Outcome run = runProgram(QStringLiteral(MRL_REPORT), options);
    EXPECT_EQ(run.code, 0) << run.err;
    EXPECT_EQ(run.err, "");
    return file;
}

std::string ReportTest::html(const QString& project, const QStringList& options) const
{
    const std::string text = contentOf(write(project, QStringLiteral("html"), options));
    return plainText(QString::fromStdString(text)).toStdString();
}

std::vector<std::string> ReportTest::pages(const QString& project, const QStringList& options) const
{
    return pagesOf(write(project, QStringLiteral("pdf"), options));
}

std::vector<std::string> pagesOf(const QString& pdf)
{
    const Outcome run =
        runProgram(QStringLiteral(PDFTOTEXT), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    EXPECT_EQ(run.code, 0) << run.err;
    std::vector<std::string> pages;
    for (const QString& page : QString::fromStdString(run.out).split(QLatin1Char(FORM_FEED))) {
        pages.push_back(page.toStdString());
    }
    pages.pop_back(); // behind the last one
    return pages;
}

std::string joined(const std::vector<std::string>& pages)
{
    std::string all;
    for (const std::string& page : pages) {
        all += page;
    }
    return all;
}

std::string flowing(const std::string& text)
{
    return QString::fromStdString(text).simplified().toStdString();
}

} // namespace mrl::test
