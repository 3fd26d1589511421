#include <QApplication>
#include <QTableWidget>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <vector>

#include "actions/actions_table.h"
#include "actions/actions_widget.h"
#include "bench/figure.h"
#include "host/mrl_cdb.h"
#include "hostlib/data/cdb/project.h"
#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/roles.h"
#include "rules/action_columns.h"

namespace {

constexpr int FRAME_NANOSECONDS = 16'000'000;
const std::vector<int> ACTIONS{5000};

void require(bool ok, const char* what)
{
    if (!ok) {
        throw std::runtime_error(what);
    }
}

/// The name of a user's own action; no two of up to 17,576 share their code.
QString nameOf(int number)
{
    QString name;
    for (int i = 0; i < 3; ++i, number /= 26) {
        name.prepend(QChar('A' + number % 26));
    }
    return name.prepend('U');
}

tagCDB_LC_ACT actionOf(int number)
{
    tagCDB_LC_ACT action{};
    action.kind = 1;
    lcm_pack_field(nameOf(number).toLatin1().constData(), action.name);
    action.partition = 0x32;
    action.gamu = 1.5f;
    action.gama = 1.0f;
    action.psi0 = 0.7f;
    action.psi1 = 0.5f;
    action.psi2 = 0.3f;
    action.psi1s = static_cast<float>(number % 5) / 4.0f; // two of five rows break a rule
    lcm_title_pack(QStringLiteral("Action number %1").arg(number), action.title, LC_TITLE_WORDS);
    return action;
}

/// A project of n actions of the user's own, the tab on it, and a bare table with the texts of its cells.
class Actions
{
  public:
    explicit Actions(int n) : db(mrl::cdb::openMemory().db)
    {
        require(static_cast<bool>(mrl::cdb::setFact(db, "designcode", "en1990-road-bridges")), "design code");
        const int length = sizeof(tagCDB_LC_ACT);
        for (int i = 0; i < n; ++i) {
            const tagCDB_LC_ACT action = actionOf(i);
            require(mrl_cdb_put(db, 14, lcm_action_code(action), &action, &length, 0) == CD_OK, "put");
        }
        newTab();
        widget->fillTable();
        require(table().rowCount() >= n && table().columnCount() == 11, "fill");
        for (int row = 0; row < table().rowCount(); ++row) {
            for (int column = 0; column < table().columnCount(); ++column) {
                texts.push_back(table().item(row, column)->text());
            }
        }
    }
    ~Actions()
    {
        widget.reset();
        mrl::cdb::close(db);
    }

    void prepareRaw() { bare = std::make_unique<QTableWidget>(0, 11); }
    void raw()
    {
        bare->setRowCount(static_cast<int>(texts.size()) / 11);
        int i = 0;
        for (const QString& text : texts) {
            bare->setItem(i / 11, i % 11, new QTableWidgetItem(text)); // owned by the table
            ++i;
        }
    }

  protected:
    void newTab()
    {
        widget = std::make_unique<LCM_ActionsWidget>(nullptr, db, 0, nullptr, "actionswidget");
        widget->resize(1100, 600);
        QObject::connect(widget.get(), &LCM_ActionsWidget::signal_actionValuesChanged, [this] { ++changes; });
    }
    MRL_LC_ActionsTable& table() { return *widget->actionsTable(); }

    int db;
    std::unique_ptr<LCM_ActionsWidget> widget;
    std::unique_ptr<QTableWidget> bare;
    std::vector<QString> texts;
    int changes = 0; ///< edits that were judged and told of
};

/// Raw: a bare QTableWidget that gets as many text items, without judgement, colour, sort and column widths.
class Fill : public Actions
{
  public:
    using Actions::Actions;
    void prepareOurs() { newTab(); }
    void ours() { widget->fillTable(); }
};
const bench::Timed<Fill> fill("actions.fill", 2.5, ACTIONS);

/// Raw: the fill of a bare QTableWidget. Ours: the command on every second row, from the selection to the
/// model's tree and the selection that it leaves.
class DeleteEverySecond : public Actions
{
  public:
    using Actions::Actions;
    void prepareOurs()
    {
        newTab();
        widget->fillTable();
        QItemSelection selection;
        for (int row = 0; row < table().rowCount(); row += 2) {
            selection.select(table().model()->index(row, 0), table().model()->index(row, 10));
        }
        table().selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
        before = table().rowCount();
    }
    void ours()
    {
        widget->slot_deleteClicked();
        require(table().rowCount() == before / 2, "delete");
    }

  private:
    int before = 0;
};
const bench::Timed<DeleteEverySecond> deleteEverySecond("actions.delete_every_second", 1.0, ACTIONS);

/// The same for all rows at once.
class DeleteAll : public Actions
{
  public:
    using Actions::Actions;
    void prepareOurs()
    {
        newTab();
        widget->fillTable();
        table().selectAll();
    }
    void ours()
    {
        widget->slot_deleteClicked();
        require(table().rowCount() == 0, "delete all");
    }
};
const bench::Timed<DeleteAll> deleteAll("actions.delete_all", 1.5, ACTIONS);

/// An edit of a factor in the sorted column, shown on the screen: judged, coloured, reported, sorted,
/// painted. Raw: one frame at 60 a second, so that the ratio is the part of a frame that it takes.
class EditFrame : public Actions
{
  public:
    explicit EditFrame(int n) : Actions(n)
    {
        widget->show();
        table().sortByColumn(table().getColumnNumber(ACT_COL_GAMU), Qt::AscendingOrder);
        QApplication::processEvents();
    }
    double ours()
    {
        table().setCurrentCell(++edits % 10 == 0 ? table().rowCount() / 2 : 5, column());
        QApplication::processEvents();
        changes = 0;
        const double cost = bench::nanoseconds([this] {
            table().model()->setData(table().currentIndex(), 1.0 + 0.01 * edits, Qt::EditRole);
            QApplication::processEvents();
        });
        require(changes == 1, "edit");
        return cost;
    }
    double raw() const { return FRAME_NANOSECONDS; }

  private:
    int column() { return table().getColumnNumber(ACT_COL_GAMU); }

    int edits = 0;
};
const bench::Measured<EditFrame> editFrame("actions.edit_of_a_frame", 1.0, ACTIONS);

/// The same edit, unpainted. Raw: a text that is set in a bare QTableWidget, which judges and sorts nothing.
class Edit : public Actions
{
  public:
    explicit Edit(int n) : Actions(n)
    {
        Actions::prepareRaw();
        Actions::raw();
        table().setCurrentCell(5, table().getColumnNumber(ACT_COL_GAMU));
    }
    void prepareRaw() {}
    void ours()
    {
        changes = 0;
        for (int i = 0; i < EDITS; ++i) {
            table().model()->setData(table().currentIndex(), 1.0 + 0.01 * (++edits % 1000), Qt::EditRole);
        }
        require(changes == EDITS, "edits");
    }
    void raw()
    {
        for (int i = 0; i < EDITS; ++i) {
            bare->item(5, 4)->setText(QString::number(++edits));
        }
    }

  private:
    static constexpr int EDITS = 100;
    int edits = 0;
};
const bench::Timed<Edit> edit("actions.edit", 20.0, ACTIONS);

} // namespace
