#include <QApplication>
#include <QBrush>
#include <QPalette>

#include <algorithm>
#include <cmath>

#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/number_text.h"
#include "hostlib/ui/table/table_private.h"

using Access = MRL_H_TwCellAccess;
using mrl::table::numberLess;
using mrl::table::parseNumber;
using mrl::table::undefinedValue;

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

bool sameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

template <typename Cell, typename Item>
Cell* castCell(Item* item, int first, int last)
{
    return item != nullptr && item->type() >= first && item->type() <= last ? static_cast<Cell*>(item)
                                                                            : nullptr;
}

} // namespace

MRL_QT_TableWidgetItem::MRL_QT_TableWidgetItem(int type) : QTableWidgetItem(type) {}

void MRL_QT_TableWidgetItem::setEnabled(bool enabled)
{
    if (enabled != MRL_QT_TableWidgetItem::isEnabled())
        setFlags(enabled ? flags() | Qt::ItemIsEditable : flags() & ~Qt::ItemIsEditable);
}

bool MRL_QT_TableWidgetItem::isEnabled() const { return (flags() & Qt::ItemIsEditable) != 0; }

// ---- the base of all cells

MRL_H_TwItem::MRL_H_TwItem(int type) : MRL_H_TwItem(type, nullptr) {}

MRL_H_TwItem::MRL_H_TwItem(int type, MRL_H_TwColumn* column)
    : MRL_QT_TableWidgetItem(type), m_column(MRL_H_TwColumn::acquire(column))
{
    if (column != nullptr && !column->enabled)
        assignFlags(*this, false);
}

MRL_H_TwItem::~MRL_H_TwItem()
{
    if ((m_state & Access::Unsorted) != 0 && m_column != nullptr && m_column->table != nullptr)
        MRL_H_TableWidget::Private::of(*m_column->table).forgetUnsorted(*this);
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
    if (enabled == ((m_state & Access::Disabled) == 0))
        return;
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
        if ((m_state & Access::TextRed) != 0)
            return QBrush(Qt::red);
        if ((m_state & Access::TextBlack) != 0)
            return QBrush(Qt::black);
        break;
    case Qt::TextAlignmentRole:
        if (m_column != nullptr)
            return static_cast<int>((m_column->isNumber() ? Qt::AlignRight : m_column->alignment) |
                                    Qt::AlignVCenter);
        break;
    case Qt::ToolTipRole:
        return m_extra ? QVariant(m_extra->toolTip) : QVariant();
    case Access::rowValidRole:
        return (m_state & Access::RowValidKnown) != 0 ? QVariant((m_state & Access::RowValid) != 0)
                                                      : QVariant();
    case Access::fromActionRole:
        return (m_state & Access::FromActionKnown) != 0 ? QVariant((m_state & Access::FromAction) != 0)
                                                        : QVariant();
    default:
        break;
    }
    if (m_extra)
        for (const auto& entry : m_extra->roles)
            if (entry.first == role)
                return entry.second;
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
        if (assign(value))
            valueChanged();
        return;
    case Qt::ForegroundRole:
        setForeground(value.isValid() ? value.value<QBrush>() : QBrush());
        return;
    case Qt::ToolTipRole:
        setToolTip(value.toString());
        return;
    case Access::rowValidRole:
        setBits(Access::RowValidKnown, Access::RowValid, value);
        return;
    case Access::fromActionRole:
        setBits(Access::FromActionKnown, Access::FromAction, value);
        return;
    default:
        setRole(role, value);
    }
}

void MRL_H_TwItem::setRole(int role, const QVariant& value)
{
    if (!m_extra && !value.isValid())
        return;
    if (!m_extra)
        m_extra = std::make_unique<Extra>();
    auto& roles = m_extra->roles;
    const auto found =
        std::find_if(roles.begin(), roles.end(), [role](const auto& r) { return r.first == role; });
    if (found == roles.end() && value.isValid())
        roles.emplace_back(role, value);
    else if (found != roles.end() && value.isValid())
        found->second = value;
    else if (found != roles.end())
        roles.erase(found);
    dropEmptyExtra();
    if (role < Qt::UserRole)
        MRL_H_TableWidget::Private::looksChanged(*this);
}

