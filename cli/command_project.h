#pragma once

/// The project that a command works on.

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "hostlib/data/cdb/project.h"

namespace mrl::cli {

/// An open project with its design code active. Closes itself. Every failure is thrown.
class Project
{
  public:
    static Project openForReading(const std::string& file)
    {
        return Project(cdb::openReadOnly(file), file, Access::Read);
    }
    /// Begins the transaction of the command: nothing is written unless commit() comes through.
    static Project openForWriting(const std::string& file)
    {
        return Project(cdb::open(file), file, Access::Write);
    }
    /// Makes a new project. Nothing of that name appears unless `fill` comes through, its commit included.
    static void create(const std::string& file, const std::function<void(Project&)>& fill);

    int db() const { return m_handle.db; }
    const std::string& file() const { return m_name; }

    /// All facts of the project.
    std::map<std::string, std::string> facts() const;

    /// Makes the writes of the command durable.
    void commit();

    /// Refuses what was asked. @param reason one line; the file's name goes in front
    [[noreturn]] void refuse(const std::string& reason) const;

    /// Throws when the file could not be read or written since it was opened.
    void throwOnError() const;

  private:
    enum class Access { Read, Write };
    struct Handle
    {
        explicit Handle(int index) : db(index) {}
        ~Handle() { cdb::close(db); }
        Handle(const Handle&) = delete;
        Handle& operator=(const Handle&) = delete;
        int db;
    };

    Project(const cdb::Opened& opened, std::string file, Access access);

    Handle m_handle;
    std::string m_name;
    std::unique_ptr<cdb::Transaction> m_transaction; // ends before the handle
};

} // namespace mrl::cli
