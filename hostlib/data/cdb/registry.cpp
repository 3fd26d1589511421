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
    databases.push_back(std::move(database));
    return static_cast<int>(databases.size());
}

void Registry::close(int db)
{
    if (find(db) == nullptr) {
        return;
    }
    databases[static_cast<std::size_t>(db) - 1].reset();
    if (currentIndex == db) {
        currentIndex = -1;
    }
}

void Registry::pauseAll()
{
    if (pauses++ > 0) {
        return;
    }
    for (const auto& database : databases) {
        if (database) {
            database->pause();
        }
    }
}

void Registry::resumeAll()
{
    if (--pauses > 0) {
        return;
    }
    for (const auto& database : databases) {
        if (database) {
            database->resume();
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
