#include "exchange/headings.h"

#include <algorithm>

namespace mrl::exchange {

namespace {

/// Whether rows can be told apart by a column.
bool isKey(Sheet sheet, int column, bool byTitle)
{
    return column == 0 || (byTitle && sheet == Sheet::LoadCases && column == CASE_TITLE);
}

/// What a heading means: what was told by hand, else its name.
int columnOf(Sheet sheet, const std::string& heading, const FormatOptions& told)
{
    const auto byHand = told.columns.find(heading);
    return columnOfHeading(sheet, byHand == told.columns.end() ? heading : byHand->second);
}

Understood understoodAs(Sheet sheet, const Cells& headings, const FormatOptions& told)
{
    Understood result{0, sheet};
    bool hasKey = false;
    for (const std::string& heading : headings) {
        const int column = columnOf(sheet, heading, told);
        result.count += column >= 0 ? 1 : 0;
        hasKey = hasKey || isKey(sheet, column, told.byTitle);
    }
    result.count = hasKey ? result.count : 0;
    return result;
}

} // namespace

Understood understoodHeadings(const Cells& headings, const FormatOptions& told)
{
    if (told.sheet) {
        return understoodAs(*told.sheet, headings, told);
    }
    const Understood loadCases = understoodAs(Sheet::LoadCases, headings, told);
    const Understood actions = understoodAs(Sheet::Actions, headings, told);
    return actions.count > loadCases.count ? actions : loadCases;
}

std::optional<FormatError> Headings::read(int line, const Cells& headings, const FormatOptions& told,
                                          TableReceiver& receiver)
{
    m_head.sheet = understoodHeadings(headings, told).sheet;
    std::vector<FoundHeading> found;
    for (const std::string& heading : headings) {
        found.push_back({heading, columnOf(m_head.sheet, heading, told)});
    }
    receiver.headings(m_head.sheet, found);
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (found[i].column < 0) {
            m_notes.push_back({QT_TRANSLATE_NOOP("Exchange", "column \"%1\" is passed over"), {headings[i]}});
            continue;
        }
        if (std::count(m_head.columns.begin(), m_head.columns.end(), found[i].column) > 0) {
            const auto column = static_cast<std::size_t>(found[i].column);
            return FormatError{{QT_TRANSLATE_NOOP("Exchange", "line %1: two columns mean \"%2\""),
                                {std::to_string(line), columnsOf(m_head.sheet)[column].name}}};
        }
        m_head.columns.push_back(found[i].column);
        m_places.push_back(i);
    }
    if (std::none_of(m_head.columns.begin(), m_head.columns.end(),
                     [&](int column) { return isKey(m_head.sheet, column, told.byTitle); })) {
        return FormatError{
            {QT_TRANSLATE_NOOP("Exchange", "no column is headed \"%1\""), {columnsOf(m_head.sheet)[0].name}}};
    }
    return std::nullopt;
}

} // namespace mrl::exchange
