#include <map>

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/project.h"
#include "hostlib/data/cdb/registry.h"

namespace mrl::cdb {

namespace {

using Facts = std::map<std::string, std::string>;

/// An empty value removes the fact, as everywhere.
Result setFacts(Database& database, const Facts& facts)
{
    for (const auto& [name, value] : facts) {
        if (database.setFact(name, value) == Outcome::Failed) {
            return database.transactions().lastFailure();
        }
    }
    return {};
}

} // namespace

std::string fact(int db, const std::string& name)
{
    auto* database = Registry::instance().find(db);
    return database != nullptr ? database->facts().fact(name) : std::string();
}

Result facts(int db, std::map<std::string, std::string>& out)
{
    auto* database = Registry::instance().find(db);
    return database != nullptr ? database->facts().facts(out) : notOpen(db);
}

Result setFact(int db, const std::string& name, const std::string& value)
{
    auto* database = Registry::instance().find(db);
    return database != nullptr ? setFacts(*database, {{name, value}}) : notOpen(db);
}

Result replaceFacts(int from, int to)
{
    const Both both(from, to);
    if (!both.found) {
        return both.found;
    }
    Transaction transaction(to);
    if (Result state = transaction.state(); !state) {
        return state;
    }
    Facts wanted;
    Facts present;
    if (Result read = both.first->facts().facts(wanted); !read) {
        return read;
    }
    if (Result read = both.second->facts().facts(present); !read) {
        return read;
    }
    for (const auto& [name, value] : present) {
        wanted.emplace(name, std::string());
    }
    if (Result set = setFacts(*both.second, wanted); !set) {
        return set;
    }
    return transaction.commit();
}

} // namespace mrl::cdb
