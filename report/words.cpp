#include "report/words.h"

#include <algorithm>
#include <cmath>

#include "exchange/decimals.h"
#include "lcdata/values/keywords.h"
#include "lcdata/values/partition.h"
#include "report/readable.h"

namespace mrl::report {

namespace {

constexpr double PLAINEST = 10000; // from there on decimals only make a number long
constexpr double TOLERANCE = 1e-6; // of hundredths, for what a double can hold
constexpr QChar MINUS(0x2212);
constexpr QChar REPLACED(0xFFFD);

QLocale localeOf(const QString& language)
{
    QLocale locale = language == QLatin1String("de") ? QLocale(QLocale::German, QLocale::Germany)
                                                     : QLocale(QLocale::English, QLocale::UnitedKingdom);
    return locale;
}

/// As the desktop-publishing rules of both languages want it.
QString withTrueMinus(QString text) { return text.replace(QLatin1Char('-'), MINUS); }

bool isHarmful(QChar c)
{
    switch (c.category()) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

/// The caption of an id in a list of words that the dialog shows.
template <class List>
QString captionOf(const List& list, int id)
{
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const auto& each) { return each.id == id; });
    return found == list.end() ? QString::number(id)
                               : QCoreApplication::translate("LCM_ActionsWidget", found->caption);
}

} // namespace

Words::Words(const QString& language) : m_language(language), m_locale(localeOf(language)) {}

QString Words::number(float value) const
{
    if (value == LC_UNDEFINED) {
        return QString(EN_DASH);
    }
    QLocale locale = m_locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator | QLocale::OmitLeadingZeroInExponent);
    // Of the float, and not of the double that it is as well.
    const double exact = std::isfinite(value)
                             ? QByteArray::fromStdString(exchange::numberText(value)).toDouble()
                             : static_cast<double>(value);
    const bool isPlain =
        std::fabs(exact) < PLAINEST && std::fabs(exact * 100 - std::round(exact * 100)) < TOLERANCE;
    return withTrueMinus(isPlain ? locale.toString(exact, 'f', 2)
                                 : locale.toString(exact, 'g', QLocale::FloatingPointShortest));
}

QString Words::count(std::size_t number) const { return m_locale.toString(static_cast<qulonglong>(number)); }

QString Words::count(const combine::BigInt& number) const
{
    constexpr auto LONGEST = static_cast<long long>(1e15); // fifteen digits
    return number < LONGEST ? m_locale.toString(number.convert_to<qlonglong>()) : readableCount(number);
}

QString Words::date(const QDate& day) const
{
    return m_locale.toString(day, m_language == QLatin1String("de") ? QStringLiteral("d. MMMM yyyy")
                                                                    : QStringLiteral("d MMMM yyyy"));
}

QString Words::state(std::string_view word)
{
    // The words of the managers' tool tips.
    const std::string text(word.empty() ? designcode::wordOf(designcode::State::Unverified) : word);
    return QCoreApplication::translate("LCM_OriginText", text.c_str());
}

QString Words::partition(const tagCDB_LC_ACT& action)
{
    return captionOf(LCM_PARTITIONS, lcm_partition_id(action.partition));
}

QString Words::superposition(const tagCDB_LC_ACT& action)
{
    return captionOf(LCM_SUPERPOSITIONS, lcm_superposition_id(action.partition));
}

QString plain(const QString& text)
{
    QString clean = text;
    std::replace_if(clean.begin(), clean.end(), isHarmful, REPLACED);
    return clean;
}

} // namespace mrl::report
