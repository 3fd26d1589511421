#include <QFileInfo>
#include <QGuiApplication>
#include <QHash>

#include <cstdio>
#include <ctime>
#include <new>

#include "hostlib/data/cdb/project.h"
#include "report/compose.h"
#include "report/program/arguments.h"
#include "report/program/translation.h"

namespace {

using mrl::report::Arguments;
using mrl::report::ExitCode;
using mrl::report::tell;

class Project
{
  public:
    explicit Project(const QString& file) : m_opened(mrl::cdb::openReadOnly(file.toStdString())) {}
    ~Project() { mrl::cdb::close(m_opened.db); }
    Project(const Project&) = delete;
    Project& operator=(const Project&) = delete;

    int db() const { return m_opened.db; }
    /// The first failure since it was opened.
    mrl::cdb::Result state() const { return m_opened ? mrl::cdb::stickyError(m_opened.db) : m_opened.result; }

  private:
    mrl::cdb::Opened m_opened;
};

ExitCode failed(const mrl::cdb::Result& result)
{
    tell(QString::fromStdString(result.text));
    return ExitCode::File;
}

ExitCode write(const Arguments& arguments)
{
    const Project project(arguments.project);
    if (const auto state = project.state(); !state) {
        return failed(state);
    }
    if (QFileInfo(arguments.output) == QFileInfo(arguments.project)) {
        tell(arguments.project + QStringLiteral(": the project itself can't be the file to write"));
        return ExitCode::Refused;
    }
    const auto data = mrl::report::readProject(project.db(), arguments.project);
    if (const auto state = project.state(); !state) {
        return failed(state);
    }
    const mrl::report::Report report =
        mrl::report::compose(data, {arguments.language, arguments.date, false});
    const auto failure =
        mrl::report::writeReport(report, arguments.kind, arguments.output, [] { return true; });
    if (failure) {
        tell(arguments.output + QStringLiteral(": ") + QString::fromStdString(failure->message.english()));
        return ExitCode::File;
    }
    return ExitCode::Done;
}

/// The words of the command line, which are UTF-8 as the projects' texts are, whatever the locale says.
/// @return nothing when one of them isn't
std::optional<QStringList> wordsOf(int argc, char** argv)
{
    QStringList words;
    for (int i = 0; i < argc; ++i) {
        words << QString::fromUtf8(argv[i]);
        if (words.last().toUtf8() != argv[i]) {
            tell(QStringLiteral("argument %1 is not UTF-8: '%2'").arg(QString::number(i), words.last()));
            return std::nullopt;
        }
    }
    return words;
}

/// Qt's remarks about the desktop are of no use to somebody who wants a file.
void tellWhatIsFatal(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        tell(text);
    }
}

ExitCode run(int argc, char** argv)
{
    qInstallMessageHandler(tellWhatIsFatal);
    const auto words = wordsOf(argc, argv);
    if (!words) {
        return ExitCode::Usage;
    }
    qSetGlobalQHashSeed(0); // in the order of its hashes Qt writes the fonts of a PDF
    const QDate today = QDate::currentDate();
    // A PDF states the time zone of its making; one and the same report is to be the same everywhere.
    qputenv("TZ", "UTC");
    tzset();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen"); // nothing is shown
    }
    const QGuiApplication application(argc, argv);
    Arguments arguments;
    if (const auto code = mrl::report::readArguments(*words, today, arguments)) {
        return *code;
    }
    const QString missing = mrl::report::speak(arguments.language);
    if (!missing.isEmpty()) {
        tell(missing);
        return ExitCode::File;
    }
    if (!mrl::report::hasFonts()) {
        tell(QStringLiteral(
            "there is no font on this machine; the package fonts-dejavu-core has the one that is wanted"));
        return ExitCode::File;
    }
    return write(arguments);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication::setApplicationName(QStringLiteral("mrl-report"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MRL_VERSION));
    try {
        return static_cast<int>(run(argc, argv));
    } catch (const std::bad_alloc&) {
        std::fputs("mrl-report: there is no memory left\n", stderr);
        return static_cast<int>(ExitCode::File);
    }
}
