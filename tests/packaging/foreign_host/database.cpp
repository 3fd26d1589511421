// The database half of a host's contracts on a std::map.
#include "database.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>
#include <map>
#include <tuple>
#include <utility>
#include <vector>

#include "host/mrl_cdb.h"

namespace {

using Record = std::vector<char>;

struct Element
{
    std::vector<Record> records;
    std::size_t lastRead = 0;
};

using Key = std::pair<int, int>;
using Database = std::map<Key, Element>;

std::vector<Database> databases;
int currentDatabase = -1;

Database* find(int db)
{
    return db >= 0 && db < static_cast<int>(databases.size()) ? &databases[static_cast<std::size_t>(db)]
                                                              : nullptr;
}

Element* find(int db, int kwh, int kwl)
{
    Database* const database = find(db);
    if (!database) {
        return nullptr;
    }
    const auto found = database->find({kwh, kwl});
    return found == database->end() ? nullptr : &found->second;
}

} // namespace

int openDatabase()
{
    databases.emplace_back();
    return static_cast<int>(databases.size()) - 1;
}

int mrl_cdb_status(int) { return currentDatabase; }

int mrl_cdb_use(int db, int)
{
    if (find(db)) {
        currentDatabase = db;
    }
    return currentDatabase;
}

int mrl_cdb_kenq_ex(int db, int* kwh, int* kwl, int direction)
{
    if (const Database* const database = find(db)) {
        const Key from{*kwh, *kwl};
        const auto above = direction > 0 ? database->upper_bound(from) : database->lower_bound(from);
        if (direction > 0 ? above != database->end() : above != database->begin()) {
            std::tie(*kwh, *kwl) = direction > 0 ? above->first : std::prev(above)->first;
            return 0;
        }
    }
    *kwh = direction > 0 ? std::numeric_limits<int>::max() : std::numeric_limits<int>::min();
    return 1;
}

cd_error_t mrl_cdb_get(int db, int kwh, int kwl, void* buffer, int* length, int position)
{
    Element* const element = find(db, kwh, kwl);
    if (!element) {
        return CD_NONE;
    }
    const std::size_t wanted = position == 0 ? 0 : element->lastRead + 1;
    if (wanted >= element->records.size()) {
        return CD_END;
    }
    element->lastRead = wanted;
    const Record& record = element->records[wanted];
    const auto size = static_cast<std::size_t>(*length);
    const std::size_t taken = std::min(record.size(), size);
    std::memset(buffer, 0, size);
    std::memcpy(buffer, record.data(), taken);
    *length = static_cast<int>(taken);
    return taken < record.size() ? CD_CUT : CD_OK;
}

cd_error_t mrl_cdb_put(int db, int kwh, int kwl, const void* data, const int* length, int position)
{
    Database* const database = find(db);
    if (!database || (position < 0 && !find(db, kwh, kwl))) {
        return CD_NONE;
    }
    if (*length == 0) {
        return database->erase({kwh, kwl}) > 0 ? CD_OK : CD_NONE;
    }
    const auto* const bytes = static_cast<const char*>(data);
    Element& element = (*database)[{kwh, kwl}];
    if (position < 0) {
        element.records[element.lastRead].assign(bytes, bytes + *length);
    } else {
        element = {{Record(bytes, bytes + *length)}, 0};
    }
    return CD_OK;
}

int mrl_cdb_free_ex(int, int, int) { return 0; }
