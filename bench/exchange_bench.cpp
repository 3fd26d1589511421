#include <QXmlStreamReader>

#include <algorithm>
#include <charconv>
#include <string>
#include <vector>

#include <malloc.h>
#include <xlsxwriter.h>

#include "bench/figure.h"
#include "bench/load_cases.h"
#include "exchange/apply_plan.h"
#include "exchange/format.h"
#include "exchange/sheet_walk.h"
#include "exchange/zip_archive.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "rules/load_case_row.h"

namespace {

using mrl::exchange::Format;
using mrl::exchange::Sheet;

const Format& format(const char* name) { return *mrl::exchange::formatOfName(name); }

std::string written(const char* name, int db)
{
    std::string file;
    const auto error =
        format(name).write({db, "p", {Sheet::LoadCases}, false, {}}, {}, [&](std::string_view bytes) {
            file += bytes;
            return true;
        });
    bench::require(!error, "write");
    return file;
}

/// The fields of a record one behind the other, without a thought for anything.
void formatPlainly(int number, const tagCDB_LC_CTRL& record, std::string& out)
{
    char digits[32];
    const auto add = [&](auto value) {
        out.append(std::begin(digits), std::to_chars(std::begin(digits), std::end(digits), value).ptr);
        out += ',';
    };
    add(number);
    const QByteArray title = lcm_title_text(record.title).toUtf8();
    out.append(title.constData(), static_cast<std::size_t>(title.size())).append(1, ',');
    out.append(lcm_word_name(record.action).toStdString()).append(1, ',');
    for (const float value : {record.dlx, record.dly, record.dlz, record.factor}) {
        add(value);
    }
    const LCM_LoadCaseFactors factors = lcm_stored_factors(record);
    for (const LCM_Factor& factor : LCM_FACTORS) {
        add(factors[factor.id]);
    }
    out += '\n';
}

/// Raw: the scan of the group and its fields with to_chars. Both hand on what they have in blocks.
template <const char* const& NAME>
class Export : bench::LoadCases
{
  public:
    using LoadCases::LoadCases;
    void ours()
    {
        std::size_t bytes = 0;
        const auto error =
            format(NAME).write({db, "p", {Sheet::LoadCases}, false, {}}, {}, [&](std::string_view block) {
                bytes += block.size();
                return true;
            });
        bench::require(!error, "write");
        bench::keep(bytes);
    }
    void raw()
    {
        constexpr std::size_t BLOCK = 1 << 16;
        std::string out;
        while (sqlite3_step(rawSide.scan) == SQLITE_ROW) {
            tagCDB_LC_CTRL record;
            std::memcpy(&record, sqlite3_column_blob(rawSide.scan, 1), sizeof record);
            formatPlainly(sqlite3_column_int(rawSide.scan, 0), record, out);
            if (out.size() > BLOCK) {
                bench::keep(out);
                out.clear();
            }
        }
        sqlite3_reset(rawSide.scan);
        bench::keep(out);
    }
};
const char* const CSV = "csv";
const char* const JSON = "json";
const bench::Timed<Export<CSV>> csvExport("exchange.csv_export", 2.0);
const bench::Timed<Export<JSON>> jsonExport("exchange.json_export", 2.0);

/// Raw: one transaction that writes the records, and the text split into fields.
template <const char* const& NAME>
class Import : bench::LoadCases
{
  public:
    explicit Import(int count) : LoadCases(count), m_text(written(NAME, db))
    {
        while (sqlite3_step(rawSide.scan) == SQLITE_ROW) {
            m_records.emplace_back();
            std::memcpy(&m_records.back(), sqlite3_column_blob(rawSide.scan, 1), sizeof(tagCDB_LC_CTRL));
        }
        sqlite3_reset(rawSide.scan);
    }
    void prepareOurs()
    {
        mrl::cdb::Transaction transaction(db);
        for (int number = 1; number <= n; ++number) {
            mrl_cdb_del(db, 12, number);
        }
        bench::require(static_cast<bool>(transaction.commit()), "commit");
    }
    void prepareRaw() { rawSide.execute("DELETE FROM record"); }
    void ours()
    {
        mrl::cdb::Transaction transaction(db);
        const auto tables = mrl::exchange::readTables(format(NAME), m_text, {});
        const auto state = mrl::exchange::stateOf(db);
        const auto plan = mrl::exchange::planOf(state, std::get<mrl::exchange::ReadTables>(tables).tables);
        bench::require(mrl::exchange::apply(plan, state, db) == nullptr, "apply");
        bench::require(plan.count(mrl::exchange::Outcome::Added) == n, "added");
        bench::require(static_cast<bool>(transaction.commit()), "commit");
    }
    void raw()
    {
        rawSide.execute("BEGIN IMMEDIATE");
        for (int number = 1; number <= n; ++number) {
            putRaw(number, m_records[static_cast<std::size_t>(number - 1)]);
        }
        rawSide.execute("COMMIT");
        std::vector<std::string> fields;
        for (std::size_t at = 0; at < m_text.size();) {
            const std::size_t end = std::min(m_text.find_first_of(",\n", at), m_text.size());
            fields.emplace_back(m_text, at, end - at);
            at = end + 1;
        }
        bench::keep(fields);
    }

