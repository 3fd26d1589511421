#pragma once

#include <list>
#include <unordered_map>

#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/failures.h"
#include "hostlib/data/cdb/pending_removals.h"
#include "hostlib/data/cdb/sqlite/store.h"
#include "hostlib/data/cdb/walk.h"

namespace mrl::cdb {

/// Reads keys and records as callers of host/mrl_cdb.h do, and remembers between two calls where they stand.
class Reader
{
  public:
    Reader(Store& store, PendingRemovals& pending, Failures& failures)
        : m_store(store), m_pending(pending), m_failures(failures), m_walk(store)
    {
    }

    /// See mrl_cdb_kenq_ex.
    int step(int* kwh, int* kwl, int direction);
    /// See mrl_cdb_get.
    cd_error_t get(const Key& key, void* buffer, int* length, int position);
    /// Appends the elements of a group in ascending order. @return false on failure
    bool elements(int kwh, std::list<int>& out);

    /// The position of a key's record that was read last, 0 when none was.
    int lastRead(const Key& key) const;

    /// What the walk knows of the key that it stands on.
    std::optional<Standing> standing(const Key& key) const { return m_walk.standing(key); }
    /// A key is being written.
    void written(const Key& key) { m_walk.written(key); }
    /// The key no longer exists.
    void deleted(const Key& key);
    /// The content is another one: forgets what was read ahead.
    void drop() { m_walk.drop(); }

  private:
    struct Hash
    {
        std::size_t operator()(const Key& key) const
        {
            const auto wide = static_cast<std::uint64_t>(static_cast<std::uint32_t>(key.kwh)) << 32U;
            return std::hash<std::uint64_t>()(wide | static_cast<std::uint32_t>(key.kwl));
        }
    };

    void noteRead(const Key& key, int position);
    cd_error_t read(const Key& key, int behind, void* buffer, int* length);
    cd_error_t deliver(const Record& record, void* buffer, int* length);
    cd_error_t absent(const Key& key);

    Status next(Key& key, bool up);

    Store& m_store;
    PendingRemovals& m_pending;
    Failures& m_failures;
    Walk m_walk;
    std::unordered_map<Key, int, Hash> m_readAt; ///< the position read last, where it is not the first
};

} // namespace mrl::cdb
