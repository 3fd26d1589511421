#pragma once

#include "hostlib/data/cdb/fact_reader.h"
#include "hostlib/data/cdb/reader.h"
#include "hostlib/data/cdb/records_ahead.h"
#include "hostlib/data/cdb/sqlite/store.h"
#include "hostlib/data/cdb/write.h"

namespace mrl::cdb {

/// Turns writes into changes of the store within the open transaction, and adds up what they change in the
/// summary.
class Writer
{
  public:
    Writer(Store& store, PendingRemovals& pending, Reader& reader, FactReader& facts)
        : m_store(store), m_pending(pending), m_reader(reader), m_facts(facts),
          m_removals(store, Columns::Checksums), m_comparisons(store, Columns::Records)
    {
    }

    /// @param data the record or the fact's value, in place of what the write itself holds
    /// @return after Outcome::Failed, failure() has the reason
    Outcome apply(const Write& what, const void* data, int size);
    const Result& failure() const { return m_failure; }

    /// What the open transaction has changed in the summary so far.
    const Summary& change() const { return m_change; }
    void setChange(const Summary& change) { m_change = change; }

    /// The transaction has ended, or was taken back to an earlier state.
    void drop()
    {
        m_removals.drop();
        m_comparisons.drop();
        m_pending.drop();
    }

    /// Deletes what is still pending.
    Outcome settle();

  private:
    Outcome put(const Record& record);
    Outcome insert(const Record& record);
    Outcome replace(const Record& record, const Standing& there);
    Outcome append(const Key& key, const void* data, int size);
    Outcome overwrite(const Key& key, int position, const void* data, int size);
    Outcome erase(const Key& key);
    Outcome setFact(const std::string& name, const std::string& value);
    bool stands(const Record& record, const Standing& there);
    bool find(const Key& key, Tally& out);
    std::optional<Standing> known(const Key& key);
    Outcome failed(const Result& reason);
    Outcome damaged();

    Store& m_store;
    PendingRemovals& m_pending;
    Reader& m_reader;
    FactReader& m_facts;
    RecordsAhead m_removals;
    RecordsAhead m_comparisons;
    Summary m_change;
    Result m_failure;
};

} // namespace mrl::cdb