  private:
    std::string m_text;
    std::vector<tagCDB_LC_CTRL> m_records;
};
const bench::Timed<Import<CSV>> csvImport("exchange.csv_import", 2.0);

/// Raw: libxlsxwriter fed with the same cells, which stand ready.
class WriteWorkbook : bench::LoadCases
{
  public:
    explicit WriteWorkbook(int count) : LoadCases(count)
    {
        for (mrl::exchange::SheetWalk walk(db, Sheet::LoadCases); walk.next();) {
            m_rows.push_back(walk.cells());
        }
    }
    void ours() { bench::keep(written("xlsx", db)); }
    void raw()
    {
        lxw_workbook_options options{};
        options.constant_memory = LXW_TRUE;
        const std::string file = folder / "raw.xlsx";
        lxw_workbook* workbook = workbook_new_opt(file.c_str(), &options);
        lxw_worksheet* sheet = workbook_add_worksheet(workbook, nullptr);
        for (std::size_t row = 0; row < m_rows.size(); ++row) {
            for (std::size_t i = 0; i < m_rows[row].size(); ++i) {
                writeCell(sheet, row, i);
            }
        }
        bench::require(workbook_close(workbook) == LXW_NO_ERROR, "close");
    }

  private:
    void writeCell(lxw_worksheet* sheet, std::size_t row, std::size_t i)
    {
        const auto at = static_cast<lxw_row_t>(row);
        const auto column = static_cast<lxw_col_t>(i);
        const std::string& cell = m_rows[row][i];
        if (i == 1 || i == 2) {
            worksheet_write_string(sheet, at, column, cell.c_str(), nullptr);
        } else if (!cell.empty()) {
            worksheet_write_number(sheet, at, column, std::strtod(cell.c_str(), nullptr), nullptr);
        }
    }

    std::vector<mrl::exchange::Cells> m_rows;
};
const bench::Timed<WriteWorkbook> writeWorkbook("exchange.xlsx_write", 1.3);

/// Counts what is read.
class Counter : public mrl::exchange::TableReceiver
{
  public:
    void begin(const mrl::exchange::TableHead&) override {}
    void take(mrl::exchange::Row&) override { ++rows; }
    void note(const mrl::exchange::Message&) override {}

    int rows = 0;
};

/// Raw: the sheet inflated and its XML tokenised.
class ReadWorkbook : bench::LoadCases
{
  public:
    explicit ReadWorkbook(int count) : LoadCases(count), m_file(written("xlsx", db)) {}
    void ours()
    {
        Counter counter;
        bench::require(!format("xlsx").read(m_file, {}, counter), "read");
        bench::require(counter.rows == n, "rows");
    }
    void raw()
    {
        const mrl::exchange::ZipArchive zip(m_file);
        const auto entry = zip.open("xl/worksheets/sheet1.xml");
        QXmlStreamReader xml(entry.get());
        while (!xml.atEnd()) {
            xml.readNext();
        }
        bench::require(!xml.hasError(), "tokenise");
    }

  private:
    std::string m_file;
};
const bench::Timed<ReadWorkbook> readWorkbook("exchange.xlsx_read", 1.5);

/// What reading a workbook holds at most beside its bytes. Raw: 30 MB, which is what is wanted.
class ReadWorkbookMemory : bench::LoadCases
{
  public:
    explicit ReadWorkbookMemory(int count) : LoadCases(count), m_file(written("xlsx", db)) {}
    double ours()
    {
        Peak peak;
        bench::require(!format("xlsx").read(m_file, {}, peak), "read");
        return peak.most();
    }
    double raw() { return 30e6; }

  private:
    /// Looks at the memory every thousand rows.
    class Peak : public Counter
    {
      public:
        void take(mrl::exchange::Row& row) override
        {
            Counter::take(row);
            if (rows % 1000 == 0) {
                m_most = std::max(m_most, held() - m_before);
            }
        }
        double most() const { return m_most; }

      private:
        static double held()
        {
            const auto info = mallinfo2();
            return static_cast<double>(info.uordblks + info.hblkhd);
        }
        double m_before = held();
        double m_most = 0.0;
    };

    std::string m_file;
};
const bench::Measured<ReadWorkbookMemory> readWorkbookMemory("exchange.xlsx_read_memory", 1.0);

} // namespace
