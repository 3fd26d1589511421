// The history of a document with n load cases, all of which a step changes. Raw is the step alone: other bytes put
// under every key, in one transaction.
#include <cstring>

#include "bench/figure.h"
#include "bench/raw_database.h"
#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/image_log.h"

namespace {

using bench::require;

constexpr int GROUP = 12;
constexpr int RECORD_SIZE = 188;

/// A document as the host keeps it: a private copy in memory.
class ChangedDocument
{
  public:
    explicit ChangedDocument(int count) : m_count(count), m_db(mrl::cdb::openMemory().db)
    {
        std::memset(m_record, 7, sizeof m_record);
        write();
    }
    ~ChangedDocument() { mrl::cdb::close(m_db); }
    ChangedDocument(const ChangedDocument&) = delete;
    ChangedDocument& operator=(const ChangedDocument&) = delete;

    void raw() { write(); }

  protected:
    void write()
    {
        ++m_record[0];
        mrl::cdb::Transaction transaction(m_db);
        for (int kwl = 1; kwl <= m_count; ++kwl) {
            const int length = RECORD_SIZE;
            require(mrl_cdb_put(m_db, GROUP, kwl, m_record, &length, 0) == CD_OK, "put");
        }
        require(static_cast<bool>(transaction.commit()), "commit");
    }
    void writeRecorded()
    {
        const int before = mrl::cdb::copyOf(m_db).db;
        write();
        mrl::cdb::RecordImage image;
        require(static_cast<bool>(mrl::cdb::imageOfDifferences(before, m_db, image)), "compare");
        require(static_cast<bool>(m_log.add(std::move(image))), "keep");
        mrl::cdb::close(before);
    }

    int m_count;
    bench::Folder m_folder;
    mrl::cdb::ImageLog m_log{m_folder / "state"};
    int m_db;
    char m_record[RECORD_SIZE];
};

/// The step is recorded. What was recorded stays, so that most of it lies in the file.
class RecordStep : public ChangedDocument
{
  public:
    using ChangedDocument::ChangedDocument;
    void ours() { writeRecorded(); }
};
const bench::Timed<RecordStep> RECORD("cdb.record_step", 1.8);

/// The step is undone.
class UndoStep : public ChangedDocument
{
  public:
    explicit UndoStep(int count) : ChangedDocument(count) { writeRecorded(); }
    void ours() { require(static_cast<bool>(m_log.swap(0, m_db)), "undo"); }
};
const bench::Timed<UndoStep> UNDO("cdb.undo_step", 3.0);

} // namespace
