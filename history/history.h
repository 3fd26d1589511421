#pragma once

#include <QObject>
#include <QStringList>

#include <deque>
#include <memory>
#include <vector>

#include "actions/command_log.h"
#include "history/step.h"

/// Undo and redo in the manager dialog: one history for both tabs, from its making to the end of the dialog.
///
/// A step is what a command changed. Taking it back puts the values back: it runs no rule and no slot of the tabs,
/// and emits none of their signals.
class LCM_History : public QObject, public LCM_CommandLog, public MRL_H_TableJournalListener
{
    Q_OBJECT
  public:
    /// What all steps may hold together, in bytes; the oldest are dropped then.
    static constexpr std::size_t MOST_BYTES = 900U << 20;

    /// Whether the host can record its tables.
    static bool isSupported();
    /// @param tabs are filled; they outlive this. @param mostBytes see MOST_BYTES
    explicit LCM_History(const LCM_HistoryTabs& tabs, QObject* parent, std::size_t mostBytes = MOST_BYTES);
    ~LCM_History() override;

    /// How many steps can be taken back.
    int undoCount() const { return static_cast<int>(m_done.size()); }
    /// How many steps can be done again.
    int redoCount() const { return static_cast<int>(m_undone.size()); }
    /// The names of the steps that can be taken back, the last one first.
    QStringList undoNames() const;
    /// The names of the steps that can be done again, the next one first.
    QStringList redoNames() const;
    /// How many of the oldest steps were dropped, since they would have held too much memory.
    int droppedCount() const { return m_dropped; }
    /// The rows that steps have changed or added, as the tables stand now.
    std::set<int> changedActionRows() const;
    std::set<int> changedLoadCaseRows() const;

    void begin(LCM_Command command) override;
    void end() override;
    void entryBegins(Entry entry, int column, std::size_t cells) override;
    void entryEnds() override;
    void journalBroken() override;

  public slots:
    /// Takes the last step back; does nothing without one and while a command runs.
    void undo();
    /// Does the next step again.
    void redo();

  signals:
    /// Another step can be taken back or done again.
    void changed();

  private:
    void open(LCM_Command command, const QString& column);
    void close();
    void takeStray();
    void keep(LCM_HistoryStep step);
    QString headingOf(int column) const;

    LCM_HistoryTabs m_tabs;
    std::size_t m_mostBytes;
    std::deque<LCM_HistoryStep> m_done;
    std::vector<LCM_HistoryStep> m_undone; ///< the next one last
    int m_dropped = 0;

    bool m_broken = false; ///< the command that runs has changed what can't be taken back
    int m_depth = 0;       ///< commands that have begun and not ended, one in the other
    LCM_Command m_command = LCM_Command::Other;
    QString m_column;
    LCM_DialogState m_before;
    std::optional<LCM_TreeState> m_tree;
};
