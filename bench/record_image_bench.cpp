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

/// One bit of comparing document and file, all of whose records differ: what a snapshot against crashes holds the user
/// up by at once. Raw: the same records read from both.
class ComparisonBit : public ChangedDocument
{
  public:
    explicit ComparisonBit(int count) : ChangedDocument(count), m_before(mrl::cdb::copyOf(m_db).db)
    {
        write();
    }
    ~ComparisonBit() { mrl::cdb::close(m_before); }
    void ours()
    {
        mrl::cdb::DifferenceScan scan(m_db, m_before);
        require(static_cast<bool>(scan.advance(KEYS)), "compare");
        require(scan.takeImage().keyCount() == KEYS, "differences");
    }
    void raw()
    {
        for (const int db : {m_db, m_before}) {
            int kwh = GROUP;
            int kwl = 0;
            for (int i = 0; i < KEYS && mrl_cdb_kenq_ex(db, &kwh, &kwl, +1) == 0; ++i) {
                char record[RECORD_SIZE];
                int length = RECORD_SIZE;
                require(mrl_cdb_get(db, kwh, kwl, record, &length, 0) == CD_OK, "get");
            }
        }
    }

  private:
    static constexpr int KEYS = 5000;
    int m_before;
};
const bench::Timed<ComparisonBit> COMPARISON_BIT("cdb.comparison_bit", 2.0, {100'000});

} // namespace
