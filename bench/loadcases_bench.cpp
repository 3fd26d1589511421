// The manager's two tabs with n load cases. Raw is always the same: a QTableWidget of as many cells, each
// filled with a plain text item. Where ours opens and paints a window, raw shows its table in one of the same
// size: a window, its picture and the first painting cost the same however many rows there are, and are Qt's.

#include <QMessageBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <ctime>
#include <memory>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "bench/figure.h"
#include "bench/load_cases.h"
#include "host/mrl_table.h"
#include "lcdata/values/roles.h"
#include "loadcases/loadcase_widget.h"
#include "loadcases/table_loadcases.h"
#include "rules/action_columns.h"
#include "rules/load_case_columns.h"

namespace {

std::unique_ptr<QTableWidget> bareTable(int rows, int columns)
{
    auto table = std::make_unique<QTableWidget>(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            table->setItem(row, column, new QTableWidgetItem(QString::number(row)));
        }
    }
    return table;
}

/// Lays a window out, shows it and has it painted.
void showAndPaint(QWidget& window)
{
    window.resize(1150, 600);
    window.show();
    QCoreApplication::processEvents();
}

/// The bare table in a plain window that is shown. Its columns are not fitted, which ours are.
class BareWindow
{
  public:
    BareWindow(int rows, int columns)
    {
        auto* layout = new QVBoxLayout(&m_window);
        layout->addWidget(bareTable(rows, columns).release()); // child of the window
        showAndPaint(m_window);
    }

  private:
    QWidget m_window;
};

/// Both tabs in a window, filled as the manager fills them.
class Dialog
{
  public:
    explicit Dialog(int db)
    {
        auto* layout = new QVBoxLayout(&m_window);
        auto* pages = new QTabWidget(&m_window);
        layout->addWidget(pages);
        loadcases = new LCM_LoadcaseWidget(db, &m_window, "loadcasewidget");
        actions = new LCM_ActionsWidget(loadcases, db, 0, &m_window, "actionswidget");
        pages->addTab(actions, "Actions");
        pages->addTab(loadcases, "Loadcases");
        loadcases->setActionsWidget(actions);
        m_pages = pages;
        pages->setCurrentWidget(loadcases);
        actions->fillTable();
        loadcases->fillTable();
        table = static_cast<MRL_H_TableWidget*>(loadcases->tableWidget());
    }

    void show() { showAndPaint(m_window); }

    void hide() { m_window.hide(); }
    /// Brings the actions tab to the front, as it is while an engineer works on it.
    void turnToActions()
    {
        m_pages->setCurrentWidget(actions);
        QCoreApplication::processEvents();
    }

    LCM_LoadcaseWidget* loadcases; ///< child of the window
    LCM_ActionsWidget* actions;    ///< child of the window
    MRL_H_TableWidget* table;      ///< that of the load cases

  private:
    QWidget m_window;
    QTabWidget* m_pages; ///< child of the window
};

/// A project and an open dialog on it.
class OpenDialog : protected bench::LoadCases
{
  public:
    explicit OpenDialog(int count) : LoadCases(count) { reopen(); }

    void raw() { m_bare = bareTable(n, dialog->table->columnCount()); }
    void prepareRaw() { m_bare.reset(); }

  protected:
    void reopen()
    {
        m_bare.reset();
        dialog.reset();
        dialog = std::make_unique<Dialog>(db);
        dialog->show();
    }
    /// Gives all load cases one action.
    void bindAllToOneAction()
    {
        dialog.reset();
        mrl::cdb::Transaction transaction(db);
        for (int number = 1; number <= n; ++number) {
            tagCDB_LC_CTRL record{};
            mrl_lc_get(db, number, record);
            record.action = mrl_lc_get_default_action(db, false);
            mrl_lc_put(db, number, record);
        }
        bench::require(static_cast<bool>(transaction.commit()), "commit");
        reopen();
    }
    std::unique_ptr<Dialog> dialog;

  private:
    std::unique_ptr<QTableWidget> m_bare;
};

/// Model, both tabs, all rows filled, judged and sorted, the columns fitted; nothing is shown yet.
class Open : OpenDialog
{
  public:
    using OpenDialog::OpenDialog;
    using OpenDialog::prepareRaw;
    using OpenDialog::raw;
    void prepareOurs() { dialog.reset(); }
    void ours()
    {
        dialog = std::make_unique<Dialog>(db);
        bench::require(dialog->table->rowCount() == n, "rows");
    }
};
const bench::Timed<Open> open_("loadcases.open", 2.0);

/// The same until it is seen, beside the bare table in a shown window.
class OpenAndShow : OpenDialog
{
  public:
    using OpenDialog::OpenDialog;
    void prepareOurs() { dialog.reset(); }
    void ours()
    {
        dialog = std::make_unique<Dialog>(db);
        dialog->show();
    }
    void prepareRaw() { m_bare.reset(); }
    void raw() { m_bare = std::make_unique<BareWindow>(n, dialog->table->columnCount()); }

  private:
    std::unique_ptr<BareWindow> m_bare;
};
const bench::Timed<OpenAndShow> openAndShow("loadcases.open_and_show", 2.0);

