#include "hostlib/data/cdb/transactions.h"

#include "hostlib/data/cdb/errors.h"

namespace mrl::cdb {

namespace {

const char* const WAITING = "a message is waiting for its answer";

} // namespace

void Transactions::fail(const Result& error)
{
    if (m_failed) {
        m_failed = error;
    }
}

Result Transactions::begin(Pausable pausable)
{
    const bool outermost = m_levels.empty();
    if (outermost) {
        m_pausable = pausable == Pausable::Yes && m_store.access() != Access::ReadOnly;
        m_failed = {};
        m_wrote = false;
        m_writer.setChange({});
    }
    m_levels.push_back({m_writer.change(), m_journal.size()});
    if (m_paused) {
        fail(failure(Code::Locked, m_store.file(), WAITING));
    }
    // What is pending belongs to the level that deleted it.
    if (!outermost && m_failed) {
        static_cast<void>(settle());
    }
    if (m_failed && m_store.begin(outermost ? Nesting::Outermost : Nesting::Inner) == Status::Failed) {
        fail(m_store.failure());
    }
    return m_failed;
}

Result Transactions::commit()
{
    if (m_paused) {
        fail(failure(Code::Locked, m_store.file(), WAITING));
    }
    if (m_failed) {
        fail(finish());
    }
    if (!m_failed) {
        Result reason = m_failures.keep(m_failed);
        rollback();
        return reason;
    }
    endLevel(true);
    return {};
}

Result Transactions::finish()
{
    if (!m_store.inTransaction()) {
        return failure(Code::InputOutput, m_store.file(), "the transaction was rolled back");
    }
    if (m_levels.size() > 1) {
        return m_store.commit(Nesting::Inner, {}) == Status::Failed ? m_store.failure() : Result{};
    }
    if (m_writer.settle() == Outcome::Failed) {
        return m_writer.failure();
    }
    return m_store.commit(Nesting::Outermost, m_writer.change()) == Status::Failed ? m_store.failure()
                                                                                   : Result{};
}

Result Transactions::settle()
{
    if (m_levels.empty() || m_paused || m_writer.settle() != Outcome::Failed) {
        return {};
    }
    writeFailed(m_writer.failure());
    return m_writer.failure();
}

void Transactions::rollback()
{
    if (m_levels.empty()) {
        return;
    }
    m_store.rollback(m_levels.size() > 1 ? Nesting::Inner : Nesting::Outermost);
    m_writer.drop();
    endLevel(false);
    forgetRead();
}

void Transactions::forgetRead()
{
    m_reader.drop();
    m_facts.drop();
}

void Transactions::endLevel(bool keepWrites)
{
    if (!keepWrites) {
        m_writer.setChange(m_levels.back().before);
        m_journal.resize(m_levels.back().journalSize);
    }
    m_levels.pop_back();
    if (!m_levels.empty()) {
        return;
    }
    m_writer.drop();
    m_journal.clear();
    m_journal.shrink_to_fit();
    m_failed = {};
    m_paused = false;
    m_pausable = false;
}

void Transactions::pause()
{
    if (m_levels.empty() || !m_pausable || m_paused) {
        return;
    }
    m_paused = true;
    m_store.rollback(Nesting::Outermost);
    m_writer.drop();
    forgetRead();
}

void Transactions::resume()
{
    if (!m_paused) {
        return;
    }
    m_paused = false;
    if (!m_failed) {
        return;
    }
    const Status status = replay();
    forgetRead();
    if (status == Status::Failed) {
        fail(m_store.failure());
    }
    if (!m_failed) {
        static_cast<void>(m_failures.keep(m_failed));
        m_store.rollback(Nesting::Outermost);
        m_writer.drop();
    }
}

/// Opens the savepoints that were begun before the write that comes next.
Status Transactions::openLevels(std::size_t& level, std::size_t done)
{
    for (; level < m_levels.size() && m_levels[level].journalSize == done; ++level) {
        m_levels[level].before = m_writer.change();
        if (m_writer.settle() == Outcome::Failed) {
            return Status::Failed;
        }
        if (m_store.begin(Nesting::Inner) == Status::Failed) {
            return Status::Failed;
        }
    }
    return Status::Ok;
}

/// @return Failed when the store failed; a write that failed otherwise fails the transaction
Status Transactions::replay()
{
    if (m_store.begin(Nesting::Outermost) == Status::Failed) {
        return Status::Failed;
    }
    m_writer.setChange({});
    std::size_t level = 1;
    for (std::size_t i = 0; i < m_journal.size() && m_failed; ++i) {
        if (openLevels(level, i) == Status::Failed) {
            return Status::Failed;
        }
        const Write& write = m_journal[i];
        const Outcome outcome = apply(write, write.bytes.data(), static_cast<int>(write.bytes.size()));
        // A key that another process deleted meanwhile is fine; a record to overwrite must still exist.
        if (outcome == Outcome::Missing && write.kind == Write::Kind::Overwrite) {
            fail(failure(Code::Locked, m_store.file(),
                         "another program deleted a record that is being changed"));
        }
    }
    return m_failed ? openLevels(level, m_journal.size()) : Status::Ok;
}

Outcome Transactions::writeFailed(Result error)
{
    m_lastFailure = m_failures.keep(std::move(error));
    if (!m_levels.empty()) {
        fail(m_lastFailure);
    }
    return Outcome::Failed;
}

Outcome Transactions::refuse(const std::string& reason)
{
    return writeFailed(failure(Code::BadArgument, m_store.file(), reason));
}

bool Transactions::mayWrite()
{
    if (m_store.access() == Access::ReadOnly) {
        writeFailed(failure(Code::ReadOnly, m_store.file(), "the project is open for reading only"));
    } else if (m_paused) {
        writeFailed(failure(Code::Locked, m_store.file(), WAITING));
    } else if (!m_levels.empty() && !m_store.inTransaction()) {
        // The transaction is over already (its beginning failed, or SQLite took it back whole). What is
        // written now would stand alone in the file.
        writeFailed(m_failed ? failure(Code::InputOutput, m_store.file(), "the transaction was rolled back")
                             : m_failed);
    } else {
        return true;
    }
    return false;
}

Outcome Transactions::apply(const Write& what, const void* data, int size)
{
    const Outcome outcome = m_writer.apply(what, data, size);
    m_wrote = m_wrote || outcome == Outcome::Done;
    return outcome == Outcome::Failed ? writeFailed(m_writer.failure()) : outcome;
}

Outcome Transactions::writeAlone(const Write& what, const void* data, int size)
{
    const Result begun = begin(Pausable::No);
    const Outcome outcome = begun ? apply(what, data, size) : writeFailed(begun);
    if (outcome != Outcome::Done) {
        rollback();
        return outcome;
    }
    const Result end = commit();
    return end ? outcome : writeFailed(end);
}

Outcome Transactions::write(const Write& what, const void* data, int size)
{
    if (size > LONGEST_RECORD) {
        return refuse("a record of " + std::to_string(size) + " bytes is too long");
    }
    if (!mayWrite()) {
        return Outcome::Failed;
    }
    if (m_levels.empty()) {
        return writeAlone(what, data, size);
    }
    const Outcome outcome = apply(what, data, size);
    if (outcome == Outcome::Done && m_pausable) {
        m_journal.push_back(what);
        m_journal.back().bytes.assign(static_cast<const char*>(data), static_cast<std::size_t>(size));
    }
    return outcome;
}

} // namespace mrl::cdb
