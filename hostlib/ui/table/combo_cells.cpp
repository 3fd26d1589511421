// Cells of choices.

#include "hostlib/ui/table/cell_cast.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/table_private.h"

MRL_H_TwSimpleComboBoxItem::MRL_H_TwSimpleComboBoxItem(const MRL_H_TwHeaderComboBoxItem& header)
    : MRL_H_TwItem(ComboBoxCell, header.column())
{
}

MRL_H_TwSimpleComboBoxItem* MRL_H_TwSimpleComboBoxItem::fromItem(QTableWidgetItem* item)
{
    return castCell<MRL_H_TwSimpleComboBoxItem>(item, ComboBoxCell, ComboBoxCell);
}

const MRL_H_TwSimpleComboBoxItem* MRL_H_TwSimpleComboBoxItem::fromItem(const QTableWidgetItem* item)
{
    return castCell<const MRL_H_TwSimpleComboBoxItem>(item, ComboBoxCell, ComboBoxCell);
}

bool MRL_H_TwSimpleComboBoxItem::setCurrentId(int id)
{
    if (m_id != id) {
        m_id = id;
        valueChanged();
    }
    return column()->entryOfId.contains(id);
}

QString MRL_H_TwSimpleComboBoxItem::shownText() const { return column()->textOfId(m_id); }

QVariant MRL_H_TwSimpleComboBoxItem::value() const { return shownText(); }

bool MRL_H_TwSimpleComboBoxItem::assign(const QVariant& v) { return enterText(v.toString(), false); }

bool MRL_H_TwSimpleComboBoxItem::enterText(const QString& text, bool dryRun)
{
    const ComboList* entry = text == shownText() ? nullptr : column()->entryOfText(text);
    if (entry == nullptr || entry->id == m_id) {
        return false;
    }
    if (!dryRun) {
        m_id = entry->id;
    }
    return true;
}
