#include "hostlib/ui/table/table_private.h"

MRL_QT_SignalBlocker::MRL_QT_SignalBlocker(QObject* object)
    : m_object(object), m_before(object != nullptr && object->blockSignals(true))
{
}

MRL_QT_SignalBlocker::~MRL_QT_SignalBlocker() { unblock(); }

void MRL_QT_SignalBlocker::unblock()
{
    QObject* object = m_object;
    m_object = nullptr;
    if (object == nullptr || m_before) {
        return;
    }
    object->blockSignals(false);
    if (auto* table = qobject_cast<MRL_H_TableWidget*>(object)) {
        MRL_H_TableWidget::Private::of(*table).changes.catchUp();
    }
}

MRL_QT_UpdateBlocker::MRL_QT_UpdateBlocker(MRL_QT_TableWidget* table)
    : m_table(table), m_before(table != nullptr && !table->updatesEnabled())
{
    if (m_table != nullptr && !m_before) {
        m_table->setUpdatesEnabled(false);
    }
}

MRL_QT_UpdateBlocker::~MRL_QT_UpdateBlocker() { unblock(); }

void MRL_QT_UpdateBlocker::unblock()
{
    if (m_table != nullptr && !m_before) {
        m_table->setUpdatesEnabled(true);
    }
    m_table = nullptr;
}

MRL_QT_SortingBlocker::MRL_QT_SortingBlocker(QTableView* table) : m_table(table)
{
    if (auto* own = qobject_cast<MRL_H_TableWidget*>(table)) {
        mrl::table::RowOrder& order = MRL_H_TableWidget::Private::of(*own).order;
        m_before = order.isOn();
        order.setOn(false);
    } else if (table != nullptr) {
        m_before = table->isSortingEnabled();
        table->setSortingEnabled(false);
    }
}

MRL_QT_SortingBlocker::~MRL_QT_SortingBlocker() { unblock(); }

void MRL_QT_SortingBlocker::unblock()
{
    QTableView* table = m_table;
    m_table = nullptr;
    if (auto* own = qobject_cast<MRL_H_TableWidget*>(table)) {
        MRL_H_TableWidget::Private& d = MRL_H_TableWidget::Private::of(*own);
        d.order.setOn(m_before);
        d.changes.sortIfDue();
    } else if (table != nullptr) {
        table->setSortingEnabled(m_before);
    }
}
