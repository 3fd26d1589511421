#include "python/session.h"

#include "host/mrl_dlib.h"

namespace mrl::python {

void throwUnless(const cdb::Result& result)
{
    if (!result) {
        throw Failure(result.text);
    }
}

Session::Session(const std::string& file, bool isWritable) : m_file(file), m_isWritable(isWritable)
{
    const cdb::Opened opened = isWritable ? cdb::open(file) : cdb::openReadOnly(file);
    throwUnless(opened.result);
    m_db = opened.db;
    mrl_dlib_ini_switch(m_db); // a project without a design code is still a project
}

void Session::close()
{
    if (m_db >= 0) {
        cdb::close(m_db);
        m_db = -1;
    }
}

int Session::db() const
{
    if (m_db < 0) {
        throw Failure(m_file + ": the project is closed");
    }
    throwUnless(cdb::stickyError(m_db));
    return m_db;
}

std::map<std::string, std::string> Session::facts() const
{
    std::map<std::string, std::string> facts;
    throwUnless(cdb::facts(db(), facts));
    return facts;
}

} // namespace mrl::python
