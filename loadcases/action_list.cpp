#include "loadcases/action_list.h"

#include <algorithm>

#include "lcdata/values/action_code.h"
#include "lcdata/values/keys.h"
#include "rules/load_case_row.h"

LCM_ActionList::LCM_ActionList(const QString& none, const QString& imperfection,
                               const std::vector<tagCDB_LC_ACT>& actions)
{
    append(none, LC_ACTION_NONE, LC_ACTION_NONE, false);
    append(imperfection, LC_ACTION_IMPERFECTION, LC_ACTION_IMPERFECTION, false);
    for (const tagCDB_LC_ACT& action : actions) {
        const QString label = lcm_action_label(action);
        const bool standsForNone = label == none || label == imperfection;
        const int id = standsForNone ? LC_ACTION_NONE : lcm_action_code(action);
        append(label, id, id, false);
    }
    m_grown = false;
}

void LCM_ActionList::append(const QString& text, int id, int code, bool marker)
{
    m_entries.push_back({text, id, -99999});
    m_byId.emplace(id, Entry{text, code, marker});
    m_grown = true;
}

bool LCM_ActionList::isSame(const LCM_ActionList& other) const
{
    return std::equal(
        m_entries.begin(), m_entries.end(), other.m_entries.begin(), other.m_entries.end(),
        [](const ComboList& a, const ComboList& b) { return a.id == b.id && a.text == b.text; });
}

bool LCM_ActionList::isMarker(int id) const
{
    const auto entry = m_byId.find(id);
    return entry != m_byId.end() && entry->second.marker;
}

QString LCM_ActionList::text(int id) const
{
    const auto entry = m_byId.find(id);
    return entry == m_byId.end() ? QString() : entry->second.text;
}

int LCM_ActionList::codeOf(int id) const
{
    const auto entry = m_byId.find(id);
    return entry == m_byId.end() ? id : entry->second.code;
}

LCM_ActionList::Binding LCM_ActionList::bind(int code)
{
    if (contains(code)) {
        return {code, isMarker(code)};
    }
    const int lower = lcm_lower_code(code);
    if (!contains(lower)) {
        append(lcm_missing_action_text(code), lower, code, true);
    }
    return {lower, isMarker(lower)};
}

bool LCM_ActionList::takeGrown()
{
    const bool grown = m_grown;
    m_grown = false;
    return grown;
}
