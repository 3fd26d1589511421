#include "hostlib/data/cdb/writer.h"

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
        return put(what.key, data, size);
    case Write::Kind::Append:
        return append(what.key, data, size);
    case Write::Kind::Overwrite:
        return overwrite(what.key, what.position, data, size);
    default:
        return erase(what.key);
    }
}

Outcome Writer::put(const Key& key, const void* data, int size)
{
    // A key without a record at position 0 has none at all. So the insertion itself tells whether the key is
    // new, which spares the usual put a search.
    const Record record = makeRecord(key, 0, data, size);
    for (int attempt = 0; attempt < 2; ++attempt) {
        const Status status = m_store.insert(record);
        if (status == Status::Failed) {
            return failed(m_store.failure());
        }
        if (status == Status::Ok) {
            m_change.records.add(record.checksum);
            return Outcome::Done;
        }
        if (erase(key) == Outcome::Failed) {
            return Outcome::Failed;
        }
    }
    return damaged();
}

Outcome Writer::append(const Key& key, const void* data, int size)
{
    int last = -1;
    if (m_store.lastPosition(key, last) == Status::Failed) {
        return failed(m_store.failure());
    }
    const Record record = makeRecord(key, last + 1, data, size);
    const Status status = m_store.insert(record);
    if (status != Status::Ok) {
        return status == Status::Failed ? failed(m_store.failure()) : damaged();
    }
    m_change.records.add(record.checksum);
    return Outcome::Done;
}

Outcome Writer::overwrite(const Key& key, int position, const void* data, int size)
{
    const Record record = makeRecord(key, position, data, size);
    Tally gone;
    const Status status = m_store.update(record, gone);
    if (status != Status::Ok) {
        return status == Status::Failed ? failed(m_store.failure()) : Outcome::Missing;
    }
    m_change.records -= gone;
    m_change.records.add(record.checksum);
    return Outcome::Done;
}

Outcome Writer::erase(const Key& key)
{
    Tally expected;
    const bool known = m_removals.find(key, expected);
    Tally gone;
    const Status status = m_store.erase(key, known ? &expected : nullptr, gone);
    if (status == Status::Failed) {
        return failed(m_store.failure());
    }
    m_reader.deleted(key);
    m_change.records -= gone;
    return status == Status::Ok ? Outcome::Done : Outcome::Missing;
}

Outcome Writer::setFact(const std::string& name, const std::string& value)
{
    m_facts.drop();
    const Fact fact{name, value, factChecksum(name, value)};
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
