#include <QFileInfo>

#include <algorithm>

#include "exchange/delimited_text.h"
#include "exchange/format.h"
#include "exchange/json_text.h"
#include "exchange/saf_format.h"
#include "exchange/xlsx_format.h"

namespace mrl::exchange {

namespace {

std::vector<std::unique_ptr<Format>> allFormats()
{
    std::vector<std::unique_ptr<Format>> all;
    all.push_back(csvFormat());
    all.push_back(tsvFormat());
    all.push_back(jsonFormat());
    all.push_back(safFormat()); // is a workbook too, and tells by its sheets
    all.push_back(xlsxFormat());
    return all;
}

template <class Test>
const Format* firstWith(const Test& test)
{
    const auto found = std::find_if(formats().begin(), formats().end(), test);
    return found == formats().end() ? nullptr : found->get();
}

} // namespace

const std::vector<std::unique_ptr<Format>>& formats()
{
    static const auto ALL = allFormats();
    return ALL;
}

const Format* formatOfName(std::string_view name)
{
    return firstWith([&](const auto& format) { return format->name() == name; });
}

const Format* formatOfFile(const std::string& fileName, std::string_view file)
{
    if (const Format* found = firstWith([&](const auto& format) { return format->recognises(file); })) {
        return found;
    }
    const std::string suffix = QFileInfo(QString::fromStdString(fileName)).suffix().toLower().toStdString();
    return firstWith([&](const auto& format) {
        const std::vector<std::string> suffixes = format->suffixes();
        return std::find(suffixes.begin(), suffixes.end(), suffix) != suffixes.end();
    });
}

std::variant<ReadTables, FormatError> readTables(const Format& format, std::string_view bytes,
                                                 const FormatOptions& options)
{
    TableCollector collector;
    if (static_cast<long long>(bytes.size()) > MAX_FILE_BYTES) {
        return FormatError{{QT_TRANSLATE_NOOP("Exchange", "the file is larger than 256 MiB")}};
    }
    if (auto error = format.read(bytes, options, collector)) {
        return std::move(*error);
    }
    return std::move(collector.tables());
}

} // namespace mrl::exchange