void MRL_H_TwItem::dropEmptyExtra()
{
    if (m_extra && m_extra->roles.empty() && m_extra->toolTip.isEmpty())
        m_extra.reset();
}

void MRL_H_TwItem::setForeground(const QBrush& brush)
{
    quint8 colour = 0;
    if (isPlainColour(brush, Qt::red))
        colour = Access::TextRed;
    else if (isPlainColour(brush, Qt::black))
        colour = Access::TextBlack;
    if (colour != 0 && (m_state & colour) != 0)
        return;
    m_state = static_cast<quint8>((m_state & ~(Access::TextRed | Access::TextBlack)) | colour);
    setRole(Qt::ForegroundRole, colour != 0 || brush.style() == Qt::NoBrush ? QVariant() : QVariant(brush));
    MRL_H_TableWidget::Private::looksChanged(*this);
}

void MRL_H_TwItem::setToolTip(const QString& toolTip)
{
    if (m_extra ? m_extra->toolTip == toolTip : toolTip.isEmpty())
        return;
    if (!m_extra)
        m_extra = std::make_unique<Extra>();
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
    if (right == nullptr)
        return shownText() < other.text();
    const auto* a = MRL_H_TwSimpleLineEditItem::fromItem(this);
    const auto* b = MRL_H_TwSimpleLineEditItem::fromItem(right);
    if (a != nullptr && b != nullptr && m_column->isNumber() && right->m_column->isNumber())
        return numberLess(MRL_H_TwCellAccess::number(*a), MRL_H_TwCellAccess::number(*b));
    return shownText() < right->shownText();
}

// ---- texts and numbers

MRL_H_TwSimpleLineEditItem::MRL_H_TwSimpleLineEditItem(const MRL_H_TwHeaderLineEditItem& header)
    : MRL_H_TwSimpleLineEditItem(LineEditCell, header)
{
}

MRL_H_TwSimpleLineEditItem::MRL_H_TwSimpleLineEditItem(int type, const MRL_H_TwHeaderLineEditItem& header)
    : MRL_H_TwItem(type, header.column()), m_number(header.column()->kept(header.column()->description.value))
{
}

MRL_H_TwSimpleLineEditItem::~MRL_H_TwSimpleLineEditItem() = default;

MRL_H_TwSimpleLineEditItem* MRL_H_TwSimpleLineEditItem::fromItem(QTableWidgetItem* item)
{
    return castCell<MRL_H_TwSimpleLineEditItem>(item, LineEditCell, EditableComboBoxCell);
}

const MRL_H_TwSimpleLineEditItem* MRL_H_TwSimpleLineEditItem::fromItem(const QTableWidgetItem* item)
{
    return castCell<const MRL_H_TwSimpleLineEditItem>(item, LineEditCell, EditableComboBoxCell);
}

void MRL_H_TwSimpleLineEditItem::setText(const QString& text)
{
    if (assignText(text))
        valueChanged();
}

void MRL_H_TwSimpleLineEditItem::setVal(float number)
{
    const bool changed = column()->isNumber()
                             ? assignNumber(static_cast<double>(number))
                             : assignText(mrl_h_getDimStringFromVal(static_cast<double>(number), -3, -1));
    if (changed)
        valueChanged();
}

double MRL_H_TwSimpleLineEditItem::getVal(bool* ok) const
{
    const auto parsed = column()->isNumber() ? std::optional<double>(m_number) : parseNumber(m_text);
    if (ok != nullptr)
        *ok = parsed.has_value();
    return parsed.value_or(0.0);
}

QString MRL_H_TwSimpleLineEditItem::shownText() const
{
    return column()->isNumber() ? column()->numberText(m_number) : m_text;
}

QVariant MRL_H_TwSimpleLineEditItem::value() const
{
    const bool isInt = column()->kind == MRL_H_TwColumn::Kind::Whole && m_number != undefinedValue &&
                       std::fabs(m_number) <= 2147483647.0;
    return isInt ? QVariant(static_cast<int>(m_number)) : QVariant(shownText());
}

