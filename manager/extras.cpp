#include "manager/extras.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QStringListModel>
#include <QTabWidget>
#include <QTimer>
#include <QToolButton>

#include "actions/action_paste.h"
#include "actions/actions_widget.h"
#include "actions/table_helpers.h"
#include "host/mrl_table.h"
#include "lcdata/values/roles.h"
#include "loadcases/load_case_paste.h"
#include "loadcases/loadcase_widget.h"
#include "manager/row_filter.h"
#include "manager/title_excess.h"
#include "manager/untaken_values.h"
#include "rules/action_columns.h"
#include "rules/load_case_columns.h"

namespace {

enum RowKind { AllRows, FindingsOnly, ChangedOnly };

} // namespace

LCM_Extras::LCM_Extras(QWidget* dialog, const LCM_HistoryTabs& tabs)
    : QWidget(dialog), m_tabs(tabs), m_rows(tabs), m_findingsView(new QListView(dialog)),
      m_findingTexts(new QStringListModel(this)), m_filterTimer(new QTimer(this)),
      m_findingsTimer(new QTimer(this))
{
    setObjectName(QStringLiteral("extras"));
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(0, 0, 0, 0);
    auto* bar = new QHBoxLayout;
    lines->addLayout(bar);
    createHistoryButtons(bar);
    createSearch(bar);
    createFilter(bar);
    bar->addStretch(1);
    createFindings(bar);
    lines->addWidget(m_message);
    dressTables();
    createOrigins(lines);
    m_filterTimer->setSingleShot(true);
    connect(m_filterTimer, &QTimer::timeout, this, &LCM_Extras::applyFilter);
    m_findingsTimer->setSingleShot(true);
    connect(m_findingsTimer, &QTimer::timeout, this, &LCM_Extras::showFindings);
    connect(m_tabs.pages, &QTabWidget::currentChanged, this, &LCM_Extras::showHidden);
}

LCM_Extras::~LCM_Extras() = default;

QWidget* LCM_Extras::findingsList() const { return m_findingsView; }

void LCM_Extras::start()
{
    if (LCM_History::isSupported()) {
        m_history = std::make_unique<LCM_History>(m_tabs, nullptr);
        connect(m_history.get(), &LCM_History::changed, this, &LCM_Extras::showHistory);
        connect(m_history.get(), &LCM_History::changed, this, [this] { m_rows.noteChange(); });
    }
    for (LCM_TabInterface* tab : allTabs()) {
        connect(tab->tableWidget(), &QTableWidget::cellChanged, m_findingsTimer,
                [this] { m_findingsTimer->start(0); });
    }
    showHistory();
}

void LCM_Extras::noteAcceptance() const
{
    if (m_history) {
        m_rows.noteAcceptance(*m_history);
    }
}

void LCM_Extras::tell(const QString& message)
{
    m_message->setText(message);
    m_message->setVisible(!message.isEmpty());
}

LCM_TabInterface* LCM_Extras::front() const
{
    return qobject_cast<LCM_TabInterface*>(m_tabs.pages->currentWidget());
}

std::vector<LCM_TabInterface*> LCM_Extras::allTabs() const
{
    std::vector<LCM_TabInterface*> all;
    if (m_tabs.actions) {
        all.push_back(m_tabs.actions);
    }
    if (m_tabs.loadCases) {
        all.push_back(m_tabs.loadCases);
    }
    return all;
}

/// What the tables offer beyond their plain form.
void LCM_Extras::dressTables()
{
    for (LCM_TabInterface* tab : allTabs()) {
        MRL_H_TableWidget* table = tab->tableWidget();
        table->setFindingMarks(ACT_COL_ACTION, ROLE_ROW_VALID);
        table->setHtmlCopyEnabled(true);
        table->setMultiEditingEnabled(true);
        m_pasteHelps.push_back(newPasteHelp(tab));
        table->setAccessibleName(tab == m_tabs.actions ? tr("Actions") : tr("Load cases"));
    }
    if (m_tabs.actions) {
        new LCM_TitleExcess(m_tabs.actions, ACT_COL_DESCRIPTION, this);
    }
    if (m_tabs.loadCases) {
        new LCM_TitleExcess(m_tabs.loadCases, LC_COL_TITLE, this);
    }
}

