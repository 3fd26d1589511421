#include "workbench/steps/history_panel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>

#include "workbench/document_history.h"

namespace mrl::workbench {

HistoryPanel::HistoryPanel(DocumentHistory& history, QWidget* parent)
    : QDockWidget(tr("History"), parent), m_history(history), m_list(new QListWidget(this)),
      m_goTo(new QPushButton(tr("&Go there"), this)), m_changes(new QPushButton(tr("C&hanges..."), this))
{
    setObjectName(QStringLiteral("history"));
    createActions();
    auto* page = new QWidget(this);
    auto* layout = new QVBoxLayout(page);
    m_list->setObjectName(QStringLiteral("list_steps"));
    m_list->setAccessibleName(tr("Steps"));
    m_list->setWordWrap(true);
    layout->addWidget(m_list, 1);
    auto* buttons = new QHBoxLayout;
    m_goTo->setObjectName(QStringLiteral("button_go_to_step"));
    m_goTo->setToolTip(tr("Undoes or does again until this step is the last one"));
    m_changes->setObjectName(QStringLiteral("button_step_changes"));
    m_changes->setToolTip(tr("Lists each record that the step changed, with old and new values"));
    buttons->addWidget(m_goTo);
    buttons->addWidget(m_changes);
    layout->addLayout(buttons);
    setWidget(page);
    // The first entry is the project as it was opened, so the row is the number of steps that are done.
    connect(m_goTo, &QPushButton::clicked, this, [this] { emit goToWanted(m_list->currentRow()); });
    connect(m_list, &QListWidget::itemActivated, this, [this] { emit goToWanted(m_list->currentRow()); });
    connect(m_changes, &QPushButton::clicked, this, [this] { emit changesWanted(m_list->currentRow() - 1); });
    connect(m_list, &QListWidget::currentRowChanged, this, &HistoryPanel::showButtons);
    connect(&m_history, &DocumentHistory::changed, this, &HistoryPanel::refresh);
    refresh();
}

void HistoryPanel::createActions()
{
    m_undo = new QAction(tr("&Undo"), this);
    m_undo->setObjectName(QStringLiteral("action_undo"));
    m_undo->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    connect(m_undo, &QAction::triggered, this, [this] { emit goToWanted(m_history.doneCount() - 1); });
    m_redo = new QAction(tr("&Redo"), this);
    m_redo->setObjectName(QStringLiteral("action_redo"));
    m_redo->setShortcuts(
        {QKeySequence(QStringLiteral("Ctrl+Shift+Z")), QKeySequence(QStringLiteral("Ctrl+Y"))});
    connect(m_redo, &QAction::triggered, this, [this] { emit goToWanted(m_history.doneCount() + 1); });
}

void HistoryPanel::refresh()
{
    const auto& steps = m_history.steps();
    const int done = m_history.doneCount();
    m_list->clear();
    m_list->addItem(tr("The project as it was opened"));
    for (int i = 0; i < static_cast<int>(steps.size()); ++i) {
        const DocumentHistory::Step& step = steps[static_cast<std::size_t>(i)];
        const QString time = step.when.toString(QStringLiteral("HH:mm:ss"));
        const QString text = tr("%1  %2 (records: %3)").arg(time, step.name).arg(step.keys);
        m_list->addItem(i < done ? text : tr("%1, undone").arg(text));
    }
    m_list->setCurrentRow(done);
    const QString last = done > 0 ? steps[static_cast<std::size_t>(done - 1)].name : QString();
    const QString next = m_history.canRedo() ? steps[static_cast<std::size_t>(done)].name : QString();
    m_undo->setEnabled(m_history.canUndo());
    m_redo->setEnabled(m_history.canRedo());
    m_undo->setText(last.isEmpty() ? tr("&Undo") : tr("&Undo: %1").arg(last));
    m_redo->setText(next.isEmpty() ? tr("&Redo") : tr("&Redo: %1").arg(next));
    showButtons();
}

void HistoryPanel::showButtons()
{
    const int row = m_list->currentRow();
    m_goTo->setEnabled(row >= 0 && row != m_history.doneCount());
    m_changes->setEnabled(row > 0 && row <= m_history.doneCount());
}

} // namespace mrl::workbench
