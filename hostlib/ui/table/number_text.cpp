#include "hostlib/ui/table/number_text.h"

#include <algorithm>
#include <cmath>

#include "host/mrl_table.h"

namespace {

constexpr int WHOLE_NUMBER_FORMAT = 0;
/// Digits of a float that a person recognises: 1.35 is stored as 1.35000002384.
constexpr int SIGNIFICANT_DIGITS = 6;
/// Beyond this a number is written with an exponent, so that no column of zeros appears.
constexpr int LONGEST_FRACTION = 12;
constexpr int LONGEST_INTEGER = 15;

/// A grouped whole part such as 1.234.567: one to three digits, then groups of three.
bool isGrouped(const QString& digits, QChar sign)
{
    const QStringList groups = digits.split(sign);
    const int first =
        groups.first().startsWith(QLatin1Char('-')) || groups.first().startsWith(QLatin1Char('+'))
            ? groups.first().size() - 1
            : groups.first().size();
    return first >= 1 && first <= 3 &&
           std::all_of(groups.begin() + 1, groups.end(), [](const QString& g) { return g.size() == 3; });
}

/// The text with a point as its only sign, null when the signs make no number.
QString withDecimalPoint(QString text)
{
    const int commas = text.count(QLatin1Char(','));
    const int points = text.count(QLatin1Char('.'));
    if (commas == 0 && points <= 1) {
        return text;
    }
    if (points == 0 && commas == 1) {
        return text.replace(QLatin1Char(','), QLatin1Char('.'));
    }

    const bool commaIsDecimal =
        commas == 1 && text.lastIndexOf(QLatin1Char(',')) > text.lastIndexOf(QLatin1Char('.'));
    const bool pointIsDecimal =
        points == 1 && text.lastIndexOf(QLatin1Char('.')) > text.lastIndexOf(QLatin1Char(','));
    const QChar decimal = commaIsDecimal ? QLatin1Char(',') : pointIsDecimal ? QLatin1Char('.') : QChar();
    const QChar grouping = commas > (commaIsDecimal ? 1 : 0) ? QLatin1Char(',') : QLatin1Char('.');
    if (decimal.isNull() && commas > 0 && points > 0) {
        return {};
    }
    const int end = decimal.isNull() ? text.size() : text.indexOf(decimal);
    QString whole = text.left(end);
    if (!isGrouped(whole, grouping)) {
        return {};
    }
    const QString fraction = decimal.isNull() ? QString() : QLatin1Char('.') + text.mid(end + 1);
    return whole.remove(grouping) + fraction;
}

/// Decimals that show all of the given number of significant digits and no zero behind them.
int decimalsNeeded(double value)
{
    const QByteArray digits = QByteArray::number(value, 'e', SIGNIFICANT_DIGITS - 1);
    const int e = digits.indexOf('e');
    const int exponent = digits.mid(e + 1).toInt();
    int last = e - 1;
    while (digits.at(last) == '0') {
        --last;
    }
    const int fraction = digits.at(last) == '.' ? 0 : last - digits.indexOf('.');
    return std::max(0, fraction - exponent);
}

QString factorText(double value, int precision)
{
    const double shown = static_cast<double>(static_cast<float>(value));
    if (!std::isfinite(shown)) {
        return QString::number(shown);
    }
    if (shown == 0.0) {
        return QString::number(0.0, 'f', std::max(0, precision));
    }
    const int needed = decimalsNeeded(shown);
    if (needed > LONGEST_FRACTION || std::fabs(shown) >= std::pow(10.0, LONGEST_INTEGER)) {
        return QString::number(shown, 'g', SIGNIFICANT_DIGITS);
    }
    return QString::number(shown, 'f', std::max(needed, precision));
}

} // namespace

namespace mrl::table {

std::optional<double> parseNumber(const QString& text)
{
    const QString plain = withDecimalPoint(text.trimmed());
    bool ok = false;
    const double value = plain.toDouble(&ok);
    if (!ok || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

QString wholeNumberText(double value)
{
    if (value == UNDEFINED_VALUE) {
        return {};
    }
    constexpr double LARGEST_EXACT = 9007199254740992.0; // 2^53
    if (std::fabs(value) <= LARGEST_EXACT && std::trunc(value) == value) {
        return QString::number(static_cast<qint64>(value));
    }
    return QString::number(value, 'f', 0);
}

} // namespace mrl::table

QString mrl_h_getDimStringFromVal(double value, int format, int precision)
{
    if (value == mrl::table::UNDEFINED_VALUE) {
        return {};
    }
    return format == WHOLE_NUMBER_FORMAT ? mrl::table::wholeNumberText(value) : factorText(value, precision);
}
