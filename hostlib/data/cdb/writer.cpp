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
    if (what.kind != Write::Kind::Delete) {
        m_reader.written(what.key);
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
bool Writer::stands(const Record& record, const Standing& there)
{
    if (there.records.sum != record.checksum) {
        return false;
    }
    if (there.bytes != nullptr) {
        return there.isJust(record);
    }
    // What was read ahead may have been written since; then it adds up to something else.
    const auto ahead = m_comparisons.find(record.key);
    if (ahead && ahead->records == there.records) {
        return ahead->isJust(record);
    }
    Rows rows = m_store.record(record.key, record.position - 1);
    return rows.next() == Status::Ok && rows.position() == record.position &&
           rows.checksum() == record.checksum && rows.size() == record.size &&
           std::memcmp(rows.bytes(), record.bytes, static_cast<std::size_t>(record.size)) == 0;
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
    if (const auto pending = m_pending.find(record.key)) {
        m_pending.forget(record.key);
        m_change.records += pending->records;
        return replace(record, *pending);
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
    return replace(record, {there});
}

Outcome Writer::replace(const Record& record, const Standing& there)
{
    m_reader.deleted(record.key); // where a reader stood in the former records
    if (there.records.count != 1) {
        if (m_store.erase(record.key, there.records) == Status::Failed) {
            return failed(m_store.failure());
        }
        m_change.records -= there.records;
        return insert(record);
    }
    if (stands(record, there)) {
        return Outcome::Done;
    }
    const Status status = m_store.update(record);
    if (status != Status::Ok) {
        return status == Status::Failed ? failed(m_store.failure()) : damaged();
    }
    m_change.records -= there.records;
    m_change.records.add(record.checksum);
    return Outcome::Done;
}

Outcome Writer::append(const Key& key, const void* data, int size)
{
    if (const auto pending = m_pending.find(key)) {
        if (m_store.erase(key, pending->records) == Status::Failed) {
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
    if (m_pending.contains(key)) {
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
    if (stands(record, {there})) {
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
    if (m_pending.contains(key)) {
        return Outcome::Missing;
    }
    const auto there = known(key);
    if (!there) {
        return failed(m_store.failure());
    }
    if (there->records.count == 0) {
        return Outcome::Missing;
    }
    m_pending.add(key, *there);
    m_reader.written(key);
    m_reader.deleted(key);
    m_change.records -= there->records;
    return Outcome::Done;
}

/// What stands under a key that is to be deleted: whoever deletes in a walk has mostly just read it.
/// @return nothing when it can't be read
std::optional<Standing> Writer::known(const Key& key)
{
    Standing there;
    if (const auto walked = m_reader.standing(key)) {
        there = *walked;
        if (there.isWhole) {
            return there;
        }
    } else if (const auto ahead = m_removals.find(key)) {
        return ahead;
    }
    there.records = {};
    return find(key, there.records) ? std::optional(there) : std::nullopt;
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
