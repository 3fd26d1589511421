// What the program calls the managers for. It runs with managers that only note their calls.
#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "tests/workbench/project_file.h"

namespace mrl::test {

namespace {

using testing::ElementsAre;

/// A copy of the program beside managers of the tests' own.
class PluginCalls : public ::testing::Test
{
  protected:
    PluginCalls()
    {
        const QDir root(m_folder.path());
        root.mkdir(QStringLiteral("bin"));
        root.mkdir(QStringLiteral("lib"));
        EXPECT_TRUE(QFile::copy(QCoreApplication::applicationDirPath() + QStringLiteral("/mrl-workbench"),
                                root.filePath(QStringLiteral("bin/mrl-workbench"))));
        const QDir built(QCoreApplication::applicationDirPath() + QStringLiteral("/../lib"));
        const QStringList hostLibraries = built.entryList({QStringLiteral("libmrl_host*.so*")});
        for (const QString& library : hostLibraries) {
            EXPECT_TRUE(
                QFile::link(built.filePath(library), root.filePath(QStringLiteral("lib/") + library)));
        }
        EXPECT_TRUE(QFile::link(QStringLiteral(MRL_NOTING_MANAGERS),
                                root.filePath(QStringLiteral("lib/libmrl_loadcase.so"))));
    }

    /// Runs the program on the project until a manager's dialog ends it.
    /// @return the calls as "plug-in code", with " !" behind one that came without an open document
    std::vector<QString> callsOf(const QStringList& options) const
    {
        const QString notes = m_folder.filePath(QStringLiteral("notes"));
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("MRL_NOTES"), notes);
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        program.setProcessEnvironment(environment);
        program.start(m_folder.filePath(QStringLiteral("bin/mrl-workbench")),
                      QStringList{m_project.path()} + options);
        const bool ended = program.waitForFinished(60000);
        EXPECT_TRUE(ended && program.exitStatus() == QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
        QFile file(notes);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        std::vector<QString> calls;
        for (const QByteArray& line : file.readAll().split('\n')) {
            const QList<QByteArray> words = line.split(' ');
            if (words.size() == 3) {
                calls.push_back(words[0] + ' ' + words[1] + (words[2] == "1" ? "" : " !"));
            }
        }
        file.remove();
        return calls;
    }
    /// The calls of one code.
    static std::vector<QString> of(const std::vector<QString>& calls, int code)
    {
        std::vector<QString> found;
        for (const QString& call : calls) {
            if (call.section(' ', 1, 1).toInt() == code) {
                found.push_back(call.section(' ', 0, 0) + (call.endsWith('!') ? " !" : ""));
            }
        }
        return found;
    }

  private:
    QTemporaryDir m_folder;
    ProjectFile m_project;
};

TEST_F(PluginCalls, OpeningTellsBothManagersToRefreshTheirKeysBeforeAnythingElse)
{
    const auto calls = callsOf({QStringLiteral("--manager"), QStringLiteral("actions")});
    EXPECT_THAT(of(calls, 1), ElementsAre("actionmanager", "lcmanager"));
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[0], "actionmanager 1");
    EXPECT_EQ(calls[1], "lcmanager 1");
}

TEST_F(PluginCalls, OptionOpensTheManagerThatItNames)
{
    EXPECT_THAT(of(callsOf({QStringLiteral("--manager"), QStringLiteral("actions")}), 2),
                ElementsAre("actionmanager"));
    EXPECT_THAT(of(callsOf({QStringLiteral("--manager"), QStringLiteral("loadcases")}), 2),
                ElementsAre("lcmanager"));
}

} // namespace

} // namespace mrl::test
