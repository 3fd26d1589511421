#pragma once

#include <cstdint>

#include "history/step.h"
#include "manager/open_rows.h"

class LCM_History;

/// Reads the rows of the open dialog for those who keep them. The latest one that lives answers for the dialog.
class LCM_RowReader
{
  public:
    /// @param tabs outlive this
    explicit LCM_RowReader(const LCM_HistoryTabs& tabs);
    ~LCM_RowReader();
    LCM_RowReader(const LCM_RowReader&) = delete;
    LCM_RowReader& operator=(const LCM_RowReader&) = delete;

    /// A command has changed the rows.
    void noteChange() { m_state = ++lastState; }
    /// The dialog was accepted after these steps.
    void noteAcceptance(const LCM_History& history) const;
    /// See mrl_loadcase_manager_rows.
    int read(MRL_LC_OpenRows& rows, int count) const;

  private:
    void readOne(MRL_LC_OpenRows& rows, std::size_t row) const;

    static std::int64_t lastState; ///< of all dialogs, so that none is taken for another

    LCM_HistoryTabs m_tabs;
    std::int64_t m_state = 0; ///< 0: as it was opened
    LCM_RowReader* m_outer;   ///< of the dialog below, null for none; outlives this
};
