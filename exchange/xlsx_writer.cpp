#include "exchange/xlsx_writer.h"

#include <QFile>
#include <QTemporaryDir>

#include <charconv>

#include <xlsxwriter.h>

namespace mrl::exchange {

namespace {

constexpr int BLOCK = 1 << 16;
constexpr lxw_row_t LAST_ROW = LXW_ROW_MAX - 1;
// A file depends on its content alone: not on the time of its making.
constexpr time_t CREATED = 946684800;

bool isHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

/// A text of which nothing is taken for an escape such as _x000D_.
std::string escaped(const std::string& text)
{
    std::string out = text;
    for (std::size_t at = out.find("_x"); at != std::string::npos; at = out.find("_x", at + 1)) {
        if (at + 6 < out.size() && out[at + 6] == '_' && isHexDigit(out[at + 2]) && isHexDigit(out[at + 3]) &&
            isHexDigit(out[at + 4]) && isHexDigit(out[at + 5])) {
            out.insert(at, "_x005F");
            at += 6;
        }
    }
    return out;
}

FormatError cannotBeMade(std::string reason)
{
    return {{QT_TRANSLATE_NOOP("Exchange", "the workbook can't be made: %1"), {std::move(reason)}}};
}

std::optional<double> wholeDouble(const std::string& text)
{
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && end == text.data() + text.size() && value - value == 0.0;
    return isNumber ? std::optional<double>(value) : std::nullopt;
}

} // namespace

struct WorkbookWriter::Private
{
    QTemporaryDir folder; // the library writes to files alone
    std::string file = folder.filePath(QStringLiteral("workbook.xlsx")).toStdString();
    std::string folderName = folder.path().toStdString();
    lxw_workbook* workbook = nullptr; // the library frees it when it closes the file
    lxw_worksheet* sheet = nullptr;   // belongs to the workbook
    lxw_format* bold = nullptr;       // likewise
    std::vector<WorkbookColumn> columns;
    lxw_row_t row = 0;
    bool hasFilters = false;
    bool isTooLong = false;

    void endSheet()
    {
        if (sheet != nullptr && hasFilters && row > 0) {
            worksheet_autofilter(sheet, 0, 0, row - 1, static_cast<lxw_col_t>(columns.size() - 1));
        }
    }
    lxw_error close()
    {
        endSheet();
        lxw_workbook* const closed = workbook;
        workbook = nullptr;
        return workbook_close(closed);
    }
};

WorkbookWriter::WorkbookWriter() : d(std::make_unique<Private>())
{
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    options.tmpdir = d->folderName.data();
    d->workbook = workbook_new_opt(d->file.c_str(), &options);
    lxw_doc_properties properties{};
    properties.created = CREATED;
    workbook_set_properties(d->workbook, &properties);
    d->bold = workbook_add_format(d->workbook);
    format_set_bold(d->bold);
}

WorkbookWriter::~WorkbookWriter()
{
    if (d->workbook != nullptr) {
        d->close();
    }
}

void WorkbookWriter::beginSheet(const std::string& name, const std::vector<WorkbookColumn>& columns,
                                bool hasFilters)
{
    d->endSheet();
    d->sheet = workbook_add_worksheet(d->workbook, name.c_str());
    d->columns = columns;
    d->hasFilters = hasFilters;
    d->row = 1;
    worksheet_freeze_panes(d->sheet, 1, 0);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const auto column = static_cast<lxw_col_t>(i);
        worksheet_set_column(d->sheet, column, column, columns[i].width, nullptr);
        worksheet_write_string(d->sheet, 0, column, columns[i].heading.c_str(), d->bold);
    }
}

void WorkbookWriter::addRow(const Cells& cells)
{
    d->isTooLong = d->isTooLong || d->row > LAST_ROW;
    for (std::size_t i = 0; i < cells.size() && !d->isTooLong; ++i) {
        if (cells[i].empty()) {
            continue;
        }
        const auto number = d->columns[i].isNumber ? wholeDouble(cells[i]) : std::nullopt;
        const auto column = static_cast<lxw_col_t>(i);
        if (number) {
            worksheet_write_number(d->sheet, d->row, column, *number, nullptr);
        } else {
            worksheet_write_string(d->sheet, d->row, column, escaped(cells[i]).c_str(), nullptr);
        }
    }
    ++d->row;
}

void WorkbookWriter::offer(std::size_t column, const std::string& range)
{
    std::string formula = range;
    lxw_data_validation validation{};
    validation.validate = LXW_VALIDATION_TYPE_LIST_FORMULA;
    validation.value_formula = formula.data();
    validation.show_error = LXW_VALIDATION_OFF;
    const auto at = static_cast<lxw_col_t>(column);
    worksheet_data_validation_range(d->sheet, 1, at, LAST_ROW, at, &validation);
}

std::optional<FormatError> WorkbookWriter::finish(const Sink& sink)
{
    if (d->isTooLong) {
        d->close();
        return FormatError{{QT_TRANSLATE_NOOP(
            "Exchange", "a sheet of a workbook holds at most 1048575 rows below its heading")}};
    }
    const lxw_error error = d->close();
    if (error != LXW_NO_ERROR) {
        return cannotBeMade(lxw_strerror(error));
    }
    QFile file(QString::fromStdString(d->file));
    if (!file.open(QIODevice::ReadOnly)) {
        return cannotBeMade(file.errorString().toStdString());
    }
    for (QByteArray block = file.read(BLOCK); !block.isEmpty(); block = file.read(BLOCK)) {
        if (!sink({block.constData(), static_cast<std::size_t>(block.size())})) {
            return FormatError{{QT_TRANSLATE_NOOP("Exchange", "the file can't be written")}};
        }
    }
    return std::nullopt;
}

} // namespace mrl::exchange
