// The base of all cells: flags, colours and roles.

#include <QApplication>
#include <QBrush>
#include <QPalette>

#include <algorithm>

#include "hostlib/ui/table/cell_access.h"
#include "hostlib/ui/table/cell_cast.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/kept_cell.h"
#include "hostlib/ui/table/number_text.h"
#include "hostlib/ui/table/table_private.h"

using Access = MRL_H_TwCellAccess;
using mrl::table::ChangeReports;
using mrl::table::numberLess;

static_assert(Access::FirstFlag << 2 == Access::SecondFlag && Access::SecondFlag << 2 == Access::Unsorted,
              "two bits for each flag role");

namespace {

/// Two bits of the state for each flag role of the column: its bool, and whether it was set.
quint8 flagBit(int flag) { return static_cast<quint8>(Access::FirstFlag << (2 * flag)); }
quint8 flagKnownBit(int flag) { return static_cast<quint8>(flagBit(flag) << 1); }

/// The shade of cells that can't be edited, of the colours that the desktop gives to fields and windows.
QBrush disabledShade()
{
    const QColor base = QGuiApplication::palette().color(QPalette::Base);
    const QColor text = QGuiApplication::palette().color(QPalette::Text);
    const auto mix = [](int a, int b) { return (a * 93 + b * 7) / 100; };
    return QColor(mix(base.red(), text.red()), mix(base.green(), text.green()),
                  mix(base.blue(), text.blue()));
}

/// What the table's user notes on a marked cell; empty for any other one.
QString markedNote(const MRL_H_TwItem& cell)
{
    const MRL_H_TwColumn* column = Access::column(cell);
    if (column == nullptr || column->table == nullptr) {
        return {};
    }
    const MRL_H_CellNotes& notes = MRL_H_TableWidget::Private::of(*column->table).notes;
    const MRL_H_CellNote note =
        notes ? notes(column->table->rowOf(&cell), column->position) : MRL_H_CellNote();
    return note.isMarked ? note.text : QString();
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
        Access::applyFlags(*this);
    }
}

MRL_H_TwItem::~MRL_H_TwItem()
{
    if (m_column != nullptr && m_column->table != nullptr) {
        MRL_H_TableWidget::Private& table = MRL_H_TableWidget::Private::of(*m_column->table);
        if ((m_state & Access::Unsorted) != 0) {
            table.order.forget(*this);
        }
        if (table.journal) {
            table.journal->noteBroken();
        }
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

void MRL_H_TwItem::setEnabled(bool enabled)
{
    if (enabled == ((m_state & Access::Disabled) == 0)) {
        return;
    }
    willChange();
    m_state = static_cast<quint8>(m_state ^ Access::Disabled);
    Access::applyFlags(*this);
    ChangeReports::tellLooks(*this);
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
        if ((m_state & (Access::TextRed | Access::TextBlack)) != 0) {
            return QBrush((m_state & Access::TextRed) != 0 ? Qt::red : Qt::black);
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
    case Qt::AccessibleDescriptionRole:
        if (m_extra && isMarkedFinding()) {
            return MRL_H_TableWidget::tr("Wrong: %1").arg(m_extra->toolTip);
        }
        if (const QString note = markedNote(*this); !note.isEmpty()) {
            return note;
        }
        break;
    default:
        break;
    }
    if (const int flag = m_column != nullptr ? m_column->flagOfRole(role) : -1;
        flag >= 0 && (m_state & flagKnownBit(flag)) != 0) {
        return (m_state & flagBit(flag)) != 0;
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

bool MRL_H_TwItem::isMarkedFinding() const
{
    return (m_state & Access::TextRed) != 0 && m_column != nullptr && m_column->table != nullptr &&
           MRL_H_TableWidget::Private::of(*m_column->table).marks.areOn();
}

void MRL_H_TwItem::setData(int role, const QVariant& value)
{
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
    default:
        setRole(role, setFlag(role, value) ? QVariant() : value);
    }
}

/// Keeps a bool in the state where the column has a place for its role; any other value gives up what the
/// state holds. @return true when the value is kept
bool MRL_H_TwItem::setFlag(int role, const QVariant& value)
{
    const bool isFlag = value.type() == QVariant::Bool;
    const int flag = m_column == nullptr ? -1
                     : isFlag            ? m_column->takeFlag(role)
                                         : m_column->flagOfRole(role);
    if (flag < 0) {
        return false;
    }
    const int without = m_state & ~(flagKnownBit(flag) | flagBit(flag));
    const int now = isFlag ? without | flagKnownBit(flag) | (value.toBool() ? flagBit(flag) : 0) : without;
    if (now != m_state) {
        willChange();
    }
    m_state = static_cast<quint8>(now);
    return isFlag;
}

void MRL_H_TwItem::setRole(int role, const QVariant& value)
{
    if (!m_extra && !value.isValid()) {
        return;
    }
    willChange();
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
        ChangeReports::tellLooks(*this);
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
    willChange();
    m_state = static_cast<quint8>((m_state & ~(Access::TextRed | Access::TextBlack)) | colour);
    setRole(Qt::ForegroundRole, colour != 0 || brush.style() == Qt::NoBrush ? QVariant() : QVariant(brush));
    ChangeReports::tellLooks(*this);
}

void MRL_H_TwItem::setToolTip(const QString& toolTip)
{
    if (m_extra ? m_extra->toolTip == toolTip : toolTip.isEmpty()) {
        return;
    }
    willChange();
    if (!m_extra) {
        m_extra = std::make_unique<Extra>();
    }
    m_extra->toolTip = toolTip;
    dropEmptyExtra();
}

QString MRL_H_TwItem::shownText() const { return {}; }

QVariant MRL_H_TwItem::value() const { return shownText(); }

bool MRL_H_TwItem::assign(const QVariant&) { return false; }

bool MRL_H_TwItem::enterText(const QString&, Entry) { return false; }

void MRL_H_TwItem::valueChanged() { ChangeReports::tellValue(*this); }

void MRL_H_TwItem::willChange()
{
    if (m_column == nullptr || m_column->table == nullptr) {
        return;
    }
    if (const auto& journal = MRL_H_TableWidget::Private::of(*m_column->table).journal) {
        journal->note(*this);
    }
}

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
