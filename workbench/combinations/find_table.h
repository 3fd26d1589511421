#pragma once

#include <QTableView>

#include <initializer_list>

class QLineEdit;
class QSortFilterProxyModel;

namespace mrl::workbench {

/// A read-only table that sorts by a click on a column, shows the rows in which a text stands, and copies them.
class FindTable : public QWidget
{
    Q_OBJECT
  public:
    /// @param model outlives this; numbers to sort by come under Qt::UserRole, else the text
    FindTable(QAbstractItemModel* model, const char* name, QWidget* parent);
    ~FindTable() override;

    QTableView* table() const { return m_table; }
    /// Stands above the table, unless it is put where there is room beside something else.
    QLineEdit* findField() const { return m_find; }
    /// The row of the model that is current; -1: none.
    int currentRow() const;
    void setCurrentRow(int row);
    /// Fits the columns to what is shown first, none wider than a line of text; some share the rest of the width.
    void fitColumns(std::initializer_list<int> stretched);

  signals:
    void currentChanged();

  private slots:
    void slot_find(const QString& text);

  private:
    QLineEdit* m_find;
    QTableView* m_table;
    QSortFilterProxyModel* m_proxy;
};

} // namespace mrl::workbench
