#include "manager/row_filter.h"

#include <QLatin1String>

#include "host/mrl_table.h"
#include "lcdata/values/records.h"
#include "rules/load_case_columns.h"

namespace {

std::optional<double> numberOf(QString text)
{
    bool ok = false;
    const double number = text.replace(QLatin1Char(','), QLatin1Char('.')).toDouble(&ok);
    return ok ? std::optional<double>(number) : std::nullopt;
}

/// Numbers and titles of rows are no factors. They have the same ids in both tables.
bool holdsFactor(int column) { return column > LC_COL_TITLE; }

} // namespace

LCM_RowFilter::LCM_RowFilter(const QString& wish)
{
    const struct
    {
        const char* sign;
        Kind kind;
    } signs[] = {{">=", Kind::AtLeast},
                 {"<=", Kind::AtMost},
                 {">", Kind::Above},
                 {"<", Kind::Below},
                 {"=", Kind::Equals}};
    m_text = wish.trimmed();
    for (const auto& [sign, kind] : signs) {
        if (m_text.startsWith(QLatin1String(sign))) {
            m_text = m_text.mid(static_cast<int>(qstrlen(sign))).trimmed();
            m_kind = kind;
            break;
        }
    }
    m_number = numberOf(m_text);
    const bool compares = m_kind != Kind::Contains && m_kind != Kind::Equals;
    if (compares && !m_number) {
        m_text.clear(); // the number is still to be typed
    }
}

bool LCM_RowFilter::accepts(const MRL_H_TableWidget& table, int row) const
{
    if (isEmpty()) {
        return true;
    }
    const bool compares = m_kind != Kind::Contains && m_kind != Kind::Equals;
    for (int column = 0; column < table.columnCount(); ++column) {
        const QTableWidgetItem* cell = table.isColumnHidden(column) ? nullptr : table.item(row, column);
        if (cell && (!compares || holdsFactor(table.getColumnId(column))) && acceptsCell(*cell)) {
            return true;
        }
    }
    return false;
}

bool LCM_RowFilter::acceptsCell(const QTableWidgetItem& cell) const
{
    if (m_kind == Kind::Contains) {
        return cell.text().contains(m_text, Qt::CaseInsensitive);
    }
    const auto* number = MRL_H_TwSimpleLineEditItem::fromItem(&cell);
    bool isNumber = false;
    const double value = number ? number->getVal(&isNumber) : 0.0;
    if (isNumber && m_number && value != static_cast<double>(LC_UNDEFINED) && acceptsNumber(value)) {
        return true;
    }
    if (m_kind != Kind::Equals) {
        return false;
    }
    const QString text = cell.text().trimmed();
    const QString first = text.left(text.indexOf(QLatin1Char(' ')));
    return text.compare(m_text, Qt::CaseInsensitive) == 0 || first.compare(m_text, Qt::CaseInsensitive) == 0;
}

bool LCM_RowFilter::acceptsNumber(double number) const
{
    // In single precision, as the cells keep their factors.
    const auto value = static_cast<float>(number);
    const auto limit = static_cast<float>(*m_number);
    switch (m_kind) {
    case Kind::Above:
        return value > limit;
    case Kind::AtLeast:
        return value >= limit;
    case Kind::Below:
        return value < limit;
    case Kind::AtMost:
        return value <= limit;
    default:
        return value == limit;
    }
}
