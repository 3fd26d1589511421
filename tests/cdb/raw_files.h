#pragma once

/// Files looked at and changed behind the library's back.

#include <fstream>
#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

inline std::string contentOf(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Keeps the file's inode, as `cp` does.
inline void write(const std::string& file, const std::string& content)
{
    std::ofstream(file, std::ios::binary) << content;
}

/// Runs SQL on a file behind the library's back.
inline void tamper(const std::string& file, const std::string& sql)
{
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
    char* error = nullptr;
    sqlite3_exec(raw, sql.c_str(), nullptr, nullptr, &error);
    EXPECT_STREQ(error, nullptr) << sql;
    sqlite3_free(error);
    sqlite3_close(raw);
}

/// Runs a test's body in a process that may not do what root may. No database may be open.
inline int asNobody(const std::function<int()>& body)
{
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) {
            _exit(99);
        }
        _exit(body());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Leaves a project in the middle of a commit, as a crash does: half of the pages are in the file, the former
/// ones in the journal beside it.
/// @param work SQL that changes many pages
inline void crashInTheMiddle(const std::string& file, const std::string& to, const std::string& work)
{
    sqlite3* raw = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &raw), SQLITE_OK);
    const std::string sql = "PRAGMA cache_size=2;PRAGMA cache_spill=2;BEGIN;" + work;
    ASSERT_EQ(sqlite3_exec(raw, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_db_cacheflush(raw);
    const std::string crashed = contentOf(file);
    const std::string journal = contentOf(file + "-journal");
    sqlite3_close(raw);
    ASSERT_FALSE(journal.empty());
    write(to, crashed);
    write(to + "-journal", journal);
}
