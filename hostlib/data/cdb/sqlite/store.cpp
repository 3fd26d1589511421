#include "hostlib/data/cdb/sqlite/store.h"

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/content_check.h"
#include "hostlib/data/cdb/sqlite/failure.h"
#include "hostlib/data/cdb/sqlite/texts.h"

namespace mrl::cdb {

namespace {

/// A checksum as SQLite stores it: a signed number takes four bytes in the file and not six.
sqlite3_int64 stored(std::uint32_t checksum) { return static_cast<std::int32_t>(checksum); }

} // namespace

Status Rows::failed(int status)
{
    m_source.failure = failureOf(status, m_source.connection, m_source.file);
    return Status::Failed;
}

Store::Store(Connection handle, const std::string& file, Access access)
    : m_file(file), m_access(access), m_db(std::move(handle)), m_texts(std::make_unique<Texts>())
{
    sqlite3_create_function_v2(m_db.get(), "gone", 1, SQLITE_UTF8 | SQLITE_DIRECTONLY, this, gone, nullptr,
                               nullptr, nullptr);
    if (m_access == Access::Private) {
        m_mark.watchNothing();
        return;
    }
    // If this process can't create a log beside the file, no process with the same rights can write to it.
    if (!m_mark.watch(m_db.get()) &&
        sqlite3_uri_boolean(sqlite3_db_filename(m_db.get(), "main"), "immutable", 0) != 0) {
        m_mark.watchNothing();
    }
    sqlite3_wal_hook(m_db.get(), committed, this);
}

Store::~Store()
{
    // The guard goes first: the last connection to a file is the one that may tidy up its log.
    m_guard.reset();
    m_texts.reset();
}

void Store::gone(sqlite3_context* context, int, sqlite3_value** values)
{
    auto* self = static_cast<Store*>(sqlite3_user_data(context));
    self->m_gone.add(static_cast<std::uint32_t>(sqlite3_value_int(values[0])));
    sqlite3_result_int(context, 1);
}

Status Store::failed(int status)
{
    m_failure = failureOf(status, m_db.get(), m_file);
    return Status::Failed;
}

void Store::setLockWait(int milliseconds) { sqlite3_busy_timeout(m_db.get(), milliseconds); }

Result Store::check(Depth depth) { return checkContent(m_db.get(), m_file, depth); }

Rows Store::record(const Key& key, int behind)
{
    return {m_texts->next, source(), {key.kwh, key.kwl, behind}};
}

Rows Store::ahead(const Key& from, const Ahead& how)
{
    Statement* text = nullptr;
    if (how.columns == Columns::Records) {
        text = how.otherGroups ? &m_texts->recordsBeyond : &m_texts->recordsUp;
    } else if (how.columns == Columns::Checksums) {
        text = &m_texts->checksumsUp;
    } else if (how.up) {
        text = how.otherGroups ? &m_texts->keysBeyond : &m_texts->keysUp;
    } else {
        text = how.otherGroups ? &m_texts->keysBefore : &m_texts->keysDown;
    }
    return {*text, source(), {from.kwh, from.kwl, how.rows}};
}

Rows Store::range(const KeyRange* range, Columns columns)
{
    std::string text = "SELECT kwl,kwh";
    if (columns != Columns::Keys) {
        text += columns == Columns::Checksums ? ",crc" : ",crc,bytes,position";
    }
    text += " FROM record";
    if (range != nullptr) {
        text += " WHERE kwh=?1 AND kwl BETWEEN ?2 AND ?3";
    }
    text += columns == Columns::Keys ? " ORDER BY kwh,kwl" : " ORDER BY kwh,kwl,position";
    auto own = std::make_unique<Statement>(std::move(text));
    if (range == nullptr) {
        return {std::move(own), source(), {}};
    }
    return {std::move(own), source(), {range->kwh, range->first, range->last}};
}

Rows Store::groups()
{
    return {std::make_unique<Statement>("SELECT DISTINCT 0,kwh FROM record"), source(), {}};
}

Status Store::lastPosition(const Key& key, int& position)
{
    Run run(m_texts->last, m_db.get());
    const int status = run.bind(1, key.kwh).bind(2, key.kwl).step();
    if (status == SQLITE_ROW) {
        position = run.integer(0);
        return Status::Ok;
    }
    return status == SQLITE_DONE ? Status::None : failed(status);
}

Status Store::facts(const std::string* name, std::vector<Fact>& out)
{
    Run run(name != nullptr ? m_texts->selectFact : m_texts->selectFacts, m_db.get());
    if (name != nullptr) {
        run.bind(1, *name);
    }
    const std::size_t before = out.size();
    int status = SQLITE_OK;
    while ((status = run.step()) == SQLITE_ROW) {
        out.push_back({run.text(0), run.text(1), static_cast<std::uint32_t>(run.integer(2))});
    }
    if (status != SQLITE_DONE) {
        return failed(status);
    }
    return out.size() > before ? Status::Ok : Status::None;
}

int Store::finish(Statement& text, const Record& record)
{
    countWrite();
    Run run(text, m_db.get());
    run.bind(1, record.key.kwh).bind(2, record.key.kwl).bind(3, record.position);
    run.bind(4, stored(record.checksum)).bind(5, record.bytes, record.size);
    return run.step();
}

Status Store::insert(const Record& record)
{
    if (const int status = finish(m_texts->insert, record); status != SQLITE_DONE) {
        return failed(status);
    }
    return sqlite3_changes(m_db.get()) > 0 ? Status::Ok : Status::None;
}

Status Store::update(const Record& record, Tally& gone)
{
    m_gone = {};
    if (const int status = finish(m_texts->update, record); status != SQLITE_DONE) {
        return failed(status);
    }
    gone = m_gone;
    return sqlite3_changes(m_db.get()) > 0 ? Status::Ok : Status::None;
}

Status Store::erase(const Key& key, const Tally* known, Tally& gone)
{
    countWrite();
    m_gone = {};
    Run run(known != nullptr ? m_texts->eraseKnown : m_texts->erase, m_db.get());
    if (const int status = run.bind(1, key.kwh).bind(2, key.kwl).step(); status != SQLITE_DONE) {
        return failed(status);
    }
    if (known != nullptr && sqlite3_changes(m_db.get()) != known->count) {
        return failed(SQLITE_CORRUPT);
    }
    gone = known != nullptr ? *known : m_gone;
    return gone.count > 0 ? Status::Ok : Status::None;
}

Status Store::setFact(const Fact& fact, Tally& gone)
{
    m_gone = {};
    {
        Run run(m_texts->eraseFact, m_db.get());
        if (const int status = run.bind(1, fact.name).step(); status != SQLITE_DONE) {
            return failed(status);
        }
    }
    gone = m_gone;
    if (fact.value.empty()) {
        return Status::Ok;
    }
    Run run(m_texts->insertFact, m_db.get());
    run.bind(1, fact.name).bind(2, stored(fact.checksum)).bind(3, fact.value);
    const int status = run.step();
    return status == SQLITE_DONE ? Status::Ok : failed(status);
}

Status Store::addToSummary(const Summary& change)
{
    Run run(m_texts->summary, m_db.get());
    run.bind(1, change.records.count).bind(2, change.records.mix);
    run.bind(3, change.facts.count).bind(4, change.facts.mix);
    const int status = run.step();
    return status == SQLITE_DONE ? Status::Ok : failed(status);
}

} // namespace mrl::cdb
