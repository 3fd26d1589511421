#include <cstdint>
#include <cstdlib>
#include <string>

#include <zip.h>

#include "exchange/import_plan.h"
#include "exchange/json_text.h"
#include "exchange/saf_format.h"
#include "hostlib/data/cdb/project.h"

// An input is a file of the format MRL_FORMAT. Whatever it holds, reading it ends with tables or a reason, and a plan of
// its rows names an outcome for each; nothing is written. A workbook is read as SAF too, and JSON as a whole project. An
// input that begins like XML stands in a workbook as all of its entries, since no chance makes a zip file.

namespace {

void read(const mrl::exchange::Format& format, std::string_view bytes)
{
    static const int DB = mrl::cdb::openMemory().db;
    static const mrl::exchange::ProjectState STATE = mrl::exchange::stateOf(DB);
    const auto read = mrl::exchange::readTables(format, bytes, {});
    const auto* tables = std::get_if<mrl::exchange::ReadTables>(&read);
    if (tables == nullptr) {
        return;
    }
    std::size_t rows = 0;
    for (const mrl::exchange::Table& table : tables->tables) {
        rows += table.rows.size();
    }
    if (mrl::exchange::planOf(STATE, tables->tables).rows.size() != rows) {
        std::abort();
    }
}

/// A workbook all of whose entries hold this text; empty when it can't be made.
std::string workbookOf(std::string_view text)
{
    constexpr auto RELATIONS = R"(<R><R Id="r" Type="x/worksheet" Target="s.xml"/></R>)";
    constexpr auto SHEETS = R"(<w xmlns:r="x"><sheet name="loadcases" r:id="r"/></w>)";
    zip_error_t error{};
    zip_source_t* out = zip_source_buffer_create(nullptr, 0, 0, &error);
    zip_source_keep(out); // beyond the archive
    zip_t* zip = zip_open_from_source(out, ZIP_TRUNCATE, &error);
    const auto add = [&](const char* name, std::string_view content) {
        zip_file_add(zip, name, zip_source_buffer(zip, content.data(), content.size(), 0), 0);
    };
    add("xl/_rels/workbook.xml.rels", RELATIONS);
    add("xl/workbook.xml", SHEETS);
    for (const char* name : {"xl/s.xml", "xl/sharedStrings.xml", "xl/styles.xml"}) {
        add(name, text);
    }
    std::string file;
    zip_stat_t stat;
    if (zip_close(zip) == 0 && zip_source_stat(out, &stat) == 0 && zip_source_open(out) == 0) {
        file.resize(stat.size);
        zip_source_read(out, file.data(), stat.size);
        zip_source_close(out);
    }
    zip_source_free(out);
    return file;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const mrl::exchange::Format& format = *mrl::exchange::formatOfName(MRL_FORMAT);
    read(format, bytes);
    if (format.name() == "xlsx" && size > 0 && bytes.front() == '<') {
        const std::string workbook = workbookOf(bytes);
        read(format, workbook);
    } else if (format.name() == "xlsx") {
        read(*mrl::exchange::safFormat(), bytes);
    }
    if (format.name() == "json") {
        static_cast<void>(mrl::exchange::projectOfJson(bytes));
    }
    return 0;
}
