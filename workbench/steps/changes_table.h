#pragma once

#include <QTableView>

#include "workbench/rows_model.h"
#include "workbench/steps/shown_changes.h"

namespace mrl::workbench {

class ChangesModel : public RowsModel<ShownChange>
{
    Q_OBJECT
  public:
    enum Column { Subject, Value, Before, After, Note, COLUMN_COUNT };

    /// @param before, after headings of the columns with the two values
    ChangesModel(const QString& before, const QString& after, QObject* parent);
    void show(std::vector<ShownChange> changes);

    QVariant data(const QModelIndex& index, int role) const override;

  protected:
    int columns() const override { return COLUMN_COUNT; }
    QString caption(int column) const override;

  private:
    QString m_before;
    QString m_after;
};

/// A table of changes, read with the eyes alone. The last column is hidden where it says nothing.
class ChangesTable : public QTableView
{
    Q_OBJECT
  public:
    ChangesTable(const QString& before, const QString& after, QWidget* parent);
    void show(std::vector<ShownChange> changes);
    using QTableView::show;

  private:
    ChangesModel* m_model;
};

} // namespace mrl::workbench
