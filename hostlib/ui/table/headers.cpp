#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/table_private.h"

namespace {

constexpr int WHOLE_NUMBER_FORMAT = 0;
constexpr int TEXT_FORMAT = -15;

MRL_H_TwColumn::Kind kindOfFormat(int format)
{
    if (format == TEXT_FORMAT) {
        return MRL_H_TwColumn::Kind::Text;
    }
    return format == WHOLE_NUMBER_FORMAT ? MRL_H_TwColumn::Kind::Whole : MRL_H_TwColumn::Kind::Factor;
}

} // namespace

MRL_H_TwHeaderItem::MRL_H_TwHeaderItem(int type, int id, const QString& caption, const QString& toolTip,
                                       Qt::Alignment alignment)
    : MRL_QT_TableWidgetItem(type), m_column(MRL_H_TwColumn::acquire(new MRL_H_TwColumn))
{
    m_column->id = id;
    m_column->alignment = alignment;
    setText(caption);
    setToolTip(toolTip);
    setTextAlignment(static_cast<int>(alignment | Qt::AlignVCenter));
}

MRL_H_TwHeaderItem::~MRL_H_TwHeaderItem()
{
    m_column->table = nullptr;
    MRL_H_TwColumn::release(m_column);
}

int MRL_H_TwHeaderItem::id() const { return m_column->id; }

void MRL_H_TwHeaderItem::setColumnEnabled(bool enabled)
{
    if (m_column->enabled == enabled) {
        return;
    }
    m_column->enabled = enabled;
    if (m_column->table != nullptr) {
        MRL_H_TableWidget::Private::of(*m_column->table).changes.noteColumnFlags(*m_column);
    }
}

bool MRL_H_TwHeaderItem::isColumnEnabled() const { return m_column->enabled; }

MRL_H_TwHeaderLineEditItem::MRL_H_TwHeaderLineEditItem(int id, const StructLineEdit& description,
                                                       const QString& caption, const QString& toolTip, bool,
                                                       bool, Qt::Alignment alignment)
    : MRL_H_TwHeaderItem(UserType, id, caption, toolTip, alignment)
{
    column()->description = description;
    column()->kind = kindOfFormat(description.format);
}

MRL_H_TwHeaderLineEditItem::~MRL_H_TwHeaderLineEditItem() = default;

StructLineEdit MRL_H_TwHeaderLineEditItem::getDefaultStrcLe(int format)
{
    StructLineEdit description;
    description.format = format;
    return description;
}

MRL_H_TwItem* MRL_H_TwHeaderLineEditItem::createEmptyItem()
{
    return new MRL_H_TwSimpleLineEditItem(*this); // the caller's, and then the table's
}

const StructLineEdit& MRL_H_TwHeaderLineEditItem::description() const { return column()->description; }

MRL_H_TwHeaderComboBoxItem::MRL_H_TwHeaderComboBoxItem(int id, const std::list<ComboList>& entries,
                                                       const QString& caption, const QString& toolTip, bool,
                                                       Qt::Alignment alignment)
    : MRL_H_TwHeaderItem(UserType, id, caption, toolTip, alignment)
{
    column()->kind = MRL_H_TwColumn::Kind::Combo;
    column()->setEntries(entries);
}

MRL_H_TwHeaderComboBoxItem::~MRL_H_TwHeaderComboBoxItem() = default;

MRL_H_TwItem* MRL_H_TwHeaderComboBoxItem::createEmptyItem()
{
    return new MRL_H_TwSimpleComboBoxItem(*this); // the caller's, and then the table's
}

std::list<ComboList> MRL_H_TwHeaderComboBoxItem::getComboEntries(int) const
{
    return {column()->entries.begin(), column()->entries.end()};
}

void MRL_H_TwHeaderComboBoxItem::setComboEntries(const std::list<ComboList>& entries)
{
    const QHash<int, QString> before = column()->textsById();
    column()->setEntries(entries);
    const QSet<int> changed = column()->idsOfOtherText(before);
    if (!changed.isEmpty() && column()->table != nullptr) {
        MRL_H_TableWidget::Private::of(*column()->table).changes.noteComboTexts(*column(), changed);
    }
}