/// What the open dialog keeps; shown, beside the bare table in a shown window, whose picture is 2.8 MB by
/// itself.
template <bool shown>
class Memory : bench::LoadCases
{
  public:
    using LoadCases::LoadCases;
    double ours()
    {
        std::unique_ptr<Dialog> dialog;
        const double bytes = bench::bytesKept([&] {
            dialog = std::make_unique<Dialog>(db);
            if (shown) {
                dialog->show();
            }
        });
        m_columns = dialog->table->columnCount();
        return bytes;
    }
    double raw()
    {
        std::unique_ptr<QTableWidget> bare;
        std::unique_ptr<BareWindow> window;
        return bench::bytesKept([&] {
            if (shown) {
                window = std::make_unique<BareWindow>(n, m_columns);
            } else {
                bare = bareTable(n, m_columns);
            }
        });
    }

  private:
    int m_columns = 0;
};
const bench::Measured<Memory<false>> memory("loadcases.open_memory", 1.2);
const bench::Measured<Memory<true>> shownMemory("loadcases.open_and_show_memory", 1.2);

/// Both checks, then both saves in one transaction, as the dialog is accepted.
class Accept : protected OpenDialog
{
  public:
    using OpenDialog::OpenDialog;
    using OpenDialog::prepareRaw;
    using OpenDialog::raw;
    void ours()
    {
        bench::require(dialog->actions->isValid() && dialog->loadcases->isValid(), "valid");
        mrl::cdb::Transaction transaction(db);
        dialog->actions->save(true);
        dialog->loadcases->save(true);
        bench::require(static_cast<bool>(transaction.commit()), "commit");
    }
};
const bench::Timed<Accept> accept_("loadcases.accept", 1.5);

/// The same with one row changed among all. What stands in the file already costs a comparison below the contract.
class AcceptOneChange : public Accept
{
  public:
    using Accept::Accept;
    using Accept::prepareRaw;
    using Accept::raw;
    void prepareOurs()
    {
        auto* item = dialog->table->itemOnColId(n / 2, LC_COL_TITLE);
        item->setText(QString::number(++m_round));
    }

  private:
    int m_round = 0;
};
const bench::Timed<AcceptOneChange> acceptOneChange("loadcases.accept_one_change", 0.4);

class ChangeFactor : OpenDialog
{
  public:
    explicit ChangeFactor(int count) : OpenDialog(count)
    {
        bindAllToOneAction();
        dialog->turnToActions();
    }
    using OpenDialog::prepareRaw;
    using OpenDialog::raw;
    void ours()
    {
        const int code = mrl_lc_get_default_action(db, false);
        auto* table = dialog->actions->tableWidget();
        for (int row = 0; row < table->rowCount(); ++row) {
            if (table->itemOnColId(row, ACT_COL_ACTION)->data(ROLE_ACTION_CODE).toInt() == code) {
                MRL_H_TwSimpleLineEditItem::fromItem(table->itemOnColId(row, ACT_COL_GAMU))
                    ->setVal(m_value = 3.0f - m_value);
            }
        }
    }

  private:
    float m_value = 1.4f;
};
const bench::Timed<ChangeFactor> changeFactor("loadcases.change_factor", 1.0);

/// What the load-case tab does when an action came: the list rebuilt, all rows bound and judged.
class AddAction : OpenDialog
{
  public:
    explicit AddAction(int count) : OpenDialog(count) { dialog->turnToActions(); }
    using OpenDialog::prepareRaw;
    using OpenDialog::raw;
    void ours() { emit dialog->actions->signal_actionCountChanged(); }
};
const bench::Timed<AddAction> addAction("loadcases.add_action", 1.0);

/// From the click on "Yes" on, with the window hidden: the question is Qt's, and so is painting behind it,
/// where the view looks through all ranges of the selection for each row that it shows.
class DeleteHalf : public OpenDialog
{
  public:
    using OpenDialog::OpenDialog;
    double ours()
    {
        reopen();
        std::set<int> numbers;
        for (int number = 1; number <= n; number += 2) {
            numbers.insert(numbers.end(), number);
        }
        dialog->hide();
        dialog->loadcases->selectLoadcases(numbers);
        std::clock_t answered = 0;
        QTimer::singleShot(0, [&answered] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            bench::require(box != nullptr, "question");
            box->button(QMessageBox::Yes)->click();
            answered = std::clock();
        });
        dialog->loadcases->slot_deleteClicked();
        bench::require(dialog->table->rowCount() == n / 2, "rows");
        return static_cast<double>(std::clock() - answered) * 1e9 / CLOCKS_PER_SEC;
    }
    double rawCost()
    {
        prepareRaw();
        return bench::nanoseconds([this] { raw(); });
    }
};
const bool deleteHalf = [] {
    bench::add("loadcases.delete_half", 1.0, bench::usualSizes, [](int n) {
        auto work = std::make_shared<DeleteHalf>(n);
        return bench::Sides{[work] { return work->ours(); }, [work] { return work->rawCost(); }, false};
    });
    return true;
}();

class New : OpenDialog
{
  public:
    explicit New(int count) : OpenDialog(count) { dialog->loadcases->selectLoadcases({count / 2}); }
    using OpenDialog::prepareRaw;
    using OpenDialog::raw;
    void ours() { dialog->loadcases->slot_newClicked(); }
};
const bench::Timed<New> new_("loadcases.new", 0.05);

class Reinitialise : OpenDialog
{
  public:
    explicit Reinitialise(int count) : OpenDialog(count) { dialog->turnToActions(); }
    using OpenDialog::prepareRaw;
    using OpenDialog::raw;
    void ours() { dialog->actions->slot_reInitAllActions(); }
};
const bench::Timed<Reinitialise> reinitialise("loadcases.reinitialise", 1.0);

} // namespace
