#pragma once

#include <cstddef>
#include <memory>
#include <string>

#include <sqlite3.h>

namespace mrl::cdb {

struct CloseConnection
{
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using Connection = std::unique_ptr<sqlite3, CloseConnection>;

/// A statement that is compiled at its first use and kept.
class Statement
{
  public:
    explicit Statement(std::string sql) : m_sql(std::move(sql)) {}

    /// @return null when it does not compile; the connection then has the reason
    sqlite3_stmt* on(sqlite3* connection)
    {
        if (!m_compiled) {
            sqlite3_stmt* made = nullptr;
            sqlite3_prepare_v3(connection, m_sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &made, nullptr);
            m_compiled.reset(made);
        }
        return m_compiled.get();
    }

  private:
    struct Finalize
    {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };
    std::string m_sql;
    std::unique_ptr<sqlite3_stmt, Finalize> m_compiled;
};

/// One run of a statement. Its end resets the statement, so that no snapshot outlives it.
class Run
{
  public:
    Run(Statement& text, sqlite3* connection) : m_statement(text.on(connection)), m_db(connection) {}
    ~Run() { sqlite3_reset(m_statement); } // harmless for null
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    Run& bind(int at, sqlite3_int64 value)
    {
        sqlite3_bind_int64(m_statement, at, value);
        return *this;
    }
    /// The bytes must outlive the run.
    Run& bind(int at, const void* data, int size)
    {
        sqlite3_bind_blob(m_statement, at, data, size, SQLITE_STATIC);
        return *this;
    }
    Run& bind(int at, const std::string& text)
    {
        sqlite3_bind_text(m_statement, at, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
        return *this;
    }

    /// Goes back to before the first row; what is bound stays.
    Run& rewind()
    {
        sqlite3_reset(m_statement);
        return *this;
    }
    /// @return SQLITE_ROW, SQLITE_DONE, or an extended error code
    int step() { return m_statement != nullptr ? sqlite3_step(m_statement) : sqlite3_extended_errcode(m_db); }

    int integer(int column) const { return sqlite3_column_int(m_statement, column); }
    sqlite3_int64 wide(int column) const { return sqlite3_column_int64(m_statement, column); }
    int type(int column) const { return sqlite3_column_type(m_statement, column); }
    const void* bytes(int column) const { return sqlite3_column_blob(m_statement, column); }
    int size(int column) const { return sqlite3_column_bytes(m_statement, column); }
    std::string text(int column) const
    {
        const auto* p = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
        return p != nullptr ? std::string(p, static_cast<std::size_t>(size(column))) : std::string();
    }

  private:
    sqlite3_stmt* m_statement;
    sqlite3* m_db;
};

} // namespace mrl::cdb
