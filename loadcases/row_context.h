#pragma once

#include <unordered_map>

#include "lcdata/values/records.h"
#include "rules/load_case_row.h"

class LCM_ActionsWidget;
class LCM_DataClass;

/// The present actions, by code: those of the actions tab where there is one, else those of the working
/// model. Good for one operation; each action is asked for once.
class LCM_ActionLookup
{
  public:
    LCM_ActionLookup(LCM_ActionsWidget* tab, const LCM_DataClass& model) : m_tab(tab), m_model(model) {}
    /// Whether there is an actions tab.
    bool hasTab() const { return m_tab != nullptr; }
    /// @return null when there is no such action
    const tagCDB_LC_ACT* find(int code);

  private:
    struct Found
    {
        bool found;
        tagCDB_LC_ACT record;
    };
    LCM_ActionsWidget* m_tab; ///< null without an actions tab
    const LCM_DataClass& m_model;
    std::unordered_map<int, Found> m_found;
    int m_lastCode = 0;
    const Found* m_last = nullptr; ///< rows of one action often follow each other
};

/// What an operation on rows needs to know beside the rows, asked once for all of them.
struct LCM_RowContext
{
    LCM_LoadCaseSetup setup;
    LCM_ActionLookup actions;
};
