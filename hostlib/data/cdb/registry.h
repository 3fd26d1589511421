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
        return slot < m_databases.size() ? m_databases[slot].get() : nullptr;
    }
    void close(int db);

    int current() const { return m_current; }
    void setCurrent(int db) { m_current = db; }

    void pauseAll();
    void resumeAll();

  private:
    std::vector<std::unique_ptr<Database>> m_databases;
    int m_current = -1;
    int m_pauses = 0;
};

/// Two open m_databases.
struct Both
{
    Both(int a, int b);

    Database* first;
    Database* second;
    Result found; ///< which of them isn't open, the first one if neither is
};

} // namespace mrl::cdb
