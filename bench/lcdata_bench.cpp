#include <cstring>
#include <random>
#include <vector>

#include "bench/figure.h"
#include "bench/load_cases.h"
#include "lcdata/load_cases.h"

namespace {

/// Raw: SELECT kwl over the group into a vector.
class ListLoadCases : bench::LoadCases
{
  public:
    using LoadCases::LoadCases;
    void ours()
    {
        std::vector<int> numbers;
        mrl_lc_list(db, numbers);
        bench::require(static_cast<int>(numbers.size()) == n, "list");
    }
    void raw()
    {
        std::vector<int> numbers;
        while (sqlite3_step(rawSide.list) == SQLITE_ROW) {
            numbers.push_back(sqlite3_column_int(rawSide.list, 0));
        }
        sqlite3_reset(rawSide.list);
        bench::require(static_cast<int>(numbers.size()) == n, "select");
    }
};
const bench::Timed<ListLoadCases> listLoadCases("lcdata.list", 2.0);

/// Raw: the prepared SELECT of one record, which makes a read transaction of its own each time.
class RandomLoadCase : bench::LoadCases
{
  public:
    using LoadCases::LoadCases;
    void ours()
    {
        tagCDB_LC_CTRL record;
        for (int i = 0; i < 1000; ++i) {
            bench::require(mrl_lc_get(db, pick(random), record), "get");
            bench::keep(record);
        }
    }
    void raw()
    {
        tagCDB_LC_CTRL record;
        for (int i = 0; i < 1000; ++i) {
            sqlite3_bind_int(rawSide.get, 1, 12);
            sqlite3_bind_int(rawSide.get, 2, pick(random));
            bench::require(sqlite3_step(rawSide.get) == SQLITE_ROW, "select");
            std::memcpy(&record, sqlite3_column_blob(rawSide.get, 0), sizeof record);
            sqlite3_reset(rawSide.get);
            bench::keep(record);
        }
    }

  private:
    std::mt19937 random{1};
    std::uniform_int_distribution<int> pick{1, n};
};
const bench::Timed<RandomLoadCase> randomLoadCase("lcdata.random_get", 1.5);

} // namespace
