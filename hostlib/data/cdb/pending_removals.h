#pragma once

#include <map>
#include <optional>
#include <vector>

#include "hostlib/data/cdb/standing.h"

namespace mrl::cdb {

/// Keys that the open transaction has deleted, but whose rows still stand in the store.
///
/// Whoever saves a table deletes all its keys and puts them again, mostly as they were. As long as the rows
/// stand, such a put is a comparison and touches no page.
class PendingRemovals
{
  public:
    explicit PendingRemovals(Store& store) : m_store(store) {}

    void add(const Key& key, const Standing& there)
    {
        if (m_keys.empty()) {
            m_bytes.clear();
        }
        const auto size = static_cast<std::size_t>(there.size);
        const bool isKept = there.bytes != nullptr && m_bytes.size() + size <= MOST_BYTES;
        m_keys.emplace_hint(m_keys.end(), key, Rows{there.records, isKept, m_bytes.size(), there.size});
        if (isKept) {
            const auto* bytes = static_cast<const unsigned char*>(there.bytes);
            m_bytes.insert(m_bytes.end(), bytes, bytes + size);
        }
    }
    bool contains(const Key& key) { return find(key).has_value(); }
    /// @return what still stands under a key that is pending; its bytes stay until the next add()
    std::optional<Standing> find(const Key& key)
    {
        if (m_keys.empty() || Less()(m_keys.rbegin()->first, key)) {
            return std::nullopt;
        }
        const auto found = search(key);
        if (found == m_keys.end()) {
            return std::nullopt;
        }
        const Rows& rows = found->second;
        return Standing{rows.records, rows.isKept ? m_bytes.data() + rows.offset : nullptr, rows.size, true};
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
            if (m_store.erase(first->first, first->second.records) == Status::Failed) {
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
        m_bytes = {}; // up to 32 MB, for the transaction alone
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
    struct Rows
    {
        Tally records;
        bool isKept;        ///< the bytes of the first one stand in m_bytes
        std::size_t offset; ///< where
        int size;
    };
    using Keys = std::map<Key, Rows, Less>;

    static constexpr std::size_t MOST_BYTES = 32U
                                              << 20U; // 170,000 load cases; beyond, the file is read again

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
    std::vector<unsigned char> m_bytes;
    Keys::iterator m_next = m_keys.end(); ///< where the next one is likely to be
};

} // namespace mrl::cdb
