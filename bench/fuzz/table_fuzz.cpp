#include <cstdint>
#include <cstdlib>

#include "exchange/import_plan.h"
#include "exchange/json_text.h"
#include "exchange/saf_format.h"
#include "hostlib/data/cdb/project.h"

// An input is a file of the format MRL_FORMAT. Whatever it holds, reading it ends with tables or a reason, and a plan of
// its rows names an outcome for each; nothing is written. A workbook is read as SAF too, and JSON as a whole project.

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

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const mrl::exchange::Format& format = *mrl::exchange::formatOfName(MRL_FORMAT);
    read(format, bytes);
    if (format.name() == "xlsx") {
        read(*mrl::exchange::safFormat(), bytes);
    }
    if (format.name() == "json") {
        static_cast<void>(mrl::exchange::projectOfJson(bytes));
    }
    return 0;
}