std::unique_ptr<LCM_PasteHelp> LCM_Extras::newPasteHelp(LCM_TabInterface* tab)
{
    const auto report = [this](int values, const std::vector<LCM_UntakenValue>& untaken) {
        tellPaste(values, untaken);
    };
    if (tab == m_tabs.loadCases) {
        return std::make_unique<LCM_LoadCasePaste>(*m_tabs.loadCases, report);
    }
    return std::make_unique<LCM_ActionPaste>(*m_tabs.actions, report);
}

void LCM_Extras::tellPaste(int values, const std::vector<LCM_UntakenValue>& untaken)
{
    const QString summary = lcm_untaken_summary(values, untaken);
    tell(summary);
    if (!untaken.empty()) {
        lcm_show_untaken(this, summary, untaken);
    }
}

// ---- undo and redo

void LCM_Extras::undoStep()
{
    if (m_history) {
        m_history->undo();
    }
}

void LCM_Extras::redoStep()
{
    if (m_history) {
        m_history->redo();
    }
}

void LCM_Extras::showHistory()
{
    m_findingsTimer->start(0);
    const bool has = m_history != nullptr;
    m_undo->setEnabled(has && m_history->undoCount() > 0);
    m_redo->setEnabled(has && m_history->redoCount() > 0);
    const QString last = has ? m_history->undoNames().value(0) : QString();
    const QString next = has ? m_history->redoNames().value(0) : QString();
    m_undo->setToolTip(last.isEmpty() ? tr("Nothing to undo") : tr("Undo: %1 (Ctrl+Z)").arg(last));
    m_redo->setToolTip(next.isEmpty() ? tr("Nothing to redo") : tr("Redo: %1 (Ctrl+Y)").arg(next));
    if (has && m_history->droppedCount() > 0) {
        tell(tr("The oldest steps were dropped: %1").arg(m_history->droppedCount()));
    }
}

// ---- search

void LCM_Extras::findTyped()
{
    LCM_TabInterface* tab = front();
    const QTableWidgetItem* current = tab ? tab->tableWidget()->currentItem() : nullptr;
    // What is typed on is still found where the shorter text was.
    if (current && current->text().contains(m_search->text(), Qt::CaseInsensitive)) {
        tell(QString());
        return;
    }
    findNext();
}

void LCM_Extras::findNext() { find(true); }

void LCM_Extras::findPrevious() { find(false); }

void LCM_Extras::find(bool forward)
{
    LCM_TabInterface* tab = front();
    if (!tab || m_search->text().isEmpty()) {
        tell(QString());
        return;
    }
    MRL_H_TableWidget* table = tab->tableWidget();
    const auto direction = forward ? MRL_H_TableWidget::Search::Forward : MRL_H_TableWidget::Search::Backward;
    const QModelIndex found = table->findText(m_search->text(), table->currentIndex(), direction);
    tell(found.isValid() ? QString() : tr("Not found"));
    if (found.isValid()) {
        table->setCurrentIndex(found);
        table->scrollTo(found);
    }
}

// ---- filter

void LCM_Extras::applyFilter()
{
    m_filterTimer->stop();
    const LCM_RowFilter filter(m_filter->text());
    const int kind = m_kind->currentIndex();
    for (LCM_TabInterface* tab : allTabs()) {
        MRL_H_TableWidget* table = tab->tableWidget();
        lcm_commit_edit(*tab->tableWidget());
        std::set<int> changed;
        if (kind == ChangedOnly && m_history) {
            changed =
                tab == m_tabs.actions ? m_history->changedActionRows() : m_history->changedLoadCaseRows();
        }
        if (filter.isEmpty() && kind == AllRows) {
            table->setRowFilter(nullptr);
            continue;
        }
        table->setRowFilter([&](int row) {
            return (kind != FindingsOnly || !tab->isRowValid(row)) &&
                   (kind != ChangedOnly || changed.count(row) != 0) && filter.accepts(*table, row);
        });
    }
    showHidden();
}

