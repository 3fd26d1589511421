#pragma once

/// Runs the program as a user would.

#include <gtest/gtest.h>

#include <QByteArray>
#include <QTemporaryDir>
#include <algorithm>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace mrl::test {

struct Outcome
{
    int code = -1;
    std::string out;
    std::string err;

    nlohmann::json json() const { return nlohmann::json::parse(out); }
};

/// Runs mrl-lc with these arguments.
Outcome mrlLc(const std::vector<std::string>& arguments);

/// The same, while no file may grow beyond a size; what is written behind that fails.
Outcome mrlLcWithin(int kibibytes, const std::vector<std::string>& arguments);

/// The same with standard output going to a file.
Outcome mrlLcInto(const std::string& outFile, const std::vector<std::string>& arguments);

/// The same with variables of the environment. @param variables NAME=VALUE and a blank behind each
Outcome mrlLcWith(const std::string& variables, const std::vector<std::string>& arguments);

std::string contentOf(const std::string& file);

/// A folder for one test, with a project that has a few actions.
class CliTest : public testing::Test
{
  protected:
    CliTest() : file(path("p.cdb")) {}

    std::string path(const std::string& name) const { return folder.path().toStdString() + "/" + name; }

    /// Runs a command and expects success.
    Outcome done(const std::vector<std::string>& arguments) const
    {
        const Outcome run = mrlLc(arguments);
        EXPECT_EQ(run.code, 0) << run.err;
        EXPECT_EQ(run.err, "");
        return run;
    }

    /// Runs a command, expects this exit code and a line on standard error, and returns that line.
    std::string fails(int code, const std::vector<std::string>& arguments) const
    {
        const Outcome run = mrlLc(arguments);
        EXPECT_EQ(run.code, code) << run.err;
        EXPECT_NE(run.err, "");
        return run.err;
    }

    /// Makes the project of the test with the actions G, Q and W of the European buildings code.
    void makeProject() const
    {
        done({"new", file, "--code", "en1990"});
        for (const char* action : {"G", "Q", "W"}) {
            done({"action", "create", file, action});
        }
    }

    nlohmann::json loadCase(int number) const
    {
        return done({"case", "show", file, std::to_string(number), "--json"}).json();
    }
    /// The first record of a key as it is stored.
    template <class Record>
    Record stored(int group, const std::string& element) const
    {
        const auto digits = done({"get", file, std::to_string(group), element, "--json"})
                                .json()[0]["bytes"]
                                .get<std::string>();
        const QByteArray bytes = QByteArray::fromHex(QByteArray::fromStdString(digits));
        Record record{};
        EXPECT_EQ(bytes.size(), int(sizeof record));
        std::memcpy(&record, bytes.constData(), std::min(sizeof record, std::size_t(bytes.size())));
        return record;
    }
    nlohmann::json action(const std::string& name) const
    {
        return done({"action", "show", file, name, "--json"}).json();
    }

  private:
    QTemporaryDir folder;

  protected:
    const std::string file;
};

} // namespace mrl::test
