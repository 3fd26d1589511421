#pragma once

#include <memory>
#include <string>

#include "hostlib/data/cdb/fact_reader.h"
#include "hostlib/data/cdb/failures.h"
#include "hostlib/data/cdb/reader.h"
#include "hostlib/data/cdb/sqlite/store.h"
#include "hostlib/data/cdb/transactions.h"

namespace mrl::cdb {

/// One open database: its store, and what reads and writes there remember between two calls.
class Database
{
  public:
    explicit Database(std::unique_ptr<Store> opened)
        : m_store(std::move(opened)), m_pending(*m_store), m_reader(*m_store, m_pending, m_failures),
          m_facts(*m_store, m_failures), m_transactions(*m_store, m_pending, m_reader, m_facts, m_failures)
    {
    }
    ~Database()
    {
        while (m_transactions.depth() > 0) {
            m_transactions.rollback();
        }
    }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const std::string& file() const { return m_store->file(); }
    bool isReadOnly() const { return m_store->access() == Access::ReadOnly; }

    Store& store() { return *m_store; }
    Reader& reader() { return m_reader; }
    FactReader& facts() { return m_facts; }
    Transactions& transactions() { return m_transactions; }
    const Transactions& transactions() const { return m_transactions; }
    Failures& failures() { return m_failures; }

    Outcome put(const Key& key, const void* data, int size)
    {
        return m_transactions.write({Write::Kind::Put, key, 0, {}, {}}, data, size);
    }
    Outcome append(const Key& key, const void* data, int size)
    {
        return m_transactions.write({Write::Kind::Append, key, 0, {}, {}}, data, size);
    }
    /// @param position of a record that is there
    Outcome overwrite(const Key& key, int position, const void* data, int size)
    {
        return m_transactions.write({Write::Kind::Overwrite, key, position, {}, {}}, data, size);
    }
    Outcome remove(const Key& key)
    {
        return m_transactions.write({Write::Kind::Delete, key, 0, {}, {}}, "", 0);
    }
    /// An empty value removes the fact.
    Outcome setFact(const std::string& name, const std::string& value)
    {
        if (name.empty()) {
            return m_transactions.refuse("a fact needs a name");
        }
        return m_transactions.write({Write::Kind::SetFact, {}, 0, name, {}}, value.data(),
                                    static_cast<int>(value.size()));
    }

  private:
    std::unique_ptr<Store> m_store;
    Failures m_failures;
    PendingRemovals m_pending;
    Reader m_reader;
    FactReader m_facts;
    Transactions m_transactions;
};

} // namespace mrl::cdb
