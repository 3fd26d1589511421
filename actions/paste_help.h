#pragma once

#include <QPointer>

#include <functional>
#include <optional>

#include "actions/command_log.h"
#include "actions/tab_interface.h"
#include "host/mrl_table_paste.h"
#include "host/mrl_widgets.h"

/// A pasted value that was not taken, as a person is told of it.
struct LCM_UntakenValue
{
    QString cell; ///< such as "12, Title"
    QString text;
    QString reason;
};

/// Takes part in the pastes of a tab's table: a paste is one command, and what is not taken is told.
class LCM_PasteHelp : public MRL_H_PasteHelper
{
  public:
    /// @param values how many were pasted
    using Report = std::function<void(int values, const std::vector<LCM_UntakenValue>& untaken)>;

    /// @param tab outlives this
    LCM_PasteHelp(LCM_TabInterface& tab, Report report);
    ~LCM_PasteHelp() override;
    LCM_PasteHelp(const LCM_PasteHelp&) = delete;
    LCM_PasteHelp& operator=(const LCM_PasteHelp&) = delete;

    void begin() override;
    void end(int values, const std::vector<MRL_H_RefusedValue>& refused) override;

  protected:
    /// What a person calls a row.
    virtual QString rowName(int row) const;

  private:
    QString cellName(const MRL_H_RefusedValue& value) const;

    LCM_TabInterface& m_tab;
    QPointer<MRL_H_TableWidget> m_table;
    Report m_report;
    std::optional<LCM_CommandScope> m_command;        ///< between begin() and end()
    std::optional<MRL_QT_SortingBlocker> m_noSorting; ///< likewise
};
