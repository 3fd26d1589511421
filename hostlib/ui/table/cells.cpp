// The base of all cells: flags, colours, roles, and what a change of the value tells.

#include <QApplication>
#include <QBrush>
#include <QPalette>

#include <algorithm>

#include "hostlib/ui/table/cell_cast.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/number_text.h"
#include "hostlib/ui/table/table_private.h"
#include "lcdata/values/roles.h"

using Access = MRL_H_TwCellAccess;
using mrl::table::numberLess;

namespace {

constexpr Qt::ItemFlags editableFlags = Qt::ItemIsSelectable | Qt::ItemIsEditable | Qt::ItemIsEnabled |
                                        Qt::ItemIsDragEnabled | Qt::ItemIsDropEnabled;

/// QTableWidgetItem::setFlags tells the table, which searches all its cells for the item once rows have
/// moved. Assigning another item copies the flags and tells nobody. The cells of this layer keep nothing else
/// in Qt's half of the item.
void assignFlags(QTableWidgetItem& item, bool editable)
{
    static const QTableWidgetItem enabledItem = [] {
        QTableWidgetItem i;
        i.setFlags(editableFlags);
        return i;
    }();
    static const QTableWidgetItem disabledItem = [] {
        QTableWidgetItem i;
        i.setFlags(editableFlags & ~Qt::ItemIsEditable);
        return i;
    }();
    item.QTableWidgetItem::operator=(editable ? enabledItem : disabledItem);
}

/// The shade of cells that can't be edited, of the colours that the desktop gives to fields and windows.
QBrush disabledShade()
{
    const QColor base = QGuiApplication::palette().color(QPalette::Base);
    const QColor text = QGuiApplication::palette().color(QPalette::Text);
    const auto mix = [](int a, int b) { return (a * 93 + b * 7) / 100; };
    return QColor(mix(base.red(), text.red()), mix(base.green(), text.green()),
                  mix(base.blue(), text.blue()));
}

bool isPlainColour(const QBrush& brush, const QColor& colour)
{
    return brush.style() == Qt::SolidPattern && brush.color() == colour;
}

} // namespace

MRL_QT_TableWidgetItem::MRL_QT_TableWidgetItem(int type) : QTableWidgetItem(type) {}

void MRL_QT_TableWidgetItem::setEnabled(bool enabled)
{
    if (enabled != MRL_QT_TableWidgetItem::isEnabled()) {
        setFlags(enabled ? flags() | Qt::ItemIsEditable : flags() & ~Qt::ItemIsEditable);
    }
}

bool MRL_QT_TableWidgetItem::isEnabled() const { return (flags() & Qt::ItemIsEditable) != 0; }

MRL_H_TwItem::MRL_H_TwItem(int type) : MRL_H_TwItem(type, nullptr) {}

MRL_H_TwItem::MRL_H_TwItem(int type, MRL_H_TwColumn* column)
    : MRL_QT_TableWidgetItem(type), m_column(MRL_H_TwColumn::acquire(column))
{
    if (column != nullptr && !column->enabled) {
        assignFlags(*this, false);
    }
}

MRL_H_TwItem::~MRL_H_TwItem()
{
    if ((m_state & Access::Unsorted) != 0 && m_column != nullptr && m_column->table != nullptr) {
        MRL_H_TableWidget::Private::of(*m_column->table).forgetUnsorted(*this);
    }
    MRL_H_TwColumn::release(m_column);
}

MRL_H_TwItem* MRL_H_TwItem::fromItem(QTableWidgetItem* item)
{
    return castCell<MRL_H_TwItem>(item, FirstCell, LastCell);
}

const MRL_H_TwItem* MRL_H_TwItem::fromItem(const QTableWidgetItem* item)
{
    return castCell<const MRL_H_TwItem>(item, FirstCell, LastCell);
}

void MRL_H_TwCellAccess::applyFlags(MRL_H_TwItem& cell) { assignFlags(cell, cell.MRL_H_TwItem::isEnabled()); }

void MRL_H_TwItem::setEnabled(bool enabled)
{
    if (enabled == ((m_state & Access::Disabled) == 0)) {
        return;
    }
    m_state = static_cast<quint8>(m_state ^ Access::Disabled);
    assignFlags(*this, isEnabled());
    MRL_H_TableWidget::Private::looksChanged(*this);
}

bool MRL_H_TwItem::isEnabled() const
{
    return (m_state & Access::Disabled) == 0 && (m_column == nullptr || m_column->enabled);
}

