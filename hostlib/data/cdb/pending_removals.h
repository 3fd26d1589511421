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
    const Tally* find(const Key& key)
    {
        if (m_keys.empty() || Less()(m_keys.rbegin()->first, key)) {
            return nullptr;
        }
        const auto found = search(key);
        return found != m_keys.end() ? &found->second : nullptr;
    }
    /// The key's rows are dealt with otherwise.
    void forget(const Key& key)
    {
        if (const auto found = search(key); found != m_keys.end()) {
            m_next = m_keys.erase(found);
        }
    }

    /// Deletes the rows of all of them. @return Failed also leaves what could not be deleted pending
    Status flush()
    {
        m_next = m_keys.end();
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
    void drop()
    {
        m_keys.clear();
        m_next = m_keys.end();
    }

  private:
    struct Less
    {
        bool operator()(const Key& a, const Key& b) const
        {
            return a.kwh != b.kwh ? a.kwh < b.kwh : a.kwl < b.kwl;
        }
    };
    using Keys = std::map<Key, Tally, Less>;

    /// Whoever puts the keys again does so in their order, so the next one is mostly known.
    Keys::iterator search(const Key& key)
    {
        if (m_next == m_keys.end() || m_next->first != key) {
            m_next = m_keys.find(key);
        }
        return m_next;
    }

    Store& m_store;
    Keys m_keys;
    Keys::iterator m_next = m_keys.end(); ///< where the next one is likely to be
};

} // namespace mrl::cdb
