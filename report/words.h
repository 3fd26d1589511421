#pragma once

/// The words and numbers of a report. Its language is that of the program, numbers and dates are written in it.

#include <QCoreApplication>
#include <QDate>
#include <QLocale>
#include <QString>

#include <string>
#include <string_view>

#include "combine/pattern.h"
#include "hostlib/data/designcode/annotation.h"
#include "lcdata/values/records.h"

namespace mrl::report {

/// All texts of the report are translated in this one context.
class Text
{
    Q_DECLARE_TR_FUNCTIONS(Report)
};

class Words
{
  public:
    /// @param language "en" or "de"
    explicit Words(const QString& language);

    const QString& language() const { return m_language; }
    /// A factor or a component: two decimals where they tell all, else as many as it takes; a dash for the undefined value.
    QString number(float value) const;
    /// A component that is mostly 0, which a dash stands for.
    QString sparse(float value) const { return value == 0.0f ? QString(EN_DASH) : number(value); }
    QString count(std::size_t number) const;
    /// All digits of a number of combinations as long as anybody reads them, else a power of ten.
    QString count(const combine::BigInt& number) const;
    QString date(const QDate& day) const;
    /// "verified", "unverified" ...
    static QString state(std::string_view word);
    static QString state(designcode::State state) { return Words::state(designcode::wordOf(state)); }
    /// The category or load group of an action, and how its load cases act together.
    static QString partition(const tagCDB_LC_ACT& action);
    static QString superposition(const tagCDB_LC_ACT& action);

  private:
    static constexpr QChar EN_DASH{0x2013};

    QString m_language;
    QLocale m_locale;
};

/// A text of a file as a document can hold it: without control characters and marks that turn the direction of writing.
QString plain(const QString& text);
inline QString plain(const std::string& text) { return plain(QString::fromStdString(text)); }

} // namespace mrl::report
