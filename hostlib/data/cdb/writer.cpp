#include "hostlib/data/cdb/writer.h"

#include <cstring>

#include "hostlib/data/cdb/checksum.h"
#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

namespace {

Record makeRecord(const Key& key, int position, const void* data, int size)
{
    const auto sum = recordChecksum(key.kwh, key.kwl, position, data, static_cast<std::size_t>(size));
    return {key, position, sum, data, size};
}

} // namespace

Outcome Writer::failed(const Result& reason)
{
    m_failure = reason;
    return Outcome::Failed;
}

Outcome Writer::damaged()
{
    return failed(cdb::failure(Code::Corrupt, m_store.file(), "the file is damaged"));
}

Outcome Writer::apply(const Write& what, const void* data, int size)
{
    if (what.kind == Write::Kind::SetFact) {
        return setFact(what.name, {static_cast<const char*>(data), static_cast<std::size_t>(size)});
    }
    m_reader.written(what.key);
    if (what.kind != Write::Kind::Delete) {
        m_removals.written(what.key);
    }
    switch (what.kind) {
    case Write::Kind::Put:
        return put(makeRecord(what.key, 0, data, size));
    case Write::Kind::Append:
        return append(what.key, data, size);
    case Write::Kind::Overwrite:
        return overwrite(what.key, what.position, data, size);
    default:
        return erase(what.key);
    }
}

Outcome Writer::insert(const Record& record)
{
    const Status status = m_store.insert(record);
    if (status != Status::Ok) {
        return status == Status::Failed ? failed(m_store.failure()) : damaged();
    }
    m_change.records.add(record.checksum);
    return Outcome::Done;
}

/// Does this very record stand in the store? @param there what the key's records add up to
bool Writer::stands(const Record& record, const Tally& there)
{
    if (there.sum != record.checksum) {
        return false;
    }
    const auto size = static_cast<std::size_t>(record.size);
    // What was read ahead may have been written since; then it adds up to something else.
    const auto* ahead = m_comparisons.find(record.key);
    if (ahead != nullptr && ahead->records == there) {
        return ahead->size == record.size &&
               std::memcmp(m_comparisons.bytes(*ahead), record.bytes, size) == 0;
    }
    Rows rows = m_store.record(record.key, record.position - 1);
    return rows.next() == Status::Ok && rows.position() == record.position &&
           rows.checksum() == record.checksum && rows.size() == record.size &&
           std::memcmp(rows.bytes(), record.bytes, size) == 0;
}

/// Adds up the records of a key. @return false on failure
bool Writer::find(const Key& key, Tally& out)
{
    Rows rows = m_store.ofKey(key);
    Status status = Status::Ok;
    while ((status = rows.next()) == Status::Ok) {
        out.add(rows.checksum());
    }
    return status == Status::None;
}

Outcome Writer::put(const Record& record)
{
    if (const Tally* pending = m_pending.find(record.key)) {
        const Tally there = *pending;
        m_pending.forget(record.key);
        m_change.records += there;
        return replace(record, there);
    }
    // A key without a record at position 0 has none at all. So the insertion itself tells whether the key is
    // new, which spares the usual put a search.
    const Status status = m_store.insert(record);
    if (status == Status::Ok) {
        m_change.records.add(record.checksum);
        return Outcome::Done;
    }
    Tally there;
    if (status == Status::Failed || !find(record.key, there)) {
        return failed(m_store.failure());
    }
    return replace(record, there);
}

/// @param there what the key's records add up to
Outcome Writer::replace(const Record& record, const Tally& there)
{
    m_reader.deleted(record.key); // where a reader stood in the former records
    if (there.count != 1) {
        if (m_store.erase(record.key, there) == Status::Failed) {
            return failed(m_store.failure());
        }
        m_change.records -= there;
        return insert(record);
    }
    if (stands(record, there)) {
        return Outcome::Done;
    }
    const Status status = m_store.update(record);
    if (status != Status::Ok) {
        return status == Status::Failed ? failed(m_store.failure()) : damaged();
    }
    m_change.records -= there;
    m_change.records.add(record.checksum);
    return Outcome::Done;
}

Outcome Writer::append(const Key& key, const void* data, int size)
{
    if (const Tally* pending = m_pending.find(key)) {
        if (m_store.erase(key, *pending) == Status::Failed) {
            return failed(m_store.failure());
        }
        m_pending.forget(key);
    }
    int last = -1;
    if (m_store.lastPosition(key, last) == Status::Failed) {
        return failed(m_store.failure());
    }
    return insert(makeRecord(key, last + 1, data, size));
}

Outcome Writer::overwrite(const Key& key, int position, const void* data, int size)
{
    if (m_pending.find(key) != nullptr) {
        return Outcome::Missing;
    }
    Tally there;
    {
        Rows rows = m_store.record(key, position - 1);
        const Status status = rows.next();
        if (status == Status::Failed) {
            return failed(m_store.failure());
        }
        if (status == Status::None || rows.position() != position) {
            return Outcome::Missing;
        }
        there.add(rows.checksum());
    }
    const Record record = makeRecord(key, position, data, size);
    if (stands(record, there)) {
        return Outcome::Done;
    }
    if (m_store.update(record) != Status::Ok) {
        return failed(m_store.failure());
    }
    m_change.records -= there;
    m_change.records.add(record.checksum);
    return Outcome::Done;
}

Outcome Writer::erase(const Key& key)
{
    Tally there;
    if (m_pending.find(key) != nullptr) {
        return Outcome::Missing;
    }
    if (const auto* ahead = m_removals.find(key)) {
        there = ahead->records;
    } else if (!find(key, there)) {
        return failed(m_store.failure());
    }
    if (there.count == 0) {
        return Outcome::Missing;
    }
    m_pending.add(key, there);
    m_reader.deleted(key);
    m_change.records -= there;
    return Outcome::Done;
}

Outcome Writer::settle()
{
    return m_pending.flush() == Status::Failed ? failed(m_store.failure()) : Outcome::Done;
}

Outcome Writer::setFact(const std::string& name, const std::string& value)
{
    m_facts.drop();
    const Fact fact{name, value, factChecksum(name, value)};
    std::vector<Fact> there;
    if (m_store.facts(&name, there) == Status::Failed) {
        return failed(m_store.failure());
    }
    const bool stands = there.empty()
                            ? value.empty()
                            : there.front().value == value && there.front().checksum == fact.checksum;
    if (stands) {
        return Outcome::Done;
    }
    Tally gone;
    if (m_store.setFact(fact, gone) == Status::Failed) {
        return failed(m_store.failure());
    }
    m_change.facts -= gone;
    if (!value.empty()) {
        m_change.facts.add(fact.checksum);
    }
    return Outcome::Done;
}

} // namespace mrl::cdb
