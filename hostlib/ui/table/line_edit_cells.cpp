// Cells of texts and numbers, and of numbers that need not be the cell's own.

#include <cmath>

#include "hostlib/ui/table/cell_cast.h"
#include "hostlib/ui/table/column.h"
#include "hostlib/ui/table/number_text.h"

using mrl::table::parseNumber;
using mrl::table::UNDEFINED_VALUE;

namespace {

bool sameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

} // namespace

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
    if (assignText(text)) {
        valueChanged();
    }
}

void MRL_H_TwSimpleLineEditItem::setVal(float number)
{
    const bool changed = column()->isNumber()
                             ? assignNumber(static_cast<double>(number))
                             : assignText(mrl_h_getDimStringFromVal(static_cast<double>(number), -3, -1));
    if (changed) {
        valueChanged();
    }
}

double MRL_H_TwSimpleLineEditItem::getVal(bool* ok) const
{
    const auto parsed = column()->isNumber() ? std::optional<double>(m_number) : parseNumber(m_text);
    if (ok != nullptr) {
        *ok = parsed.has_value();
    }
    return parsed.value_or(0.0);
}

QString MRL_H_TwSimpleLineEditItem::shownText() const
{
    return column()->isNumber() ? column()->numberText(m_number) : m_text;
}

QVariant MRL_H_TwSimpleLineEditItem::value() const
{
    const bool isInt = column()->kind == MRL_H_TwColumn::Kind::Whole && m_number != UNDEFINED_VALUE &&
                       std::fabs(m_number) <= 2147483647.0;
    return isInt ? QVariant(static_cast<int>(m_number)) : QVariant(shownText());
}

bool MRL_H_TwSimpleLineEditItem::assignText(const QString& text)
{
    if (column()->isNumber()) {
        const auto number = text.isEmpty() ? std::optional<double>(UNDEFINED_VALUE) : parseNumber(text);
        return number.has_value() && assignNumber(*number);
    }
    if (m_text == text) {
        return false;
    }
    willChange();
    m_text = text;
    return true;
}

bool MRL_H_TwSimpleLineEditItem::assignNumber(double number)
{
    const double kept = column()->kept(number);
    if (sameNumber(m_number, kept)) {
        return false;
    }
    willChange();
    m_number = kept;
    return true;
}

bool MRL_H_TwSimpleLineEditItem::assign(const QVariant& v)
{
    const bool isNumber = v.type() != QVariant::String && v.canConvert<double>() && v.isValid();
    return isNumber && column()->isNumber() ? assignNumber(v.toDouble()) : assignText(v.toString());
}

bool MRL_H_TwSimpleLineEditItem::enterText(const QString& text, Entry entry)
{
    if (text == shownText()) {
        return false;
    }
    if (!column()->isNumber()) {
        const int most = static_cast<int>(column()->description.secondBound);
        const QString taken = most > 0 ? text.left(most) : text;
        return entry == Entry::Try ? taken != m_text : assignText(taken);
    }
    const auto number = parseNumber(text);
    if (!number.has_value() || !column()->allows(*number)) {
        return false;
    }
    if (column()->kind == MRL_H_TwColumn::Kind::Whole && *number != std::floor(*number)) {
        return false;
    }
    if (!std::isfinite(column()->kept(*number))) {
        return false;
    }
    return entry == Entry::Try ? !sameNumber(m_number, column()->kept(*number)) : assignNumber(*number);
}

// ---- numbers that need not be the cell's own

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
    if (id != -1 && id != 0) {
        return false;
    }
    const bool own = id == 0;
    m_showNext = !own;
    if (m_own != own) {
        willChange();
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
        willChange();
        m_own = false;
        m_showNext = false;
        return had;
    }
    return MRL_H_TwSimpleLineEditItem::assign(v);
}

bool MRL_H_TwEditableComboBoxItem::enterText(const QString& text, Entry entry)
{
    if (!text.isEmpty() && !parseNumber(text).has_value()) {
        const bool had = m_own;
        if (entry == Entry::Make) {
            assign(text);
        }
        return had;
    }
    return MRL_H_TwSimpleLineEditItem::enterText(text, entry);
}

bool MRL_H_TwEditableComboBoxItem::assignNumber(double number)
{
    const bool forShow = m_showNext && !m_own;
    m_showNext = false;
    const bool becomesOwn = !forShow && !m_own && number != UNDEFINED_VALUE;
    if (becomesOwn) {
        willChange();
    }
    m_own = m_own || becomesOwn;
    return MRL_H_TwSimpleLineEditItem::assignNumber(number) || becomesOwn;
}
