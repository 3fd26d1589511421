#include "exchange/import_plan.h"

#include <QCryptographicHash>

#include <algorithm>

#include "check/finding_text.h"
#include "exchange/decimals.h"
#include "exchange/planning.h"
#include "exchange/raw_records.h"
#include "exchange/record_cells.h"
#include "exchange/row_numbering.h"
#include "lcdata/values/packed_text.h"

namespace mrl::exchange {

namespace {

constexpr int TITLE_UNITS = 2 * LC_TITLE_WORDS - 1;
constexpr std::size_t HASH_DIGITS = 16;

void add(QCryptographicHash& hash, std::string_view bytes)
{
    hash.addData(bytes.data(), static_cast<int>(bytes.size()));
    hash.addData("\0", 1);
}

Cells cellsBefore(const PlannedRow& row)
{
    return row.sheet == Sheet::Actions ? cellsOf(row.id, row.action->stored)
                                       : cellsOf(row.id, row.storedLoadCase);
}

Cells cellsAfter(const PlannedRow& row)
{
    return row.sheet == Sheet::Actions ? cellsOf(row.id, row.action->wanted) : cellsOf(row.id, row.loadCase);
}

} // namespace

std::vector<Change> PlannedRow::changes() const
{
    std::vector<Change> changes;
    const std::vector<Column>& columns = columnsOf(sheet);
    const Cells before = isNew ? Cells(columns.size()) : cellsBefore(*this);
    const Cells after = cellsAfter(*this);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (isNew || before[i] != after[i]) {
            changes.push_back({&columns[i], before[i], after[i]});
        }
    }
    return changes;
}

int Plan::count(Outcome outcome) const
{
    return static_cast<int>(std::count_if(rows.begin(), rows.end(),
                                          [&](const PlannedRow& row) { return row.outcome == outcome; }));
}

std::string Plan::hash() const
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const PlannedRow& row : rows) {
        add(hash,
            std::to_string(static_cast<int>(row.outcome)) + std::to_string(static_cast<int>(row.sheet)));
        add(hash, std::to_string(row.id));
        add(hash, row.name);
        if (row.sheet == Sheet::Actions) {
            add(hash, bytesOf(row.action->stored));
            add(hash, bytesOf(row.action->wanted));
        } else {
            add(hash, bytesOf(row.storedLoadCase));
            add(hash, bytesOf(row.loadCase));
        }
    }
    return hash.result().toHex().toStdString().substr(0, HASH_DIGITS);
}

void refuse(PlannedRow& row, const char* rule, const Message& message)
{
    row.outcome = Outcome::Refused;
    row.reasons.push_back({rule, message});
}

void refuse(PlannedRow& row, const LCM_Findings& findings)
{
    for (const LCM_Finding& finding : findings) {
        refuse(row, lcm_rule_id(finding.rule), Message::verbatim(lcm_finding_english(finding).toStdString()));
        row.findings.push_back(finding);
    }
}

RowCells::RowCells(const TableHead& head) : m_places(columnsOf(head.sheet).size(), -1)
{
    for (std::size_t i = 0; i < head.columns.size(); ++i) {
        m_places[static_cast<std::size_t>(head.columns[i])] = static_cast<int>(i);
    }
}

std::string RowCells::text(std::size_t column) const
{
    const std::string* found = cell(column);
    return found == nullptr ? std::string() : std::string(trimmed(*found));
}

void packTitle(const std::string& title, std::uint32_t (&field)[LC_TITLE_WORDS], PlannedRow& row)
{
    const QString whole = QString::fromStdString(title);
    QString fitting = whole.left(TITLE_UNITS);
    if (whole.size() > TITLE_UNITS && fitting.at(TITLE_UNITS - 1).isHighSurrogate()) {
        fitting.chop(1);
    }
    if (fitting.size() < whole.size()) {
        row.notes.push_back({QT_TRANSLATE_NOOP("Exchange", "the title loses \"%1\""),
                             {whole.mid(fitting.size()).toStdString()}});
    }
    lcm_title_pack(fitting, field, LC_TITLE_WORDS);
}

void RowPlan::changeTitle(std::size_t column, std::uint32_t (&field)[LC_TITLE_WORDS])
{
    const std::string* title = m_cells.cell(column);
    if (title != nullptr && *title != titleText(field)) {
        packTitle(*title, field, m_row);
    }
}

std::optional<float> numberIn(const std::string& cell, const Column& column, PlannedRow& row)
{
    const auto value = numberOf(cell);
    if (!value && !trimmed(cell).empty()) {
        refuse(row, "import-no-number",
               {QT_TRANSLATE_NOOP("Exchange", "\"%1\" of \"%2\" is no number"), {cell, column.name}});
    }
    return value;
}

void conclude(PlannedRow& row, bool isEqual)
{
    if (row.outcome != Outcome::Refused) {
        row.outcome = row.isNew ? Outcome::Added : isEqual ? Outcome::Unchanged : Outcome::Changed;
    }
}

void enter(const PlannedRow& row, ProjectState& state)
{
    if (row.outcome != Outcome::Added && row.outcome != Outcome::Changed) {
        return;
    }
    if (row.sheet == Sheet::LoadCases) {
        state.loadCases[row.id] = row.loadCase;
    } else {
        LCM_StoredAction& stored = state.actions[row.id];
        stored.code = row.id;
        stored.record = row.action->wanted;
    }
}

PlannedRow planRow(ProjectState& state, const TableHead& head, const Row& row)
{
    RowCells cells(head);
    cells.moveTo(row);
    PlannedRow planned;
    planned.line = row.line;
    planned.notes = row.notes;
    if (head.sheet == Sheet::Actions) {
        planAction(cells, state, planned);
    } else {
        planned.name = cells.text(CASE_NUMBER);
        takeStatedNumber(planned.name, state, planned);
        if (planned.outcome != Outcome::Refused) {
            planLoadCase(cells, state, planned);
        }
    }
    enter(planned, state);
    return planned;
}

Plan planOf(const ProjectState& state, const std::vector<Table>& tables, const PlanOptions& options)
{
    ProjectState after = state;
    Plan plan;
    std::map<int, int> lines;
    for (const Table& table : tables) {
        if (table.head.sheet == Sheet::Actions) {
            planActions(table, after, lines, plan);
        }
    }
    RowNumbering numbering(tables, after, options.match);
    std::size_t rows = plan.rows.size();
    for (const Table& table : tables) {
        rows += table.head.sheet == Sheet::LoadCases ? table.rows.size() : 0;
    }
    plan.rows.reserve(rows);
    for (const Table& table : tables) {
        if (table.head.sheet == Sheet::LoadCases) {
            planLoadCases(table, after, options, numbering, plan);
        }
    }
    return plan;
}

} // namespace mrl::exchange
