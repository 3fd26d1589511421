#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <vector>

#include "history/tab_state.h"
#include "history/tree_state.h"
#include "host/mrl_table_journal.h"
#include "loadcases/loadcase_copy.h"

class LCM_ActionList;
class LCM_ActionsWidget;
class LCM_LoadcaseWidget;
class QTabWidget;

/// What a history works on. Nothing here is owned.
struct LCM_HistoryTabs
{
    LCM_ActionsWidget* actions = nullptr;    ///< null without an actions tab
    LCM_LoadcaseWidget* loadCases = nullptr; ///< null without a load-case tab
    QTabWidget* pages = nullptr;             ///< which of them is in front

    LCM_DataClass& model() const;
};

/// What a dialog holds beside the cells and rows of its tables.
struct LCM_DialogState
{
    LCM_DialogState() = default;
    explicit LCM_DialogState(const LCM_HistoryTabs& tabs);
    void restore(const LCM_HistoryTabs& tabs) const;
    std::size_t bytes() const;

    LCM_TabState actions;
    LCM_TabState loadCases;
    int front = 0;
    std::vector<LCM_LoadcaseCopy> copies;
    std::shared_ptr<const LCM_ActionList> offered; ///< null without a load-case tab
};

/// One command of a person, as what it changed: values before and after, no rule is run to put them back.
class LCM_HistoryStep
{
  public:
    /// Takes what has changed since `before`. @param tree as it was then; nothing if the command can't change it
    LCM_HistoryStep(const LCM_HistoryTabs& tabs, LCM_DialogState before,
                    const std::optional<LCM_TreeState>& tree);

    /// Whether no cell, row, list or number has changed.
    bool isEmpty() const;
    void undo(const LCM_HistoryTabs& tabs);
    void redo(const LCM_HistoryTabs& tabs);
    /// Counts about how much memory it holds, in one walk over its cells.
    std::size_t countBytes() const;
    /// How many rows of both tables it touches; those that went don't count.
    int rowCount() const;
    /// The rows that it touches in the tables as they are now.
    std::set<int> actionRows() const;
    std::set<int> loadCaseRows() const;

    QString name;
    std::size_t bytes = 0; ///< as they were counted

  private:
    void offer(const LCM_HistoryTabs& tabs, const LCM_DialogState& state) const;
    static void restore(const LCM_HistoryTabs& tabs, const LCM_DialogState& state);
    bool offersOthers() const;

    LCM_DialogState m_before;
    LCM_DialogState m_after;
    std::unique_ptr<MRL_H_TableChange> m_actions;
    std::unique_ptr<MRL_H_TableChange> m_loadCases;
    LCM_TreeChange m_tree;
    LCM_RemovedNumbers m_freedNumbers; ///< may be used again
};