bool MRL_H_TwSimpleLineEditItem::assignText(const QString& text)
{
    if (column()->isNumber()) {
        const auto number = text.isEmpty() ? std::optional<double>(undefinedValue) : parseNumber(text);
        return number.has_value() && assignNumber(*number);
    }
    if (m_text == text)
        return false;
    m_text = text;
    return true;
}

bool MRL_H_TwSimpleLineEditItem::assignNumber(double number)
{
    const double kept = column()->kept(number);
    if (sameNumber(m_number, kept))
        return false;
    m_number = kept;
    return true;
}

bool MRL_H_TwSimpleLineEditItem::assign(const QVariant& v)
{
    const bool isNumber = v.type() != QVariant::String && v.canConvert<double>() && v.isValid();
    return isNumber && column()->isNumber() ? assignNumber(v.toDouble()) : assignText(v.toString());
}

bool MRL_H_TwSimpleLineEditItem::enterText(const QString& text, bool dryRun)
{
    if (text == shownText())
        return false;
    if (!column()->isNumber()) {
        const int most = static_cast<int>(column()->description.secondBound);
        const QString taken = most > 0 ? text.left(most) : text;
        return dryRun ? taken != m_text : assignText(taken);
    }
    const auto number = parseNumber(text);
    if (!number.has_value() || !column()->allows(*number))
        return false;
    if (column()->kind == MRL_H_TwColumn::Kind::Whole && *number != std::floor(*number))
        return false;
    if (!std::isfinite(column()->kept(*number)))
        return false;
    return dryRun ? !sameNumber(m_number, column()->kept(*number)) : assignNumber(*number);
}

// ---- numbers that may be somebody else's

MRL_H_TwEditableComboBoxItem::MRL_H_TwEditableComboBoxItem(const MRL_H_TwHeaderLineEditItem& header)
    : MRL_H_TwSimpleLineEditItem(EditableComboBoxCell, header)
{
}

MRL_H_TwEditableComboBoxItem* MRL_H_TwEditableComboBoxItem::fromItem(QTableWidgetItem* item)
{
    return castCell<MRL_H_TwEditableComboBoxItem>(item, EditableComboBoxCell, EditableComboBoxCell);
}

const MRL_H_TwEditableComboBoxItem* MRL_H_TwEditableComboBoxItem::fromItem(const QTableWidgetItem* item)
{
    return castCell<const MRL_H_TwEditableComboBoxItem>(item, EditableComboBoxCell, EditableComboBoxCell);
}

bool MRL_H_TwEditableComboBoxItem::setCurrentId(int id)
{
    if (id != -1 && id != 0)
        return false;
    const bool own = id == 0;
    m_showNext = !own;
    if (m_own != own) {
        m_own = own;
        valueChanged();
    }
    return true;
}

int MRL_H_TwEditableComboBoxItem::getCurrentId() const { return m_own ? 0 : -1; }

bool MRL_H_TwEditableComboBoxItem::assign(const QVariant& v)
{
    const QString text = v.toString();
    if (!text.isEmpty() && !parseNumber(text).has_value()) {
        const bool had = m_own; // a text such as "Use from Action" gives up the cell's own value
        m_own = false;
        m_showNext = false;
        return had;
    }
    return MRL_H_TwSimpleLineEditItem::assign(v);
}

bool MRL_H_TwEditableComboBoxItem::enterText(const QString& text, bool dryRun)
{
    if (!text.isEmpty() && !parseNumber(text).has_value()) {
        const bool had = m_own;
        if (!dryRun)
            assign(text);
        return had;
    }
    return MRL_H_TwSimpleLineEditItem::enterText(text, dryRun);
}

bool MRL_H_TwEditableComboBoxItem::assignNumber(double number)
{
    const bool forShow = m_showNext && !m_own;
    m_showNext = false;
    const bool becomesOwn = !forShow && !m_own && number != undefinedValue;
    m_own = m_own || becomesOwn;
    return MRL_H_TwSimpleLineEditItem::assignNumber(number) || becomesOwn;
}

// ---- choices

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
    if (entry == nullptr || entry->id == m_id)
        return false;
    if (!dryRun)
        m_id = entry->id;
    return true;
}
