#pragma once

#include <map>

#include "hostlib/data/cdb/sqlite/store.h"

namespace mrl::cdb {

/// Keys that the open transaction has deleted, but whose rows still stand in the store.
///
/// Whoever saves a table deletes all its keys and puts them again, mostly as they were. As long as the rows
/// stand, such a put is a comparison and touches no page.
class PendingRemovals
{
  public:
    explicit PendingRemovals(Store& store) : m_store(store) {}

    void add(const Key& key, const Tally& rows) { m_keys.emplace_hint(m_keys.end(), key, rows); }
    /// @return what the key's rows add up to; null when it isn't pending
    const Tally* find(const Key& key) const
    {
        if (m_keys.empty()) {
            return nullptr;
        }
        const auto found = m_keys.find(key);
        return found != m_keys.end() ? &found->second : nullptr;
    }
    /// The key's rows are dealt with otherwise.
    void forget(const Key& key) { m_keys.erase(key); }

    /// Deletes the rows of all of them. @return Failed also leaves what could not be deleted pending
    Status flush()
    {
        while (!m_keys.empty()) {
            const auto first = m_keys.begin();
            if (m_store.erase(first->first, first->second) == Status::Failed) {
                return Status::Failed;
            }
            m_keys.erase(first);
        }
        return Status::Ok;
    }
    /// The transaction has ended or was taken back.
    void drop() { m_keys.clear(); }

  private:
    struct Less
    {
        bool operator()(const Key& a, const Key& b) const
        {
            return a.kwh != b.kwh ? a.kwh < b.kwh : a.kwl < b.kwl;
        }
    };
    Store& m_store;
    std::map<Key, Tally, Less> m_keys;
};

} // namespace mrl::cdb
