// Undo in the manager with n load cases. Raw is the command that is taken back: titles pasted over all of them.

#include <QApplication>
#include <QClipboard>
#include <QTabWidget>

#include <memory>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "bench/figure.h"
#include "bench/load_cases.h"
#include "history/history.h"
#include "loadcases/loadcase_widget.h"
#include "rules/load_case_columns.h"

namespace {

/// Both tabs with a history. Titles of one length alternate, so that each paste changes every row.
class PastedTitles : bench::LoadCases
{
  public:
    explicit PastedTitles(int count) : LoadCases(count)
    {
        m_loadCases = new LCM_LoadcaseWidget(db, &m_window, "loadcasewidget");
        m_actions = new LCM_ActionsWidget(m_loadCases, db, 0, &m_window, "actionswidget");
        m_pages = new QTabWidget(&m_window);
        m_pages->addTab(m_actions, "Actions");
        m_pages->addTab(m_loadCases, "Loadcases");
        m_loadCases->setActionsWidget(m_actions);
        m_pages->setCurrentWidget(m_loadCases);
        m_actions->fillTable();
        m_loadCases->fillTable();
        m_window.show();
        m_history = std::make_unique<LCM_History>(LCM_HistoryTabs{m_actions, m_loadCases, m_pages}, nullptr);
    }

    void prepareOurs() { paste(); }
    void ours() { m_history->undo(); }
    void prepareRaw() { putTitles(); }
    void raw() { m_loadCases->tableWidget()->pasteClipboard(); }

  protected:
    void putTitles()
    {
        m_number = 1 - m_number;
        MRL_H_TableWidget* table = m_loadCases->tableWidget();
        QApplication::clipboard()->setText(QStringLiteral("title %1").arg(m_number));
        const int column = table->getColumnNumber(LC_COL_TITLE);
        table->clearSelection();
        table->setRangeSelected(QTableWidgetSelectionRange(0, column, table->rowCount() - 1, column), true);
    }
    void paste()
    {
        putTitles();
        raw();
    }

    QWidget m_window;
    LCM_LoadcaseWidget* m_loadCases = nullptr; ///< child of the window, like the next two
    LCM_ActionsWidget* m_actions = nullptr;
    QTabWidget* m_pages = nullptr;
    std::unique_ptr<LCM_History> m_history; ///< ends before the tabs
    int m_number = 0;
};
const bench::Timed<PastedTitles> UNDO("history.undo", 1.5, {100'000});

/// What a hundred such steps keep, beside the gigabyte that they may take at most.
class HundredSteps : PastedTitles
{
  public:
    using PastedTitles::PastedTitles;
    /// The first turn makes a hundred steps; each further one adds one more and tells what all of them keep.
    double ours()
    {
        m_kept += bench::bytesKept([this] {
            for (; m_left > 0; --m_left) {
                paste();
            }
        });
        m_left = 1;
        return m_kept;
    }
    static double raw() { return GIGABYTE; }

  private:
    static constexpr int STEPS = 100;
    static constexpr double GIGABYTE = 1e9;

    int m_left = STEPS;
    double m_kept = 0.0; ///< bytes
};
const bench::Measured<HundredSteps> STEPS_MEMORY("history.hundred_steps_memory", 1.0, {100'000});

} // namespace
