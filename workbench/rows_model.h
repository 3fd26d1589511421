#pragma once

/// What the read-only tables of the summary have in common.

#include <QAbstractTableModel>

#include <vector>

#include "host/mrl_table.h"

namespace mrl::workbench {

/// The load case of a row; nothing for a row of an action.
constexpr int ROW_LOAD_CASE_ROLE = Qt::UserRole + 1;

/// A table that keeps its rows as they were read and formats what is looked at.
template <class Row>
class RowsModel : public QAbstractTableModel
{
  public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }
    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : columns();
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
            return QAbstractTableModel::headerData(section, orientation, role);
        }
        return caption(section);
    }

  protected:
    virtual int columns() const = 0;
    virtual QString caption(int column) const = 0;

    const Row& rowOf(const QModelIndex& index) const { return m_rows[static_cast<std::size_t>(index.row())]; }
    /// To be called between beginResetModel and endResetModel.
    void setRows(std::vector<Row> rows) { m_rows = std::move(rows); }

    static QString number(float value)
    {
        return mrl_h_getDimStringFromVal(static_cast<double>(value), -3, 2);
    }
    static QVariant alignment(bool right)
    {
        return QVariant(right ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    }

  private:
    std::vector<Row> m_rows;
};

} // namespace mrl::workbench
