#include "exchange/xlsx_format.h"

#include <algorithm>

#include "check/finding_text.h"
#include "check/project_check.h"
#include "exchange/decimals.h"
#include "exchange/headings.h"
#include "exchange/project_state.h"
#include "exchange/sheet_walk.h"
#include "exchange/xlsx_workbook.h"
#include "exchange/xlsx_writer.h"
#include "lcdata/values/action_code.h"

namespace mrl::exchange {

namespace {

constexpr double TITLE_WIDTH = 36.0;
constexpr double TEXT_WIDTH = 14.0;
constexpr double FACTOR_WIDTH = 9.0;
constexpr double MESSAGE_WIDTH = 80.0;

bool isNumberIn(Sheet sheet, const Column& column)
{
    return column.isNumeric() || (column.kind == Kind::Key && sheet == Sheet::LoadCases);
}

std::vector<WorkbookColumn> workbookColumns(Sheet sheet)
{
    std::vector<WorkbookColumn> columns;
    for (const Column& column : columnsOf(sheet)) {
        const double width = column.kind == Kind::Text ? TITLE_WIDTH
                             : column.isNumeric()      ? FACTOR_WIDTH
                                                       : TEXT_WIDTH;
        columns.push_back({column.name, width, isNumberIn(sheet, column)});
    }
    return columns;
}

/// @return how many rows it has
int writeSheet(int db, Sheet sheet, WorkbookWriter& writer)
{
    writer.beginSheet(nameOf(sheet), workbookColumns(sheet), true);
    int count = 0;
    for (SheetWalk walk(db, sheet); walk.next(); ++count) {
        writer.addRow(walk.cells());
    }
    return count;
}

void writeDesignCode(const Source& source, WorkbookWriter& writer)
{
    writer.beginSheet("design code", {{"entry", TEXT_WIDTH}, {"value", TITLE_WIDTH, true}}, false);
    const ProjectState state = stateOf(source.db);
    for (const auto& [name, value] : source.facts) {
        writer.addRow({name, value});
    }
    for (const LCM_Factor& factor : LCM_FACTORS) {
        writer.addRow(
            {std::string("limit ") + factor.key, numberText(lcm_stored_factor(state.limits, factor))});
    }
}

std::string nameOf(const LCM_Finding& finding)
{
    return finding.subject == LCM_Subject::Action     ? lcm_code_name(finding.id).toStdString()
           : finding.subject == LCM_Subject::LoadCase ? std::to_string(finding.id)
                                                      : std::string();
}

void writeFindings(const Source& source, WorkbookWriter& writer)
{
    writer.beginSheet(
        "findings",
        {{"subject", TEXT_WIDTH}, {"name", TEXT_WIDTH}, {"rule", TITLE_WIDTH}, {"message", MESSAGE_WIDTH}},
        true);
    for (const LCM_Finding& finding : lcm_check_project(source.db, false)) {
        const char* subject = finding.subject == LCM_Subject::Action     ? "action"
                              : finding.subject == LCM_Subject::LoadCase ? "loadcase"
                                                                         : "project";
        writer.addRow({subject, nameOf(finding), lcm_rule_id(finding.rule),
                       lcm_finding_english(finding).toStdString()});
    }
}

/// Reads a sheet as a table.
class SheetReader
{
  public:
    SheetReader(const Workbook& workbook, const FormatOptions& options, TableReceiver& receiver)
        : m_workbook(workbook), m_options(options), m_receiver(receiver)
    {
    }

    /// @return what is wrong; empty when the sheet was read
    Message read(const WorkbookSheet& sheet)
    {
        Message error;
        bool isHeading = true;
        const Message broken = m_workbook.readRows(sheet, [&](WorkbookRow& row) {
            if (isHeading) {
                isHeading = false;
                error = readHeading(row);
            } else {
                take(row);
            }
            return error.empty();
        });
        error = broken.empty() ? error : broken;
        error = error.empty() && isHeading ? Message{QT_TRANSLATE_NOOP("Exchange", "it is empty")} : error;
        return error.empty()
                   ? error
                   : Message::at({QT_TRANSLATE_NOOP("Exchange", "sheet \"%1\""), {sheet.name}}, error);
    }
    /// Whether the first row that holds anything heads a table.
    bool headsTable(const WorkbookSheet& sheet) const
    {
        bool heads = false;
        m_workbook.readRows(sheet, [&](WorkbookRow& row) {
            heads = understoodHeadings(row.cells, m_options).count > 0;
            return false;
        });
        return heads;
    }

