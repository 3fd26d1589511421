#include <memory>
#include <vector>

#include "bench/figure.h"
#include "bench/load_cases.h"
#include "model/working_model.h"

namespace {

struct Release
{
    void operator()(LCM_DataClass* model) const { model->release(); }
};
using Model = std::unique_ptr<LCM_DataClass, Release>;

/// Raw: one SELECT over the load cases, the records taken out of the rows into a vector.
class Construct : bench::LoadCases
{
  public:
    using LoadCases::LoadCases;
    void ours()
    {
        const Model model(new LCM_DataClass(db));
        bench::require(static_cast<int>(model->loadcases.size()) == n, "load");
    }
    void raw()
    {
        std::vector<LCM_LoadcaseEntry> entries;
        while (sqlite3_step(rawSide.scan) == SQLITE_ROW) {
            LCM_LoadcaseEntry& entry = entries.emplace_back();
            entry.number = sqlite3_column_int(rawSide.scan, 0);
            std::memcpy(&entry.record, sqlite3_column_blob(rawSide.scan, 1), sizeof entry.record);
        }
        sqlite3_reset(rawSide.scan);
        bench::require(static_cast<int>(entries.size()) == n, "scan");
    }
};
const bench::Timed<Construct> construct("model.construct", 3.0);

/// Raw: prepared DELETE and INSERT OR REPLACE of each load case between BEGIN IMMEDIATE and COMMIT.
class WriteLoadcases : bench::LoadCases
{
  public:
    explicit WriteLoadcases(int count) : LoadCases(count), model(new LCM_DataClass(db)) {}
    void ours()
    {
        mrl::cdb::Transaction transaction(db);
        model->writeLoadcases(db);
        bench::require(static_cast<bool>(transaction.commit()), "commit");
    }
    void raw()
    {
        rawSide.execute("BEGIN IMMEDIATE");
        for (const LCM_LoadcaseEntry& entry : model->loadcases) {
            deleteRaw(entry.number);
        }
        for (const LCM_LoadcaseEntry& entry : model->loadcases) {
            putRaw(entry.number, entry.record);
        }
        rawSide.execute("COMMIT");
    }

  private:
    Model model;
};
const bench::Timed<WriteLoadcases> writeLoadcases("model.write_loadcases", 1.5);

} // namespace
