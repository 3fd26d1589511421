#include "hostlib/data/cdb/sqlite/store.h"

#include "hostlib/data/cdb/errors.h"
#include "hostlib/data/cdb/sqlite/content_check.h"
#include "hostlib/data/cdb/sqlite/sqlite_failure.h"
#include "hostlib/data/cdb/sqlite/statement_texts.h"
#include "hostlib/data/cdb/sqlite/version1.h"

namespace mrl::cdb {

namespace {

/// SQLite has signed numbers only.
sqlite3_int64 stored(std::uint64_t checksum) { return static_cast<sqlite3_int64>(checksum); }

} // namespace

Store::Store(Connection handle, std::string file, Access access, int format, Place place)
    : m_file(std::move(file)), m_access(access), m_db(std::move(handle)),
      m_texts(std::make_unique<Texts>(format)), m_format(format), m_place(std::move(place))
{
    sqlite3_create_function_v2(m_db.get(), "gone", 1, SQLITE_UTF8 | SQLITE_DIRECTONLY, this, gone, nullptr,
                               nullptr, nullptr);
    if (m_access == Access::Private) {
        m_mark.watchNothing();
    } else {
        m_mark.watch(m_db.get(), m_format);
    }
    m_known = m_format != 1 && readState(m_state) == SQLITE_OK;
}

Store::~Store()
{
    m_texts.reset(); // statements end before their connection
}

void Store::gone(sqlite3_context* context, int, sqlite3_value** values)
{
    auto* self = static_cast<Store*>(sqlite3_user_data(context));
    self->m_gone.add(static_cast<std::uint64_t>(sqlite3_value_int64(values[0])));
    sqlite3_result_int(context, 1);
}

Status Store::failed(int status)
{
    m_failure = failureOf(status, m_db.get(), m_file);
    return Status::Failed;
}

void Store::setLockWait(int milliseconds) { sqlite3_busy_timeout(m_db.get(), milliseconds); }

Result Store::check(Depth depth) { return checkContent(m_db.get(), m_file, m_format, depth); }

Rows Store::record(const Key& key, int behind)
{
    return {m_texts->next, source(), {key.kwh, key.kwl, behind}};
}

Rows Store::ofKey(const Key& key) { return {m_texts->ofKey, source(), {key.kwh, key.kwl}}; }

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
        text += columns == Columns::Checksums ? m_texts->checksums : m_texts->whole;
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
    // From group to group; DISTINCT would walk over all records.
    constexpr const char* TEXT = "WITH RECURSIVE walk(kwh) AS (SELECT min(kwh) FROM record UNION ALL"
                                 " SELECT (SELECT min(kwh) FROM record WHERE record.kwh>walk.kwh) FROM walk "
                                 "WHERE walk.kwh IS NOT NULL)"
                                 " SELECT 0,kwh FROM walk WHERE kwh IS NOT NULL";
    return {std::make_unique<Statement>(TEXT), source(), {}};
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
        Fact fact{run.text(0), run.text(1), static_cast<std::uint64_t>(run.wide(2))};
        if (m_format == 1) {
            const bool fits =
                version1::factChecksum(fact.name, fact.value) == static_cast<std::uint32_t>(fact.checksum);
            const auto present = factChecksum(fact.name, fact.value);
            fact.checksum = fits ? present : ~present;
        }
        out.push_back(std::move(fact));
    }
    if (status != SQLITE_DONE) {
        return failed(status);
    }
    return out.size() > before ? Status::Ok : Status::None;
}

int Store::finish(Statement& text, const Record& record)
{
    Run run(text, m_db.get());
    run.bind(1, record.key.kwh).bind(2, record.key.kwl).bind(3, record.position);
    run.bind(4, stored(record.checksum)).bind(5, record.bytes, record.size);
    const int status = run.step();
    if (status == SQLITE_DONE && sqlite3_changes(m_db.get()) > 0) {
        countWrite();
    }
    return status;
}

Status Store::insert(const Record& record)
{
    if (const int status = finish(m_texts->insert, record); status != SQLITE_DONE) {
        return failed(status);
    }
    return sqlite3_changes(m_db.get()) > 0 ? Status::Ok : Status::None;
}

Status Store::update(const Record& record)
{
    if (const int status = finish(m_texts->update, record); status != SQLITE_DONE) {
        return failed(status);
    }
    return sqlite3_changes(m_db.get()) > 0 ? Status::Ok : Status::None;
}

Status Store::erase(const Key& key, const Tally& known)
{
    countWrite();
    Run run(m_texts->erase, m_db.get());
    if (const int status = run.bind(1, key.kwh).bind(2, key.kwl).step(); status != SQLITE_DONE) {
        return failed(status);
    }
    return sqlite3_changes(m_db.get()) == known.count ? Status::Ok : failed(SQLITE_CORRUPT);
}

Status Store::setFact(const Fact& fact, Tally& gone)
{
    countWrite();
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

int Store::readState(State& out)
{
    Run run(m_texts->readState, m_db.get());
    const int status = run.step();
    if (status != SQLITE_ROW) {
        return status == SQLITE_DONE ? SQLITE_CORRUPT : status;
    }
    out.project = run.wide(0);
    out.version = run.wide(1);
    out.rows.records = {run.wide(2), static_cast<std::uint64_t>(run.wide(3))};
    out.rows.facts = {run.wide(4), static_cast<std::uint64_t>(run.wide(5))};
    return SQLITE_OK;
}

int Store::raiseVersion(const Summary& change)
{
    State next = m_state;
    ++next.version;
    next.rows.records += change.records;
    next.rows.facts += change.facts;
    Run run(m_texts->writeState, m_db.get());
    run.bind(1, next.version);
    run.bind(2, next.rows.records.count).bind(3, stored(next.rows.records.sum));
    run.bind(4, next.rows.facts.count).bind(5, stored(next.rows.facts.sum));
    const int status = run.step();
    if (status == SQLITE_DONE) {
        m_next = next;
        m_raised = true;
    }
    return status == SQLITE_DONE ? SQLITE_OK : status;
}

Status Store::state(State& out)
{
    if (m_format == 1) {
        return Status::None;
    }
    const int status = readState(out);
    return status == SQLITE_OK ? Status::Ok : failed(status);
}

} // namespace mrl::cdb
