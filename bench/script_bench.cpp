#include "bench/figure.h"
#include "bench/raw_database.h"
#include "cli/script.h"
#include "hostlib/data/cdb/project.h"
#include "lcdata/load_cases.h"

namespace {

/// Operations "case create" of a script in one transaction. Raw: one transaction that writes their records into the same
/// project, as other modules do.
class CreateCases
{
  public:
    explicit CreateCases(int count) : m_count(count)
    {
        const auto made = mrl::cdb::create(m_file);
        bench::require(static_cast<bool>(made), "create");
        bench::require(static_cast<bool>(mrl::cdb::setFact(made.db, "designcode", "en1990")), "design code");
        mrl::cdb::close(made.db);
        run({R"({"op": "action create", "name": "S"})"});
        for (int number = 1; number <= m_count; ++number) {
            m_lines.push_back(R"({"op": "case create", "number": )" + std::to_string(number) +
                              R"(, "title": "Snow", "action": "S"})");
        }
    }
    void prepareOurs() { removeCases(); }
    void prepareRaw() { removeCases(); }
    void ours() { run(m_lines); }
    void raw()
    {
        const auto opened = mrl::cdb::open(m_file);
        mrl::cdb::Transaction transaction(opened.db);
        tagCDB_LC_CTRL record{};
        record.factor = 1.0f;
        for (int number = 1; number <= m_count; ++number) {
            bench::require(mrl_lc_put(opened.db, number, record), "put");
        }
        bench::require(static_cast<bool>(transaction.commit()), "commit");
        mrl::cdb::close(opened.db);
    }

  private:
    void removeCases()
    {
        const auto opened = mrl::cdb::open(m_file);
        mrl::cdb::Transaction transaction(opened.db);
        for (int number = 1; number <= m_count; ++number) {
            mrl_cdb_del(opened.db, 12, number);
        }
        bench::require(static_cast<bool>(transaction.commit()), "commit");
        mrl::cdb::close(opened.db);
    }
    void run(const std::vector<std::string>& lines)
    {
        auto project = mrl::cli::Project::openForWriting(m_file);
        mrl::cli::Script script(project);
        int number = 0;
        std::string results;
        for (const std::string& line : lines) {
            script.run(++number, line, results);
        }
        project.commit();
        bench::keep(results);
    }

    int m_count;
    bench::Folder m_folder;
    std::string m_file = m_folder / "ours.cdb";
    std::vector<std::string> m_lines;
};
const bench::Timed<CreateCases> createCases("cli.apply", 3.0);

} // namespace
