#pragma once

/// Runs the programs as a user would, and looks at what they wrote.

#include <gmock/gmock.h>

#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace mrl::test {

struct Outcome
{
    int code = -1;
    std::string out;
    std::string err;
};

/// @param variables of the environment beside those of the test
Outcome runProgram(const QString& program, const QStringList& arguments,
                   const std::vector<std::pair<QString, QString>>& variables = {});
/// A command of the shell. @param folder where it runs
Outcome shell(const QString& command, const QString& folder = {});

std::string contentOf(const QString& file);

/// A folder for one test, and what is done with projects in it.
class ReportTest : public testing::Test
{
  protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    /// A copy of a sample.
    QString sample(const QString& name) const;
    /// Makes a project. @param script lines such as `action G` and `case 1 G "Dead weight"`
    QString project(const QString& script, const QString& design = QStringLiteral("en1990")) const;

    /// Runs mrl-lc and expects success.
    std::string lc(const QStringList& arguments) const;
    nlohmann::json lcJson(QStringList arguments) const
    {
        return nlohmann::json::parse(lc(arguments << QStringLiteral("--json")));
    }

    /// Writes a report and expects success. @return the name of the file
    QString write(const QString& project, const QString& kind, QStringList options = {}) const;
    /// The text of a report as HTML, without its tags.
    std::string html(const QString& project, const QStringList& options = {}) const;
    /// The text of each page of a report as PDF, laid out as on paper.
    std::vector<std::string> pages(const QString& project, const QStringList& options = {}) const;

  private:
    QTemporaryDir m_folder;
};

/// The pages of a PDF as text.
std::vector<std::string> pagesOf(const QString& pdf);
/// All of it.
std::string joined(const std::vector<std::string>& pages);
/// With single blanks for all that is white, so that it makes no difference where a line ends.
std::string flowing(const std::string& text);

} // namespace mrl::test
