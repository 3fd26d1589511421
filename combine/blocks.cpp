#include "combine/blocks.h"

#include <map>

namespace mrl::combine {

Blocks::Blocks(const ResolvedExpression& expression)
    : m_expression(expression), m_prepared(expression.prepared())
{
    for (std::size_t i = 0; i < m_prepared.units.size(); ++i) {
        const Unit& unit = m_prepared.units[i];
        const bool isVariable = unit.kind == UnitKind::Variable;
        m_mustAct.push_back(isVariable && m_expression.mustAct(unit));
        m_isShort.push_back(isVariable && m_expression.isShort(unit));
        if (isVariable && m_firstVariable < 0) {
            m_firstVariable = static_cast<int>(i);
        }
    }
    readGroups();
    readBrackets();
}

void Blocks::readGroups()
{
    std::map<int, bool> isShort; // whether one of the group's actions is
    for (std::size_t i = 0; i < m_prepared.units.size(); ++i) {
        if (const int group = m_prepared.units[i].group; group > 0) {
            isShort[group] = isShort[group] || m_isShort[i];
        }
    }
    for (std::size_t i = 0; i < m_isShort.size(); ++i) {
        const int group = m_prepared.units[i].group;
        m_isShort[i] = group > 0 ? isShort[group] : m_isShort[i];
    }
}

void Blocks::readBrackets()
{
    for (int i = 0; i < m_expression.brackets(); ++i) {
        BracketSpan bracket;
        bracket.must.resize(static_cast<std::size_t>(m_expression.alternatives(i)));
        m_brackets.push_back(std::move(bracket));
    }
    for (std::size_t i = 0; i < m_prepared.units.size(); ++i) {
        for (const int member : m_prepared.units[i].members) {
            const SumPlace& place = m_expression.place(member);
            if (place.bracket < 0 || m_prepared.units[i].kind != UnitKind::Variable) {
                continue;
            }
            BracketSpan& bracket = m_brackets[static_cast<std::size_t>(place.bracket)];
            bracket.firstUnit = bracket.firstUnit < 0 ? static_cast<int>(i) : bracket.firstUnit;
            bracket.lastUnit = static_cast<int>(i);
            if (m_mustAct[i]) {
                bracket.must[static_cast<std::size_t>(place.alternative)] = true;
            }
        }
    }
}

bool Blocks::opens(int unit) const
{
    const auto at = static_cast<std::size_t>(unit);
    return unit == m_firstVariable || m_prepared.units[at].group == 0 ||
           m_prepared.units[at - 1].group != m_prepared.units[at].group;
}

bool Blocks::closes(int unit) const
{
    const auto at = static_cast<std::size_t>(unit);
    return m_prepared.units[at].group == 0 || at + 1 == m_prepared.units.size() ||
           m_prepared.units[at + 1].group != m_prepared.units[at].group;
}

} // namespace mrl::combine
