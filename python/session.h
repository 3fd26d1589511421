#pragma once

/// An open project, as Python holds it.

#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "hostlib/data/cdb/project.h"

namespace mrl::python {

/// What the world does, or what was asked can't be done: becomes mrl.Error.
class Failure : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

void throwUnless(const cdb::Result& result);

/// An open project with its design code active. Belongs to the thread that opened it.
class Session
{
  public:
    Session(const std::string& file, bool isWritable);
    ~Session() { close(); }
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    void close();
    bool isOpen() const { return m_db >= 0; }
    const std::string& file() const { return m_file; }
    /// The index of the database. Throws where the project is closed or could not be read.
    int db() const;
    bool isWritable() const { return m_isWritable; }
    std::map<std::string, std::string> facts() const;

  private:
    int m_db = -1;
    std::string m_file;
    bool m_isWritable;
};

} // namespace mrl::python