  private:
    Message readHeading(const WorkbookRow& row)
    {
        if (auto error = m_headings.read(row.number, row.cells, m_options, m_receiver)) {
            return error->message;
        }
        for (const Message& note : m_headings.notes()) {
            m_receiver.note(note);
        }
        m_receiver.begin(m_headings.head());
        return {};
    }
    void take(WorkbookRow& row)
    {
        m_row.line = row.number;
        m_row.cells.resize(m_headings.places().size());
        const std::vector<Column>& columns = columnsOf(m_headings.head().sheet);
        for (std::size_t i = 0; i < m_row.cells.size(); ++i) {
            const std::size_t place = m_headings.places()[i];
            const Column& column = columns[static_cast<std::size_t>(m_headings.head().columns[i])];
            m_row.cells[i].clear();
            if (place >= row.cells.size()) {
                continue;
            }
            m_row.cells[i].swap(row.cells[place]);
            if (row.isDates[place] && isNumberIn(m_headings.head().sheet, column)) {
                m_row.cells[i].insert(0, "date "); // which is no number
            }
        }
        m_receiver.take(m_row);
    }

    const Workbook& m_workbook;
    const FormatOptions& m_options;
    TableReceiver& m_receiver;
    Headings m_headings;
    Row m_row;
};

class XlsxFormat : public Format
{
  public:
    std::string name() const override { return "xlsx"; }
    Message description() const override { return QT_TRANSLATE_NOOP("Exchange", "Workbook (XLSX)"); }
    std::vector<std::string> suffixes() const override { return {name()}; }
    bool holdsManySheets() const override { return true; }
    bool recognises(std::string_view file) const override { return file.substr(0, 4) == "PK\x03\x04"; }

    std::optional<FormatError> write(const Source& source, const FormatOptions&,
                                     const Sink& sink) const override
    {
        WorkbookWriter writer;
        int actions = 0;
        for (const Sheet sheet : source.sheets) {
            const int count = writeSheet(source.db, sheet, writer);
            actions = sheet == Sheet::Actions ? count : actions;
            if (sheet == Sheet::LoadCases && actions > 0) {
                writer.offer(CASE_ACTION, "=actions!$A$2:$A$" + std::to_string(actions + 1));
            }
        }
        if (source.whole) {
            writeDesignCode(source, writer);
            writeFindings(source, writer);
        }
        return writer.finish(sink);
    }

    std::optional<FormatError> writeCombinations(const Source&, const CombinationTable& table,
                                                 const FormatOptions&, const Sink& sink) const override
    {
        WorkbookWriter writer;
        if (const Message error = writeSheet(table, writer); !error.empty()) {
            return FormatError{error};
        }
        return writer.finish(sink);
    }

    std::optional<FormatError> read(std::string_view bytes, const FormatOptions& options,
                                    TableReceiver& receiver) const override
    {
        const Workbook workbook(bytes);
        if (!workbook.error().empty()) {
            return FormatError{workbook.error()};
        }
        const std::vector<WorkbookSheet> tables = tablesOf(workbook, options, receiver);
        if (tables.empty()) {
            if (!workbook.sheets().empty()) { // so that the receiver knows the headings
                SheetReader(workbook, options, receiver).read(workbook.sheets().front());
            }
            return FormatError{{QT_TRANSLATE_NOOP(
                "Exchange", "no sheet has a column that is headed \"number\" or \"name\"")}};
        }
        for (const WorkbookSheet& sheet : tables) {
            const Message error = SheetReader(workbook, toldFor(sheet, options), receiver).read(sheet);
            if (!error.empty()) {
                return FormatError{error};
            }
        }
        return std::nullopt;
    }

  private:
    /// A sheet of ours says by its name what it holds.
    static FormatOptions toldFor(const WorkbookSheet& sheet, const FormatOptions& options)
    {
        FormatOptions told = options;
        for (const Sheet one : {Sheet::Actions, Sheet::LoadCases}) {
            if (sheet.name == exchange::nameOf(one)) {
                told.sheet = one;
            }
        }
        return told;
    }
    static std::vector<WorkbookSheet> tablesOf(const Workbook& workbook, const FormatOptions& options,
                                               TableReceiver& receiver)
    {
        std::vector<WorkbookSheet> named;
        for (const WorkbookSheet& sheet : workbook.sheets()) {
            const FormatOptions told = toldFor(sheet, {});
            if (told.sheet && (!options.sheet || *options.sheet == *told.sheet)) {
                named.push_back(sheet);
            }
        }
        if (!named.empty()) {
            return named;
        }
        for (const WorkbookSheet& sheet : workbook.sheets()) {
            if (SheetReader(workbook, options, receiver).headsTable(sheet)) {
                receiver.note({QT_TRANSLATE_NOOP("Exchange", "read sheet \"%1\""), {sheet.name}});
                return {sheet};
            }
        }
        return {};
    }
};

} // namespace

std::unique_ptr<Format> xlsxFormat() { return std::make_unique<XlsxFormat>(); }

} // namespace mrl::exchange
