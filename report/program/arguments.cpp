#include "report/program/arguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>

#include <cstdio>

#include "host/mrl_lib.h"
#include "report/words.h"

namespace mrl::report {

namespace {

constexpr int LANGUAGE_SETTING = 102;
constexpr int GERMAN = 1;

class Reader
{
  public:
    Reader();

    std::optional<ExitCode> read(const QStringList& words, const QDate& today, Arguments& arguments);

  private:
    std::optional<ExitCode> understand(const QDate& today, Arguments& arguments) const;
    QString dateProblem(const QDate& today, QDate& date) const;

    QCommandLineParser m_parser;
    QCommandLineOption m_output{{QStringLiteral("o"), QStringLiteral("output")},
                                QStringLiteral("File to write; its ending says what: .pdf, .html or .htm."),
                                QStringLiteral("OUT")};
    QCommandLineOption m_language{{QStringLiteral("l"), QStringLiteral("language")},
                                  QStringLiteral("Language of the report; yours unless given."),
                                  QStringLiteral("en|de")};
    QCommandLineOption m_date{
        QStringLiteral("date"),
        QStringLiteral("Date of the report, such as 2026-11-22; that of SOURCE_DATE_EPOCH or "
                       "today's unless given."),
        QStringLiteral("DAY")};
    QCommandLineOption m_help;
    QCommandLineOption m_version;
};

ExitCode answer(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const bool isWritten = std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()),
                                       stdout) == static_cast<std::size_t>(bytes.size()) &&
                           std::fflush(stdout) == 0;
    return isWritten ? ExitCode::Done : ExitCode::File;
}

ExitCode wrong(const QString& text)
{
    tell(text);
    tell(QStringLiteral("Run 'mrl-report --help' for more information."));
    return ExitCode::Usage;
}

Reader::Reader() : m_help(m_parser.addHelpOption()), m_version(m_parser.addVersionOption())
{
    m_parser.setApplicationDescription(QStringLiteral(
        "Writes actions and load cases of a structural project as a document for the file.\n"
        "Exit status: 0 done, 1 refused, 2 wrong usage, 3 a file could not be read or written.\n"
        "See the man page mrl-report(1)."));
    m_parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The project."));
    m_parser.addOptions({m_output, m_language, m_date});
}

/// @param date [out] of the report
/// @return what is wrong; empty when it is told well
QString Reader::dateProblem(const QDate& today, QDate& date) const
{
    const QString typed = m_parser.value(m_date);
    const QByteArray epoch = qgetenv("SOURCE_DATE_EPOCH");
    if (m_parser.isSet(m_date)) {
        date = QDate::fromString(typed, Qt::ISODate);
        return date.isValid() ? QString()
                              : QStringLiteral("--date: '%1' is no day such as 2026-11-22").arg(typed);
    }
    if (epoch.isEmpty()) {
        date = today;
        return {};
    }
    bool isNumber = false;
    date = QDateTime::fromSecsSinceEpoch(epoch.toLongLong(&isNumber), Qt::UTC).date();
    return isNumber ? QString()
                    : QStringLiteral("SOURCE_DATE_EPOCH: '%1' is no number of seconds")
                          .arg(QString::fromLocal8Bit(epoch));
}

std::optional<ExitCode> Reader::understand(const QDate& today, Arguments& arguments) const
{
    const QStringList files = m_parser.positionalArguments();
    if (files.size() != 1) {
        return wrong(files.isEmpty()
                         ? QStringLiteral("FILE is required: the project")
                         : QStringLiteral("one project at a time: '%1' is too much").arg(files[1]));
    }
    const QString output = m_parser.value(m_output);
    const auto kind = kindOf(output);
    if (output.isEmpty()) {
        return wrong(QStringLiteral("--output is required: the file to write"));
    }
    if (!kind) {
        return wrong(
            QStringLiteral("%1: the name of the file has to end in .pdf, .html or .htm").arg(output));
    }
    const bool isGerman = mrl_lib_setting(LANGUAGE_SETTING) == GERMAN;
    const QString language =
        m_parser.isSet(m_language) ? m_parser.value(m_language) : QString::fromLatin1(isGerman ? "de" : "en");
    if (language != QLatin1String("en") && language != QLatin1String("de")) {
        return wrong(QStringLiteral("--language: '%1' is none of en, de").arg(language));
    }
    QDate date;
    if (const QString problem = dateProblem(today, date); !problem.isEmpty()) {
        return wrong(problem);
    }
    arguments = {files.first(), output, *kind, language, date};
    return std::nullopt;
}

std::optional<ExitCode> Reader::read(const QStringList& words, const QDate& today, Arguments& arguments)
{
    if (!m_parser.parse(words)) {
        return wrong(m_parser.errorText());
    }
    if (m_parser.isSet(m_help)) {
        return answer(m_parser.helpText());
    }
    if (m_parser.isSet(m_version)) {
        return answer(QStringLiteral("mrl-report %1\n").arg(QCoreApplication::applicationVersion()));
    }
    return understand(today, arguments);
}

} // namespace

std::optional<ExitCode> readArguments(const QStringList& words, const QDate& today, Arguments& arguments)
{
    return Reader().read(words, today, arguments);
}

void tell(const QString& text) { std::fprintf(stderr, "mrl-report: %s\n", plain(text).toUtf8().constData()); }

} // namespace mrl::report
