#include "loadcases/row_context.h"

#include "actions/actions_widget.h"
#include "model/working_model.h"

const tagCDB_LC_ACT* LCM_ActionLookup::find(int code)
{
    if (!m_last || code != m_lastCode) {
        const auto [entry, isNew] = m_found.try_emplace(code);
        Found& found = entry->second;
        if (isNew) {
            found.found = m_tab ? m_tab->findAction(code, found.record)
                                : m_model.findAction(code, found.record, false) != 0;
        }
        m_last = &found;
        m_lastCode = code;
    }
    return m_last->found ? &m_last->record : nullptr;
}
