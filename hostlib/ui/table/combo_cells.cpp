// Cells of choices.

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/cell_cast.h"
#include "hostlib/ui/table/column.h"

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
        willChange();
        m_id = id;
        valueChanged();
    }
    return column()->entryOfId.contains(id);
}

QString MRL_H_TwSimpleComboBoxItem::shownText() const { return column()->textOfId(m_id); }

QVariant MRL_H_TwSimpleComboBoxItem::value() const { return shownText(); }

bool MRL_H_TwSimpleComboBoxItem::assign(const QVariant& v) { return enterText(v.toString(), Entry::Make); }

bool MRL_H_TwSimpleComboBoxItem::enterText(const QString& text, Entry entry)
{
    const ComboList* chosen = text == shownText() ? nullptr : column()->entryOfText(text);
    return chosen != nullptr && MRL_H_TwCellAccess::enterId(*this, chosen->id, entry);
}
