#pragma once

#include <memory>
#include <vector>

#include "hostlib/data/cdb/database.h"

namespace mrl::cdb {

/// The open databases of the process and the current one. Indexes count up and are never used again.
class Registry
{
  public:
    static Registry& instance();

    int add(std::unique_ptr<Database> database);
    /// @return null when the index is not open
    Database* find(int db) const
    {
        const auto slot = static_cast<std::size_t>(db) - 1; // 0 and negative ones wrap round to far outside
        return slot < databases.size() ? databases[slot].get() : nullptr;
    }
    void close(int db);

    int current() const { return currentIndex; }
    void setCurrent(int db) { currentIndex = db; }

    void pauseAll();
    void resumeAll();

  private:
    std::vector<std::unique_ptr<Database>> databases;
    int currentIndex = -1;
    int pauses = 0;
};

/// Two open databases.
struct Both
{
    Both(int a, int b);

    Database* first;
    Database* second;
    Result found; ///< which of them isn't open, the first one if neither is
};

} // namespace mrl::cdb
