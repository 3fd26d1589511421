#include "history/step.h"

#include <QTabWidget>

#include <algorithm>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "host/mrl_widgets.h"
#include "loadcases/action_list.h"
#include "loadcases/loadcase_widget.h"

namespace {

std::unique_ptr<MRL_H_TableChange> takeChange(const LCM_TabInterface* tab)
{
    return tab ? mrl_h_table_journal(*tab->tableWidget()).take() : nullptr;
}

bool sameCopies(const std::vector<LCM_LoadcaseCopy>& a, const std::vector<LCM_LoadcaseCopy>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const LCM_LoadcaseCopy& x, const LCM_LoadcaseCopy& y) {
                          return x.source == y.source && x.target == y.target && x.factor == y.factor;
                      });
}

/// While it lives the tables tell nobody of their changes, sort nothing of themselves and are not painted.
class Quiet
{
  public:
    explicit Quiet(const LCM_HistoryTabs& tabs)
        : m_actions(tableOf(tabs.actions)), m_loadCases(tableOf(tabs.loadCases)), m_actionsPaint(m_actions),
          m_loadCasesPaint(m_loadCases), m_actionsBlock(m_actions), m_loadCasesBlock(m_loadCases)
    {
    }

  private:
    static MRL_H_TableWidget* tableOf(const LCM_TabInterface* tab)
    {
        return tab ? tab->tableWidget() : nullptr;
    }

    MRL_H_TableWidget* m_actions;
    MRL_H_TableWidget* m_loadCases;
    MRL_QT_UpdateBlocker m_actionsPaint;
    MRL_QT_UpdateBlocker m_loadCasesPaint;
    MRL_QT_SignalBlocker m_actionsBlock;
    MRL_QT_SignalBlocker m_loadCasesBlock;
};

std::set<int> rowsOf(const std::unique_ptr<MRL_H_TableChange>& change)
{
    return change ? change->rows() : std::set<int>();
}

} // namespace

LCM_DataClass& LCM_HistoryTabs::model() const
{
    const LCM_TabInterface* tab = actions ? static_cast<const LCM_TabInterface*>(actions) : loadCases;
    return *tab->LCM_TabInterface::workingModel();
}

LCM_DialogState::LCM_DialogState(const LCM_HistoryTabs& tabs) : front(tabs.pages->currentIndex())
{
    if (tabs.actions) {
        actions = LCM_TabState(*tabs.actions);
    }
    if (tabs.loadCases) {
        loadCases = LCM_TabState(*tabs.loadCases);
        copies = tabs.loadCases->getCopies();
        offered = tabs.loadCases->offeredActions();
    }
}

void LCM_DialogState::restore(const LCM_HistoryTabs& tabs) const
{
    if (tabs.actions) {
        actions.restore(*tabs.actions);
    }
    if (tabs.loadCases) {
        loadCases.restore(*tabs.loadCases);
        tabs.loadCases->setCopies(copies);
    }
    tabs.pages->setCurrentIndex(front);
}

std::size_t LCM_DialogState::bytes() const
{
    return actions.bytes() + loadCases.bytes() + copies.capacity() * sizeof(LCM_LoadcaseCopy);
}

LCM_HistoryStep::LCM_HistoryStep(const LCM_HistoryTabs& tabs, LCM_DialogState before,
                                 const std::optional<LCM_TreeState>& tree)
    : m_before(std::move(before)), m_after(tabs), m_actions(takeChange(tabs.actions)),
      m_loadCases(takeChange(tabs.loadCases)), m_freedNumbers(tabs.model().takeRemovedLoadcaseNumbers())
{
    if (tree) {
        m_tree = LCM_TreeChange(*tree, tabs.model());
    }
}

bool LCM_HistoryStep::offersOthers() const
{
    return m_before.offered != m_after.offered && m_before.offered && m_after.offered &&
           !m_before.offered->isSame(*m_after.offered);
}

bool LCM_HistoryStep::isEmpty() const
{
    return !m_actions && !m_loadCases && m_tree.isEmpty() && m_freedNumbers.numbers.empty() &&
           !offersOthers() && sameCopies(m_before.copies, m_after.copies);
}

void LCM_HistoryStep::undo(const LCM_HistoryTabs& tabs)
{
    const Quiet quiet(tabs);
    offer(tabs, m_before);
    m_tree.undo(tabs.model());
    tabs.model().restoreUsedLoadcaseNumbers(m_freedNumbers);
    if (m_actions) {
        m_actions->undo();
    }
    if (m_loadCases) {
        m_loadCases->undo();
    }
    restore(tabs, m_before);
}

void LCM_HistoryStep::redo(const LCM_HistoryTabs& tabs)
{
    const Quiet quiet(tabs);
    offer(tabs, m_after);
    m_tree.redo(tabs.model());
    for (const int number : m_freedNumbers.numbers) {
        tabs.model().removeUsedLoadcaseNumber(number);
    }
    tabs.model().takeRemovedLoadcaseNumbers(); // it is this step that keeps them
    if (m_actions) {
        m_actions->redo();
    }
    if (m_loadCases) {
        m_loadCases->redo();
    }
    restore(tabs, m_after);
}

/// Ahead of the rows, which may have to be sorted by the texts of the list.
void LCM_HistoryStep::offer(const LCM_HistoryTabs& tabs, const LCM_DialogState& state) const
{
    if (tabs.loadCases && offersOthers()) {
        tabs.loadCases->offerActions(*state.offered);
    }
}

void LCM_HistoryStep::restore(const LCM_HistoryTabs& tabs, const LCM_DialogState& state)
{
    if (tabs.loadCases) {
        tabs.loadCases->forgetUsedActions();
    }
    if (tabs.actions) {
        tabs.actions->forgetRowCache();
    }
    state.restore(tabs);
}

int LCM_HistoryStep::rowCount() const
{
    return static_cast<int>(actionRows().size() + loadCaseRows().size());
}

std::set<int> LCM_HistoryStep::actionRows() const { return rowsOf(m_actions); }

std::set<int> LCM_HistoryStep::loadCaseRows() const { return rowsOf(m_loadCases); }

std::size_t LCM_HistoryStep::countBytes() const
{
    return sizeof *this + m_before.bytes() + m_after.bytes() + (m_actions ? m_actions->bytes() : 0) +
           (m_loadCases ? m_loadCases->bytes() : 0) + m_tree.bytes() +
           m_freedNumbers.numbers.capacity() * sizeof(int);
}
