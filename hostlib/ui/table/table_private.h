#pragma once

/// The private half of the table: where cells stand, who is told of changes, and when rows are sorted.

#include <QItemSelection>
#include <QModelIndex>
#include <QPointer>

#include <functional>
#include <optional>
#include <vector>

#include "host/mrl_table.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/text_widths.h"

/// The room beside and above a cell's text, in pixels.
constexpr int cellTextMargin = 6;

/// One entry of a person into a cell: a text, or an entry of a combo list by its id.
struct MRL_H_TwEntry
{
    int row = -1;
    int column = -1;
    QString text;
    std::optional<int> id;
};

struct MRL_H_TableWidget::Private
{
    explicit Private(MRL_H_TableWidget& owner);
    ~Private();
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    static Private& of(MRL_H_TableWidget& table) { return *table.d; }

    // ---- columns (table_widget.cpp)
    MRL_H_TwHeaderItem* header(int column) const;
    void installHeader(int column, MRL_H_TwHeaderItem& header);
    void renumberColumns();
    void applyColumnFlags(const MRL_H_TwColumn& column);
    void comboTextsChanged(const MRL_H_TwColumn& column, const QSet<int>& ids);

    // ---- what happens to cells (table_changes.cpp)
    /// The value of a cell is another one.
    static void valueChanged(MRL_H_TwItem& cell);
    /// A colour or the shade of a cell is another one.
    static void looksChanged(const MRL_H_TwItem& cell);
    /// The row of a cell, -1 when it isn't in this table. Constant time for a cell that stayed where it was
    /// or moved a little; otherwise one pass over the column renews what the cells of the column know.
    int rowOf(const MRL_H_TwItem& cell) const;
    void noteChange(MRL_H_TwItem& cell);
    void noteLooks();
    void report(int row, int column, QTableWidgetItem* item);
    /// What other code did to the model directly.
    void modelChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight);
    /// The end of the outermost signal block: one repaint, and a sort when one is due.
    void catchUp();

    // ---- sorting (table_sort.cpp)
    void setSorting(bool on);
    void sortBy(int column, Qt::SortOrder order);
    void noteUnsorted(MRL_H_TwItem& cell);
    void forgetUnsorted(MRL_H_TwItem& cell);
    void noteAllUnsorted();
    void clearUnsorted();
    /// Sorts when rows may stand wrong and nothing holds sorting back.
    void sortIfDue();
    void sortAll();
    void sortFew();
    /// The row `order[i]` becomes row i.
    void permuteRows(const std::vector<int>& order);
    /// Closes the rows that stay up over those that go, which then stand last and are empty.
    void dropRows(const std::vector<int>& kept, const std::vector<int>& gone);
    /// Lets selection and current cell follow their rows. @param target where each row stands now
    void movePersistent(const std::vector<int>& target);
    void moveRow(int from, int to);

    // ---- entries (table_entry.cpp)
    /// Enters values as a person does: skips what can't be edited, reports each changed cell once. With more
    /// than one entry each is reported with its row alone selected, the last one with the whole selection.
    void enter(const std::vector<MRL_H_TwEntry>& entries);
    /// An entry from an editor, which multi-editing may carry to other rows.
    void enterFromEditor(const QModelIndex& index, const QString& text, std::optional<int> id);
    std::vector<int> selectedRows() const;
    /// The shown columns with a selected cell, as they stand on the screen.
    std::vector<int> selectedColumns() const;
    std::vector<int> shownColumns() const;

    // ---- keys and mouse (table_keys.cpp)
    bool isEditable(const QModelIndex& index) const;
    QModelIndex neighbour(const QModelIndex& index, int rows, int columns) const;
    /// Ends the editing through `commit` and makes the cell so many steps further the current one.
    void leaveEditor(int rows, int columns, const std::function<void()>& commit);
    /// The cell in which typing starts: the current one, or the first that can be edited in a selected row.
    QModelIndex typingIndex() const;
    void copy(bool withHeaders) const;
    void updateMenu();

    MRL_H_TableWidget& table;
    QObject context;            ///< ends the connections to the members of this before the table's model ends
    std::vector<int> columnIds; ///< by position, -1 for a column without id
    std::vector<int> positionOfId; ///< by id minus firstId, for ids in its range
    int firstId = 0;

    bool multiEditing = false;
    bool newDeleteEntries = true;
    QPointer<MRL_QT_Menu> menu; ///< child of the table

    bool valuesDirty = false; ///< values changed under a signal block
    bool looksDirty = false;
    bool catchUpPosted = false;
    int reports = 0; ///< reports that have not returned

    bool sorting = false;
    int sortColumn = -1;
    Qt::SortOrder sortOrder = Qt::AscendingOrder;
    bool allUnsorted = true;
    std::vector<MRL_H_TwItem*> unsorted; ///< cells of the sorted column, a few; the others are in order

    QItemSelection pressedSelection; ///< the selection before a click on it, for the double click
    QPersistentModelIndex pressedIndex;
    std::optional<TextWidths> textWidths; ///< in the table's font, once a column was fitted
    bool openListOnRelease = false;       ///< after a double click on a choice
    bool appending = false;               ///< appendNewRows notes its rows itself
    bool keepSelectionOnLeave = false;    ///< the last entry went to several rows
};

/// While it lives a change is being reported, and no row moves.
class MRL_H_TwReportScope
{
  public:
    explicit MRL_H_TwReportScope(MRL_H_TableWidget::Private& d) : m_table(&d.table), m_d(d) { ++d.reports; }
    ~MRL_H_TwReportScope()
    {
        if (m_table.isNull()) { // a receiver deleted the table
            return;
        }
        --m_d.reports;
        m_d.sortIfDue();
    }
    MRL_H_TwReportScope(const MRL_H_TwReportScope&) = delete;
    MRL_H_TwReportScope& operator=(const MRL_H_TwReportScope&) = delete;

  private:
    QPointer<MRL_H_TableWidget> m_table;
    MRL_H_TableWidget::Private& m_d;
};

/// QAbstractItemModel keeps these to itself; the table moves rows for the model, so it needs them.
struct MRL_H_TwModelAccess : QAbstractItemModel
{
    static QModelIndexList persistent(QAbstractItemModel& model)
    {
        return (model.*(&MRL_H_TwModelAccess::persistentIndexList))();
    }
    static void changePersistent(QAbstractItemModel& model, const QModelIndexList& from,
                                 const QModelIndexList& to)
    {
        (model.*(&MRL_H_TwModelAccess::changePersistentIndexList))(from, to);
    }
};