QVariant MRL_H_TwItem::data(int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return value();
    case Qt::ForegroundRole:
        if ((m_state & Access::TextRed) != 0) {
            return QBrush(Qt::red);
        }
        if ((m_state & Access::TextBlack) != 0) {
            return QBrush(Qt::black);
        }
        break;
    case Qt::TextAlignmentRole:
        if (m_column != nullptr) {
            return static_cast<int>((m_column->isNumber() ? Qt::AlignRight : m_column->alignment) |
                                    Qt::AlignVCenter);
        }
        break;
    case Qt::ToolTipRole:
        return m_extra ? QVariant(m_extra->toolTip) : QVariant();
    case ROLE_ROW_VALID:
        return (m_state & Access::RowValidKnown) != 0 ? QVariant((m_state & Access::RowValid) != 0)
                                                      : QVariant();
    case ROLE_FROM_ACTION:
        return (m_state & Access::FromActionKnown) != 0 ? QVariant((m_state & Access::FromAction) != 0)
                                                        : QVariant();
    default:
        break;
    }
    if (m_extra) {
        for (const auto& entry : m_extra->roles) {
            if (entry.first == role) {
                return entry.second;
            }
        }
    }
    return role == Qt::BackgroundRole && !isEnabled() ? QVariant(disabledShade()) : QVariant();
}

void MRL_H_TwItem::setData(int role, const QVariant& value)
{
    const auto setBits = [this](quint8 known, quint8 bit, const QVariant& v) {
        const int without = m_state & ~(known | bit);
        m_state = static_cast<quint8>(v.isValid() ? without | known | (v.toBool() ? bit : 0) : without);
    };
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        if (assign(value)) {
            valueChanged();
        }
        return;
    case Qt::ForegroundRole:
        setForeground(value.isValid() ? value.value<QBrush>() : QBrush());
        return;
    case Qt::ToolTipRole:
        setToolTip(value.toString());
        return;
    case ROLE_ROW_VALID:
        setBits(Access::RowValidKnown, Access::RowValid, value);
        return;
    case ROLE_FROM_ACTION:
        setBits(Access::FromActionKnown, Access::FromAction, value);
        return;
    default:
        setRole(role, value);
    }
}

void MRL_H_TwItem::setRole(int role, const QVariant& value)
{
    if (!m_extra && !value.isValid()) {
        return;
    }
    if (!m_extra) {
        m_extra = std::make_unique<Extra>();
    }
    auto& roles = m_extra->roles;
    const auto found =
        std::find_if(roles.begin(), roles.end(), [role](const auto& r) { return r.first == role; });
    if (found == roles.end() && value.isValid()) {
        roles.emplace_back(role, value);
    } else if (found != roles.end() && value.isValid()) {
        found->second = value;
    } else if (found != roles.end()) {
        roles.erase(found);
    }
    dropEmptyExtra();
    if (role < Qt::UserRole) {
        MRL_H_TableWidget::Private::looksChanged(*this);
    }
}

void MRL_H_TwItem::dropEmptyExtra()
{
    if (m_extra && m_extra->roles.empty() && m_extra->toolTip.isEmpty()) {
        m_extra.reset();
    }
}

void MRL_H_TwItem::setForeground(const QBrush& brush)
{
    quint8 colour = 0;
    if (isPlainColour(brush, Qt::red)) {
        colour = Access::TextRed;
    } else if (isPlainColour(brush, Qt::black)) {
        colour = Access::TextBlack;
    }
    if (colour != 0 && (m_state & colour) != 0) {
        return;
    }
    m_state = static_cast<quint8>((m_state & ~(Access::TextRed | Access::TextBlack)) | colour);
    setRole(Qt::ForegroundRole, colour != 0 || brush.style() == Qt::NoBrush ? QVariant() : QVariant(brush));
    MRL_H_TableWidget::Private::looksChanged(*this);
}

void MRL_H_TwItem::setToolTip(const QString& toolTip)
{
    if (m_extra ? m_extra->toolTip == toolTip : toolTip.isEmpty()) {
        return;
    }
    if (!m_extra) {
        m_extra = std::make_unique<Extra>();
    }
    m_extra->toolTip = toolTip;
    dropEmptyExtra();
}

QString MRL_H_TwItem::shownText() const { return {}; }

QVariant MRL_H_TwItem::value() const { return shownText(); }

bool MRL_H_TwItem::assign(const QVariant&) { return false; }

bool MRL_H_TwItem::enterText(const QString&, bool) { return false; }

void MRL_H_TwItem::valueChanged() { MRL_H_TableWidget::Private::valueChanged(*this); }

bool MRL_H_TwItem::operator<(const QTableWidgetItem& other) const
{
    const MRL_H_TwItem* right = fromItem(&other);
    if (right == nullptr) {
        return shownText() < other.text();
    }
    const auto* a = MRL_H_TwSimpleLineEditItem::fromItem(this);
    const auto* b = MRL_H_TwSimpleLineEditItem::fromItem(right);
    if (a != nullptr && b != nullptr && m_column->isNumber() && right->m_column->isNumber()) {
        return numberLess(MRL_H_TwCellAccess::number(*a), MRL_H_TwCellAccess::number(*b));
    }
    return shownText() < right->shownText();
}
