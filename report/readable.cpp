#include "report/readable.h"

#include <QCoreApplication>
#include <QLocale>
#include <QStringList>

#include <cmath>

#include "combine/decimal.h"

namespace mrl::report {

namespace {

class Readable
{
    Q_DECLARE_TR_FUNCTIONS(Readable)
};

QString signOf(LCM_SituationFactor factor)
{
    switch (factor) {
    case LCM_SituationFactor::Gamu:
        return QStringLiteral("γ");
    case LCM_SituationFactor::Gamf:
        return QStringLiteral("γ_inf");
    case LCM_SituationFactor::Gama:
        return QStringLiteral("γ_A");
    case LCM_SituationFactor::Psi0:
        return QStringLiteral("ψ₀");
    case LCM_SituationFactor::Psi1:
        return QStringLiteral("ψ₁");
    case LCM_SituationFactor::Psi2:
        return QStringLiteral("ψ₂");
    case LCM_SituationFactor::Psi1s:
        return QStringLiteral("ψ₁'");
    }
    return {};
}

QString signOf(const std::string& constant)
{
    return constant == "KFI"   ? QStringLiteral("K_FI")
           : constant == "XSI" ? QStringLiteral("ξ")
                               : QString::fromStdString(constant);
}

QString product(const LCM_Term& term)
{
    QStringList signs;
    if (term.number != 1.0 || (term.constants.empty() && term.factors.empty())) {
        signs << QString::fromStdString(combine::decimalText(term.number));
    }
    for (const std::string& constant : term.constants) {
        signs << signOf(constant);
    }
    for (const LCM_SituationFactor factor : term.factors) {
        signs << signOf(factor);
    }
    return signs.join(QStringLiteral("·"));
}

QString pairText(const LCM_RoleEntry& entry)
{
    const QString worse = product(*entry.unfavourable);
    const bool isPair = entry.favourable && *entry.favourable != *entry.unfavourable;
    return isPair ? QStringLiteral("{%1 | %2}").arg(worse, product(*entry.favourable)) : worse;
}

/// The entry for all actions; null where the role doesn't act.
const LCM_RoleEntry* plainEntry(const LCM_Expression& expression, LCM_Role role)
{
    for (const LCM_RoleEntry& entry : expression.entries) {
        if (entry.role == role && entry.action.empty() && entry.when.empty() && entry.unfavourable) {
            return &entry;
        }
    }
    return nullptr;
}

struct RoleSign
{
    LCM_Role role;
    const char* pattern; ///< with the factors as %1
};

QString sumFormula(const std::vector<LCM_Bracket>& sum)
{
    QStringList brackets;
    for (const LCM_Bracket& bracket : sum) {
        QStringList alternatives;
        for (const LCM_SumTerm& term : bracket) {
            alternatives << product(term.term) + QStringLiteral("·") + QString::fromStdString(term.action);
        }
        const QString text = alternatives.join(QLatin1Char(' ') + Readable::tr("or") + QLatin1Char(' '));
        brackets << (alternatives.size() > 1 ? QLatin1Char('(') + text + QLatin1Char(')') : text);
    }
    return brackets.join(QStringLiteral(" + "));
}

/// An entry for one action, or with a condition: "Q_T: K_FI·1.15", "S when W leads: 0".
QString specialText(const LCM_RoleEntry& entry)
{
    QString text = roleName(entry.role);
    text += entry.action.empty() ? QString() : QLatin1Char(' ') + QString::fromStdString(entry.action);
    if (!entry.when.empty()) {
        text += QLatin1Char(' ') +
                (entry.role == LCM_Role::Lead ? Readable::tr("when %1 acts") : Readable::tr("when %1 leads"))
                    .arg(QString::fromStdString(entry.when));
    }
    return text + QStringLiteral(": ") + (entry.unfavourable ? pairText(entry) : Readable::tr("none"));
}

void addLimits(const LCM_Situation& situation, QStringList& lines)
{
    if (situation.groups == LCM_Groups::Exclude) {
        lines << Readable::tr("load groups exclude each other");
    }
    if (situation.atMost > 0) {
        lines << Readable::tr("at most %1 variable actions").arg(situation.atMost);
    }
    if (situation.always) {
        lines << Readable::tr("variable actions always act");
    }
    if (situation.firstComponent > 0) {
        lines << Readable::tr("components of the earthquake: %1, %2")
                     .arg(situation.firstComponent)
                     .arg(situation.otherComponents);
    }
    if (situation.mayBeNone) {
        lines << Readable::tr("also without an accidental or seismic action");
    }
}

} // namespace

QString readableCount(const combine::BigInt& count)
{
    const QLocale locale;
    constexpr double MILLION = 1e6;
    constexpr double BILLION = 1e9;
    constexpr double MOST_IN_WORDS = 1e12;
    if (count < 1000000) {
        return locale.toString(count.convert_to<qlonglong>());
    }
    if (count < static_cast<long long>(MOST_IN_WORDS)) {
        const auto number = count.convert_to<double>();
        return number < BILLION ? Readable::tr("%1 million").arg(locale.toString(number / MILLION, 'f', 1))
                                : Readable::tr("%1 billion").arg(locale.toString(number / BILLION, 'f', 1));
    }
    const std::string digits = count.str();
    // Not with the C library, which reads the decimal sign of the locale.
    const double head = QString::fromStdString(digits.substr(0, 1) + "." + digits.substr(1, 3)).toDouble();
    return QStringLiteral("%1·10^%2").arg(locale.toString(head, 'f', 1)).arg(digits.size() - 1);
}

QString expressionFormula(const LCM_Expression& expression)
{
    constexpr RoleSign AHEAD[] = {{LCM_Role::Permanent, "Σ %1·G"},    {LCM_Role::Prestress, "%1·P"},
                                  {LCM_Role::Imperfection, "%1·IMP"}, {LCM_Role::Accidental, "%1·A"},
                                  {LCM_Role::Seismic, "%1·A_E"},      {LCM_Role::Lead, "%1·Q₁"},
                                  {LCM_Role::Others, "Σ %1·Qᵢ"}};
    QStringList terms;
    for (const RoleSign& sign : AHEAD) {
        if (const LCM_RoleEntry* entry = plainEntry(expression, sign.role)) {
            terms << QString::fromUtf8(sign.pattern).arg(pairText(*entry));
        }
    }
    if (expression.sum && !expression.sum->empty()) {
        terms << sumFormula(*expression.sum);
    }
    return terms.join(QStringLiteral(" + "));
}

QString situationFormula(const LCM_Situation& situation)
{
    QStringList lines;
    for (const LCM_Expression& expression : situation.expressions) {
        const QString name = QString::fromStdString(expression.name);
        lines << (name.isEmpty() ? QString() : name + QStringLiteral(": ")) + expressionFormula(expression);
    }
    return lines.join(QLatin1Char('\n'));
}

QString situationRemarks(const LCM_Situation& situation)
{
    QStringList lines;
    for (const LCM_Expression& expression : situation.expressions) {
        const QString name =
            expression.name.empty() ? QString() : QString::fromStdString(expression.name) + QLatin1Char(' ');
        for (const LCM_RoleEntry& entry : expression.entries) {
            if (!entry.action.empty() || !entry.when.empty()) {
                lines << name + specialText(entry);
            }
        }
        if (!expression.shortActions.empty()) {
            QStringList actions;
            for (const std::string& action : expression.shortActions) {
                actions << QString::fromStdString(action);
            }
            lines << name + Readable::tr("of %1 the first beside the leading one accompanies in full")
                                .arg(actions.join(QStringLiteral(", ")));
        }
    }
    addLimits(situation, lines);
    return lines.join(QLatin1Char('\n'));
}

QString situationTitle(const LCM_Situation& situation)
{
    const std::string language = QLocale().name().left(2).toStdString();
    for (const auto& [code, title] : situation.titles) {
        if (code == language) {
            return QString::fromStdString(title);
        }
    }
    return QString::fromStdString(situation.title.empty() ? situation.name : situation.title);
}

QString roleName(LCM_Role role)
{
    switch (role) {
    case LCM_Role::Permanent:
        return Readable::tr("permanent");
    case LCM_Role::Prestress:
        return Readable::tr("prestress");
    case LCM_Role::Lead:
        return Readable::tr("leading");
    case LCM_Role::Others:
        return Readable::tr("accompanying");
    case LCM_Role::Second:
        return Readable::tr("accompanying, further");
    case LCM_Role::Accidental:
        return Readable::tr("accidental");
    case LCM_Role::Seismic:
        return Readable::tr("seismic");
    case LCM_Role::Imperfection:
        return Readable::tr("imperfection");
    }
    return {};
}

} // namespace mrl::report
