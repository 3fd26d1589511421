#include "bench/load_cases.h"

#include "bench/figure.h"
#include "cli/content_io.h"
#include "exchange/project_diff.h"
#include "lcdata/values/keys.h"

namespace {

/// What differs between two projects of which one has another title in every `EVERY`-th load case; 0: in none.
/// Raw: both projects read by a scan each.
template <int EVERY>
class Diff : bench::LoadCases
{
  public:
    explicit Diff(int count) : LoadCases(count), m_a(copyNamed("a.cdb", 0)), m_b(copyNamed("b.cdb", EVERY)) {}
    void ours()
    {
        const auto [before, after] = mrl::cli::differingContent(m_a, m_b);
        const auto differences = mrl::exchange::differencesOf(before, after);
        bench::require(differences.size() == static_cast<std::size_t>(EVERY > 0 ? n / EVERY : 0), "diff");
    }
    void raw()
    {
        for (int side = 0; side < 2; ++side) {
            std::vector<std::string> records;
            while (sqlite3_step(rawSide.scan) == SQLITE_ROW) {
                records.emplace_back(static_cast<const char*>(sqlite3_column_blob(rawSide.scan, 1)),
                                     static_cast<std::size_t>(sqlite3_column_bytes(rawSide.scan, 1)));
            }
            sqlite3_reset(rawSide.scan);
            bench::keep(records);
        }
    }

  private:
    mrl::cli::Project copyNamed(const char* name, int every)
    {
        changeTitles(every);
        const auto made = mrl::cdb::create(folder / name, [&](int to) {
            for (const int kwh : {LC_KWH_CASES, LC_KWH_ACTIONS}) {
                if (auto copied = mrl::cdb::replaceRange(db, to, {kwh}); !copied) {
                    return copied;
                }
            }
            return mrl::cdb::replaceFacts(db, to);
        });
        bench::require(static_cast<bool>(made), "copy");
        mrl::cdb::close(made.db);
        return mrl::cli::Project::openForReading(folder / name);
    }
    void changeTitles(int every)
    {
        mrl::cdb::Transaction transaction(db);
        for (int number = every; every > 0 && number <= n; number += every) {
            tagCDB_LC_CTRL record{};
            bench::require(mrl_lc_get(db, number, record), "get");
            record.title[0] = 'x';
            bench::require(mrl_lc_put(db, number, record), "put");
        }
        bench::require(static_cast<bool>(transaction.commit()), "commit");
    }

    mrl::cli::Project m_a;
    mrl::cli::Project m_b;
};
const bench::Timed<Diff<0>> diffOfEqual("cli.diff_of_equal", 2.0, {100'000});
const bench::Timed<Diff<100>> diff("cli.diff", 2.0, {100'000});

} // namespace