void LCM_Extras::showHidden()
{
    const LCM_TabInterface* tab = front();
    const int hidden = tab ? tab->tableWidget()->hiddenRowCount() : 0;
    tell(hidden == 0 ? QString() : tr("Hidden rows: %1").arg(hidden));
}

// ---- findings

void LCM_Extras::checkAgain()
{
    for (LCM_TabInterface* tab : allTabs()) {
        lcm_commit_edit(*tab->tableWidget());
    }
    {
        const LCM_CommandScope command(m_history.get(), LCM_Command::CheckAgain);
        if (m_tabs.actions) {
            m_tabs.actions->judgeAllRows();
        }
        if (m_tabs.loadCases) {
            m_tabs.loadCases->judgeAllRows();
        }
    }
    showFindings();
}

void LCM_Extras::showFindings()
{
    m_findingsTimer->stop();
    m_findings = lcm_shown_findings(m_tabs.actions, m_tabs.loadCases);
    QStringList texts;
    for (const LCM_ShownFinding& finding : m_findings) {
        texts << finding.text;
    }
    if (texts != m_findingTexts->stringList()) {
        m_findingTexts->setStringList(texts);
        m_finding = -1;
    }
    m_findingsButton->setText(tr("Findings (%1)").arg(texts.size()));
}

void LCM_Extras::nextFinding()
{
    showFindings();
    const int count = static_cast<int>(m_findings.size());
    goTo(count == 0 ? -1 : (m_finding + 1) % count);
}

void LCM_Extras::previousFinding()
{
    showFindings();
    const int count = static_cast<int>(m_findings.size());
    goTo(count == 0 ? -1 : (std::max(m_finding, 0) + count - 1) % count);
}

void LCM_Extras::goTo(int number)
{
    if (number < 0 || number >= static_cast<int>(m_findings.size())) {
        tell(tr("No findings"));
        return;
    }
    m_finding = number;
    const LCM_ShownFinding& finding = m_findings[static_cast<std::size_t>(number)];
    MRL_H_TableWidget* table = finding.tab->tableWidget();
    const int row = table->rowOf(finding.row);
    if (row >= 0 && table->isRowHidden(row)) {
        m_filter->clear();
        m_kind->setCurrentIndex(AllRows);
        applyFilter();
    }
    const int wanted = table->getColumnNumber(finding.column);
    const int column = wanted < 0 || table->isColumnHidden(wanted) ? 0 : wanted;
    m_tabs.pages->setCurrentWidget(finding.tab);
    table->setFocus();
    table->setCurrentCell(row, column);
    table->scrollTo(table->model()->index(row, column));
    m_findingsView->setCurrentIndex(m_findingTexts->index(number));
    tell(finding.text);
}

// ---- leaving

void LCM_Extras::closeDialog() { window()->close(); }

void LCM_Extras::quit()
{
    if (window()->close()) {
        // Once the dialog's own event loop has ended, so that the windows behind it can ask and close.
        QMetaObject::invokeMethod(qApp, &QApplication::closeAllWindows, Qt::QueuedConnection);
    }
}

bool LCM_Extras::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return QWidget::eventFilter(object, event);
    }
    const auto key = static_cast<QKeyEvent*>(event)->key();
    const bool isSearch = object == m_search;
    if (key == Qt::Key_Escape || key == Qt::Key_Down) {
        if (key == Qt::Key_Escape) {
            static_cast<QLineEdit*>(object)->clear();
        }
        if (m_filterTimer->isActive()) {
            applyFilter();
        }
        if (LCM_TabInterface* tab = front()) {
            tab->tableWidget()->setFocus();
        }
        return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        isSearch ? findNext() : applyFilter(); // and not the dialog's OK
        return true;
    }
    return QWidget::eventFilter(object, event);
}
