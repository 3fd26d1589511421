#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>

#include "host/mrl_table.h"
#include "hostlib/ui/table/row_order.h"

namespace mrl::table {

/// Who is told of changes in a table, and when: at once, or after the last signal block. Sorting waits until all
/// reports have returned.
class ChangeReports
{
  public:
    ChangeReports(MRL_H_TableWidget& table, RowOrder& order);

    /// The value of a cell of any table is another one.
    static void tellValue(MRL_H_TwItem& cell);
    /// A colour or the shade of a cell of any table is another one.
    static void tellLooks(const MRL_H_TwItem& cell);

    /// Reports a changed cell of this table, or remembers it while signals are blocked.
    void noteChange(MRL_H_TwItem& cell);
    /// Has the table repainted.
    void noteLooks();
    /// The cells of a column were enabled or disabled with it.
    void noteColumnFlags(const MRL_H_TwColumn& column);
    /// The texts of some entries of a combo column are other ones: reports the cells that show them.
    void noteComboTexts(const MRL_H_TwColumn& column, const QSet<int>& ids);
    /// What the model tells of its own: changes of plain items, and of the model by other code.
    void noteModelChange(const QModelIndex& topLeft, const QModelIndex& bottomRight);

    /// The end of the outermost signal block: one repaint, and a sort when one is due.
    void catchUp();
    /// Sorts when rows may stand wrong, the table keeps itself sorted, and nothing holds sorting back.
    void sortIfDue();

  private:
    friend class ReportScope;

    void report(int row, int column, QTableWidgetItem* item);
    void emitChanged(QTableWidgetItem* item, int row, int column);
    void catchUpLater();
    void repaint();

    MRL_H_TableWidget& m_table;
    RowOrder& m_order;
    QObject m_context;          ///< ends what was posted, with this
    bool m_valuesDirty = false; ///< values changed under a signal block
    bool m_looksDirty = false;
    bool m_catchUpPosted = false;
    int m_running = 0; ///< reports that have not returned
};

/// While it lives a change is being reported, and no row moves.
class ReportScope
{
  public:
    explicit ReportScope(ChangeReports& reports);
    ~ReportScope();
    ReportScope(const ReportScope&) = delete;
    ReportScope& operator=(const ReportScope&) = delete;

  private:
    QPointer<MRL_H_TableWidget> m_table; ///< null when a receiver deleted the table
    ChangeReports& m_reports;
};

} // namespace mrl::table
