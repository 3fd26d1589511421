#include "exchange/row_numbering.h"

#include <algorithm>

#include "exchange/decimals.h"
#include "exchange/record_cells.h"
#include "lcdata/values/keys.h"

namespace mrl::exchange {

namespace {

bool mayPick(const std::vector<Table>& tables, Match match)
{
    return match == Match::Title || std::any_of(tables.begin(), tables.end(),
                                                [](const Table& table) { return table.head.picksNumbers; });
}

void addStated(const Table& table, std::set<int>& used)
{
    RowCells cells(table.head);
    for (const Row& row : table.rows) {
        cells.moveTo(row);
        if (const auto number = wholeNumberOf(cells.text(CASE_NUMBER))) {
            used.insert(*number);
        }
    }
}

/// The numbers that are not free: those of the project, and those that rows state. None where no row picks one.
std::set<int> usedNumbers(const std::vector<Table>& tables, const ProjectState& state, Match match)
{
    if (!mayPick(tables, match)) {
        return {};
    }
    std::set<int> used = state.foreignNumbers;
    for (const auto& loadCase : state.loadCases) {
        used.insert(loadCase.first);
    }
    for (const Table& table : tables) {
        if (table.head.sheet == Sheet::LoadCases) {
            addStated(table, used);
        }
    }
    return used;
}

void readNumber(const std::string& text, const ProjectState& state, PlannedRow& row)
{
    row.id = wholeNumberOf(text).value_or(0);
    if (row.id < 1 || (row.id > LC_MAX_NUMBER && state.loadCases.count(row.id) == 0)) {
        refuse(row, "import-load-case-number",
               {QT_TRANSLATE_NOOP("Exchange", "\"%1\" is no number of a load case (1 to 999999)"), {text}});
        row.id = 0;
    }
}

void refuseForeign(const ProjectState& state, PlannedRow& row)
{
    if (row.outcome != Outcome::Refused && state.foreignNumbers.count(row.id) != 0) {
        refuse(row, "import-other-module",
               {QT_TRANSLATE_NOOP("Exchange", "load case %1 belongs to another module"),
                {std::to_string(row.id)}});
    }
}

} // namespace

void takeStatedNumber(const std::string& text, const ProjectState& state, PlannedRow& row)
{
    readNumber(text, state, row);
    refuseForeign(state, row);
}

RowNumbering::RowNumbering(const std::vector<Table>& tables, const ProjectState& state, Match match)
    : m_state(state), m_match(match), m_picksNumbers(mayPick(tables, match)),
      m_used(usedNumbers(tables, state, match)), m_free({m_used.begin(), m_used.end()}, std::nullopt, m_used)
{
    if (match == Match::Title) {
        for (const auto& [number, record] : state.loadCases) {
            const auto [at, isFirst] = m_titles.emplace(titleText(record.title), number);
            at->second = isFirst ? number : 0;
        }
    }
}

void RowNumbering::identify(const RowCells& cells, PlannedRow& row)
{
    row.name = cells.text(CASE_NUMBER);
    if (m_match == Match::Title) {
        identifyByTitle(cells, row);
    } else {
        identifyByNumber(cells, row);
    }
    refuseForeign(m_state, row);
    if (row.outcome != Outcome::Refused) {
        refuseDoubled(row);
    }
}

void RowNumbering::identifyByNumber(const RowCells& cells, PlannedRow& row)
{
    if (row.name.empty() && m_picksNumbers) {
        row.name = cells.text(CASE_TITLE);
        takeFreeNumber(row);
    } else {
        readNumber(row.name, m_state, row);
    }
}

void RowNumbering::identifyByTitle(const RowCells& cells, PlannedRow& row)
{
    const std::string* title = cells.cell(CASE_TITLE);
    const std::string number = row.name;
    row.name = title == nullptr ? std::string() : *title;
    const auto [first, isFirst] = m_titleLines.emplace(row.name, row.line);
    if (!isFirst) {
        refuse(row, "import-doubled",
               {QT_TRANSLATE_NOOP("Exchange", "the title \"%1\" stands in line %2 already"),
                {row.name, std::to_string(first->second)}});
        return;
    }
    const auto found = m_titles.find(row.name);
    if (found != m_titles.end() && found->second == 0) {
        refuse(row, "import-title-ambiguous",
               {QT_TRANSLATE_NOOP("Exchange", "several load cases have the title \"%1\""), {row.name}});
    } else if (found != m_titles.end()) {
        row.id = found->second;
    } else if (number.empty()) {
        takeFreeNumber(row);
    } else {
        readNumber(number, m_state, row);
        if (m_state.loadCases.count(row.id) != 0) {
            refuse(row, "import-number-taken",
                   {QT_TRANSLATE_NOOP("Exchange", "load case %1 has another title than \"%2\""),
                    {number, row.name}});
        }
    }
}

void RowNumbering::takeFreeNumber(PlannedRow& row)
{
    row.id = m_free.next();
    while (m_used.count(row.id) != 0) {
        m_free.take(row.id);
        row.id = m_free.next();
    }
    m_free.take(row.id);
    m_used.insert(row.id);
    if (row.id > LC_MAX_NUMBER) {
        refuse(row, "import-load-case-number",
               {QT_TRANSLATE_NOOP("Exchange", "no number up to 999999 is free for \"%1\""), {row.name}});
    }
}

void RowNumbering::refuseDoubled(PlannedRow& row)
{
    const auto [first, isFirst] = m_lines.emplace(row.id, row.line);
    if (!isFirst) {
        refuse(row, "import-doubled",
               {QT_TRANSLATE_NOOP("Exchange", "load case %1 stands in line %2 already"),
                {std::to_string(row.id), std::to_string(first->second)}});
    }
}

} // namespace mrl::exchange
