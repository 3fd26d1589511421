#include "hostlib/data/cdb/registry.h"

#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

Registry& Registry::instance()
{
    static Registry registry;
    return registry;
}

int Registry::add(std::unique_ptr<Database> database)
{
    m_databases.push_back(std::move(database));
    return static_cast<int>(m_databases.size());
}

void Registry::close(int db)
{
    if (find(db) == nullptr) {
        return;
    }
    m_databases[static_cast<std::size_t>(db) - 1].reset();
    if (m_current == db) {
        m_current = -1;
    }
}

void Registry::pauseAll()
{
    if (m_pauses++ > 0) {
        return;
    }
    for (const auto& database : m_databases) {
        if (database) {
            database->transactions().pause();
        }
    }
}

void Registry::resumeAll()
{
    if (--m_pauses > 0) {
        return;
    }
    for (const auto& database : m_databases) {
        if (database) {
            database->transactions().resume();
        }
    }
}

Both::Both(int a, int b) : first(Registry::instance().find(a)), second(Registry::instance().find(b))
{
    if (first == nullptr || second == nullptr) {
        found = notOpen(first == nullptr ? a : b);
    }
}

} // namespace mrl::cdb
