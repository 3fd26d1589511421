#include "history/history.h"

#include <QTabWidget>

#include <utility>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "history/command_name.h"
#include "host/mrl_widgets.h"
#include "loadcases/loadcase_widget.h"

namespace {

bool changesTree(LCM_Command command)
{
    return command == LCM_Command::NewAction || command == LCM_Command::Paste ||
           command == LCM_Command::AddAllActions || command == LCM_Command::DeleteActions;
}

LCM_Command commandOf(MRL_H_TableJournalListener::Entry entry)
{
    switch (entry) {
    case MRL_H_TableJournalListener::Entry::Typed:
        return LCM_Command::Type;
    case MRL_H_TableJournalListener::Entry::Pasted:
        return LCM_Command::Paste;
    case MRL_H_TableJournalListener::Entry::FilledDown:
        return LCM_Command::FillDown;
    }
    return LCM_Command::Other;
}

void connectTab(LCM_TabInterface* tab, LCM_CommandLog* log, MRL_H_TableJournalListener* listener)
{
    if (!tab) {
        return;
    }
    tab->setCommandLog(log);
    MRL_H_TableJournal& journal = mrl_h_table_journal(*tab->tableWidget());
    journal.setListener(listener);
    journal.take();
}

std::size_t bytesOf(const std::deque<LCM_HistoryStep>& steps)
{
    std::size_t bytes = 0;
    for (const LCM_HistoryStep& step : steps) {
        bytes += step.bytes;
    }
    return bytes;
}

} // namespace

bool LCM_History::isSupported() { return &mrl_h_table_journal != nullptr; }

LCM_History::LCM_History(const LCM_HistoryTabs& tabs, QObject* parent, std::size_t mostBytes)
    : QObject(parent), m_tabs(tabs), m_mostBytes(mostBytes)
{
    connectTab(m_tabs.actions, this, this);
    connectTab(m_tabs.loadCases, this, this);
    m_tabs.model().takeRemovedLoadcaseNumbers();
}

LCM_History::~LCM_History()
{
    connectTab(m_tabs.actions, nullptr, nullptr);
    connectTab(m_tabs.loadCases, nullptr, nullptr);
}

QStringList LCM_History::undoNames() const
{
    QStringList names;
    for (auto step = m_done.rbegin(); step != m_done.rend(); ++step) {
        names << step->name;
    }
    return names;
}

QStringList LCM_History::redoNames() const
{
    QStringList names;
    for (auto step = m_undone.rbegin(); step != m_undone.rend(); ++step) {
        names << step->name;
    }
    return names;
}

std::set<int> LCM_History::changedActionRows() const
{
    std::set<int> rows;
    for (const LCM_HistoryStep& step : m_done) {
        rows.merge(step.actionRows());
    }
    return rows;
}

std::set<int> LCM_History::changedLoadCaseRows() const
{
    std::set<int> rows;
    for (const LCM_HistoryStep& step : m_done) {
        rows.merge(step.loadCaseRows());
    }
    return rows;
}

void LCM_History::begin(LCM_Command command) { open(command, QString()); }

void LCM_History::end() { close(); }

void LCM_History::entryBegins(Entry entry, int column, std::size_t)
{
    open(commandOf(entry), headingOf(column));
}

void LCM_History::entryEnds() { close(); }

QString LCM_History::headingOf(int column) const
{
    // An entry comes from the tab in front.
    const auto* tab = qobject_cast<LCM_TabInterface*>(m_tabs.pages->currentWidget());
    const QTableWidgetItem* header = tab ? tab->tableWidget()->horizontalHeaderItemOnColId(column) : nullptr;
    return header ? header->text() : QString();
}

void LCM_History::open(LCM_Command command, const QString& column)
{
    if (m_depth++ > 0) {
        return;
    }
    takeStray();
    m_command = command;
    m_column = column;
    m_before = LCM_DialogState(m_tabs);
    if (changesTree(command)) {
        m_tree.emplace(m_tabs.model());
    }
}

void LCM_History::close()
{
    if (--m_depth > 0) {
        return;
    }
    LCM_HistoryStep step(m_tabs, std::exchange(m_before, {}), m_tree);
    m_tree.reset();
    if (std::exchange(m_broken, false)) {
        return;
    }
    if (!step.isEmpty()) {
        step.name = lcm_command_name(m_command, m_column, step.rowCount());
        keep(std::move(step));
    }
}

/// What changed without a command, such as by another module's call.
void LCM_History::takeStray()
{
    LCM_HistoryStep stray(m_tabs, LCM_DialogState(m_tabs), std::nullopt);
    if (!stray.isEmpty()) {
        stray.name = lcm_command_name(LCM_Command::Other, QString(), stray.rowCount());
        keep(std::move(stray));
    }
}

void LCM_History::keep(LCM_HistoryStep step)
{
    m_undone.clear();
    step.bytes = step.countBytes();
    m_done.push_back(std::move(step));
    std::size_t bytes = bytesOf(m_done);
    while (m_done.size() > 1 && bytes > m_mostBytes) {
        bytes -= m_done.front().bytes;
        m_done.pop_front();
        ++m_dropped;
    }
    emit changed();
}

void LCM_History::journalBroken()
{
    m_broken = m_depth > 0;
    m_done.clear();
    m_undone.clear();
    emit changed();
}

void LCM_History::undo()
{
    if (m_depth > 0) {
        return;
    }
    takeStray();
    if (m_done.empty()) {
        return;
    }
    m_done.back().undo(m_tabs);
    m_undone.push_back(std::move(m_done.back()));
    m_done.pop_back();
    emit changed();
}

void LCM_History::redo()
{
    if (m_depth > 0) {
        return;
    }
    takeStray();
    if (m_undone.empty()) {
        return;
    }
    m_undone.back().redo(m_tabs);
    m_done.push_back(std::move(m_undone.back()));
    m_undone.pop_back();
    emit changed();
}
