#include "workbench/command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string_view>

namespace mrl::workbench {

namespace {

constexpr int DONE = 0;
constexpr int WRONG_USAGE = 2;

std::optional<Manager> managerOf(const QString& word)
{
    if (word == QLatin1String("actions")) {
        return Manager::Actions;
    }
    return word == QLatin1String("loadcases") ? std::optional(Manager::LoadCases) : std::nullopt;
}

class Reader
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
  public:
    Reader()
        : m_manager(QStringLiteral("manager"), tr("Opens a manager on the project: actions or loadcases."),
                    QStringLiteral("actions|loadcases")),
          m_help(m_parser.addHelpOption()), m_version(m_parser.addVersionOption())
    {
        m_parser.setApplicationDescription(tr("Edits the actions and load cases of structural models."));
        m_parser.addPositionalArgument(QStringLiteral("FILE"), tr("The project to open."),
                                       QStringLiteral("[FILE]"));
        m_parser.addOption(m_manager);
    }

    std::optional<int> read(const QStringList& arguments, CommandLine& line)
    {
        const bool understood = m_parser.parse(arguments);
        if (understood && m_parser.isSet(m_help)) {
            return say(stdout, m_parser.helpText(), DONE);
        }
        if (understood && m_parser.isSet(m_version)) {
            return say(stdout, version(), DONE);
        }
        const QString wrong = understood ? contradiction() : m_parser.errorText();
        if (!wrong.isEmpty()) {
            return say(stderr, named(wrong) + QLatin1String("\n\n") + m_parser.helpText(), WRONG_USAGE);
        }
        line.project = m_parser.positionalArguments().value(0);
        line.manager = managerOf(m_parser.value(m_manager));
        return std::nullopt;
    }

  private:
    static QString named(const QString& text)
    {
        return QCoreApplication::applicationName() + QLatin1String(": ") + text;
    }
    static QString version()
    {
        return QCoreApplication::applicationName() + QLatin1Char(' ') +
               QCoreApplication::applicationVersion() + QLatin1Char('\n');
    }
    static int say(std::FILE* where, const QString& text, int code)
    {
        std::fputs(qPrintable(text), where);
        return code;
    }

    /// Why arguments that are each valid can't be combined; empty if they can.
    QString contradiction() const
    {
        if (m_parser.positionalArguments().size() > 1) {
            return tr("Only one project can be opened at a time.");
        }
        const QString word = m_parser.value(m_manager);
        return m_parser.isSet(m_manager) && !managerOf(word) ? tr("There is no manager '%1'.").arg(word)
                                                             : QString();
    }

    QCommandLineParser m_parser;
    QCommandLineOption m_manager;
    QCommandLineOption m_help;
    QCommandLineOption m_version;
};

} // namespace

bool asksAboutTheProgram(int argc, char** argv)
{
    return std::any_of(argv, argv + argc, [](const char* argument) {
        static constexpr std::string_view QUESTIONS[] = {"-h", "--help", "-v", "--version"};
        return std::find(std::begin(QUESTIONS), std::end(QUESTIONS), argument) != std::end(QUESTIONS);
    });
}

std::optional<int> readCommandLine(const QStringList& arguments, CommandLine& line)
{
    return Reader().read(arguments, line);
}

} // namespace mrl::workbench
