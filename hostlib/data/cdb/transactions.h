#pragma once

#include <string>
#include <vector>

#include "hostlib/data/cdb/failures.h"
#include "hostlib/data/cdb/writer.h"

namespace mrl::cdb {

/// The nested transactions of a database: begins, ends, pauses and resumes them, and lets no write through that
/// would stand outside of its transaction.
class Transactions
{
  public:
    Transactions(Store& store, PendingRemovals& pending, Reader& reader, FactReader& facts,
                 Failures& failures)
        : m_store(store), m_reader(reader), m_facts(facts), m_failures(failures),
          m_writer(store, pending, reader, facts)
    {
    }

    Result begin(Pausable pausable);
    /// Ends the innermost transaction.
    Result commit();
    void rollback();
    std::size_t depth() const { return m_levels.size(); }
    /// Has the open transaction written anything, be it taken back since?
    bool hasWritten() const { return !m_levels.empty() && m_wrote; }
    /// Why the open transaction can't be committed; Code::Ok while it can.
    const Result& state() const { return m_failed; }

    /// Brings the store to what the writes so far have made of it, for those who read it as a whole.
    Result settle();

    /// Gives up the write lock of a pausable transaction until resume(), which does its writes again.
    void pause();
    void resume();

    /// Does a write in the open transaction, or in one of its own.
    /// @param data the record or the fact's value, in place of what the write itself holds
    Outcome write(const Write& what, const void* data, int size);
    /// Records a call that makes no sense as a failed write.
    Outcome refuse(const std::string& reason);
    /// The reason of the last Outcome::Failed.
    const Result& lastFailure() const { return m_lastFailure; }

  private:
    struct Level
    {
        Summary before;
        std::size_t journalSize = 0;
    };

    void fail(const Result& error);
    Outcome writeFailed(Result error);
    bool mayWrite();
    Outcome apply(const Write& what, const void* data, int size);
    Outcome writeAlone(const Write& what, const void* data, int size);
    Result finish();
    void endLevel(bool keepWrites);
    void forgetRead();
    Status replay();
    Status openLevels(std::size_t& level, std::size_t done);

    Store& m_store;
    Reader& m_reader;
    FactReader& m_facts;
    Failures& m_failures;
    Writer m_writer;
    std::vector<Level> m_levels;
    std::vector<Write> m_journal; ///< the writes of a pausable transaction
    Result m_failed;              ///< of the open transaction
    Result m_lastFailure;
    bool m_wrote = false;
    bool m_pausable = false;
    bool m_paused = false;
};

} // namespace mrl::cdb
