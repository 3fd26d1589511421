#include "exchange/headings.h"

#include <algorithm>

namespace mrl::exchange {

namespace {

/// Whether rows can be told apart by a column.
bool isKey(Sheet sheet, int column, bool byTitle)
{
    return column == 0 || (byTitle && sheet == Sheet::LoadCases && column == CASE_TITLE);
}

Understood understoodAs(Sheet sheet, const Cells& headings, bool byTitle)
{
    Understood result{0, sheet};
    bool hasKey = false;
    for (const std::string& heading : headings) {
        const int column = columnOfHeading(sheet, heading);
        result.count += column >= 0 ? 1 : 0;
        hasKey = hasKey || isKey(sheet, column, byTitle);
    }
    result.count = hasKey ? result.count : 0;
    return result;
}

} // namespace

Understood understoodHeadings(const Cells& headings, const FormatOptions& told)
{
    if (told.sheet) {
        return understoodAs(*told.sheet, headings, told.byTitle);
    }
    const Understood loadCases = understoodAs(Sheet::LoadCases, headings, told.byTitle);
    const Understood actions = understoodAs(Sheet::Actions, headings, told.byTitle);
    return actions.count > loadCases.count ? actions : loadCases;
}

std::optional<FormatError> Headings::read(int line, const Cells& headings, const FormatOptions& told)
{
    m_head.sheet = understoodHeadings(headings, told).sheet;
    const std::vector<Column>& columns = columnsOf(m_head.sheet);
    for (std::size_t i = 0; i < headings.size(); ++i) {
        const int column = columnOfHeading(m_head.sheet, headings[i]);
        if (column < 0) {
            m_notes.push_back("column \"" + headings[i] + "\" is passed over");
            continue;
        }
        if (std::count(m_head.columns.begin(), m_head.columns.end(), column) > 0) {
            return FormatError{"line " + std::to_string(line) + ": two columns mean \"" +
                               columns[static_cast<std::size_t>(column)].name + '"'};
        }
        m_head.columns.push_back(column);
        m_places.push_back(i);
    }
    if (std::none_of(m_head.columns.begin(), m_head.columns.end(),
                     [&](int column) { return isKey(m_head.sheet, column, told.byTitle); })) {
        return FormatError{std::string("no column is headed \"") + columns[0].name + '"'};
    }
    return std::nullopt;
}

} // namespace mrl::exchange
