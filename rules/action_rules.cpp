#include "rules/action_rules.h"

#include <QCoreApplication>

#include "rules/action_columns.h"

namespace {

/// Digits of a bound in a message; QString::arg has six by its own default.
constexpr int BOUND_DIGITS = 3;
constexpr int DEFAULT_DIGITS = -1;

// The patterns are translated once in a process: the language of a running program doesn't change.
const QString& biggerPattern()
{
    static const QString pattern =
        QCoreApplication::translate("LCM_ActionsWidget", "%1 has to be bigger than 0.0!");
    return pattern;
}

const QString& betweenPattern()
{
    static const QString pattern =
        QCoreApplication::translate("LCM_ActionsWidget", "%1 has to be between %2 and %3!");
    return pattern;
}

QString bound(float value, int digits = BOUND_DIGITS)
{
    return QStringLiteral("%1").arg(static_cast<double>(value), 0, 'g', digits);
}

QString zero() { return QStringLiteral("0.0"); }

/// Written so that a factor that is no number lies nowhere.
bool liesBetween(float value, float lowest, float highest) { return value >= lowest && value <= highest; }

class ActionCheck
{
  public:
    ActionCheck(const tagCDB_LC_ACT& record, const tagCDB_LC_ACT& limits,
                const LCM_DesignCodeIdentity& identity)
        : m_record(record), m_limits(limits), m_identity(identity),
          m_psi1(limits.psi1 != 0.0f ? record.psi1 : 1.0f), m_psi2(limits.psi2 != 0.0f ? record.psi2 : 1.0f)
    {
    }

    LCM_Findings run()
    {
        checkSafetyFactors();
        checkPsiLimit(ACT_COL_PSI0, "Psi0", m_record.psi0, m_limits.psi0);
        checkPsiLimit(ACT_COL_PSI1, "Psi1", m_record.psi1, m_limits.psi1);
        checkPsiLimit(ACT_COL_PSI2, "Psi2", m_record.psi2, m_limits.psi2);
        checkPsiLimit(ACT_COL_PSI1S, "Psi1'", m_record.psi1s, m_limits.psi1s);
        // The order of the Psi among each other comes last: its findings say more than those of the limits.
        checkPsiOrder();
        return m_findings;
    }

  private:
    void add(int column, const char* name, const QString& lowest, const QString& highest)
    {
        // One call for all three, so that no argument is taken for a place of the pattern.
        m_findings[column] = betweenPattern().arg(QString::fromLatin1(name), lowest, highest);
    }

    void checkSafetyFactors()
    {
        if (m_limits.gamu == 0.0f) {
            return;
        }
        if (!(m_record.gamu > 0.0f || m_record.gamu == LC_UNDEFINED)) {
            m_findings[ACT_COL_GAMU] = biggerPattern().arg(QStringLiteral("GAMU"));
        }
        if (m_limits.gamf != 0.0f && !liesBetween(m_record.gamf, 0.0f, m_record.gamu)) {
            add(ACT_COL_GAMF, "GAMF", zero(), bound(m_record.gamu));
        }
    }

    void checkPsiLimit(int column, const char* name, float value, float limit)
    {
        if (limit != 0.0f && !liesBetween(value, 0.0f, limit)) {
            add(column, name, zero(), bound(limit));
        }
    }

    void checkPsiOrder()
    {
        if (m_limits.psi1 != 0.0f && !liesBetween(m_record.psi1, m_psi2, m_limits.psi1)) {
            add(ACT_COL_PSI1, "Psi1", bound(m_psi2, DEFAULT_DIGITS), bound(m_limits.psi1));
        }
        if (m_limits.psi2 != 0.0f && !liesBetween(m_record.psi2, 0.0f, m_psi1)) {
            add(ACT_COL_PSI2, "Psi2", zero(), bound(m_psi1));
        }
        // The message names 1.0 as the upper bound whatever the limit is; people know it so.
        if (m_limits.psi1s != 0.0f && !liesBetween(m_record.psi1s, lowestPsi1s(), m_limits.psi1s)) {
            add(ACT_COL_PSI1S, "Psi1'", bound(lowestPsi1s()), QStringLiteral("1.0"));
        }
    }

    /// `Psi1s` may not fall below `Psi1`. The Danish annex of 2004 is the one design code whose identity, and
    /// not its data, steers a rule: it fixes the lower limit.
    float lowestPsi1s() const
    {
        const bool danishAnnex = m_identity.national == 0 && m_identity.code == 2 &&
                                 m_identity.country == 45 && m_identity.year == 2004;
        return danishAnnex ? 0.9f : m_psi1;
    }

    const tagCDB_LC_ACT& m_record;
    const tagCDB_LC_ACT& m_limits;
    const LCM_DesignCodeIdentity& m_identity;
    const float m_psi1; ///< `Psi1`, 1.0 where the design code doesn't know it
    const float m_psi2; ///< `Psi2`, 1.0 where the design code doesn't know it
    LCM_Findings m_findings;
};

} // namespace

LCM_Findings lcm_check_action(const tagCDB_LC_ACT& record, const tagCDB_LC_ACT& limits,
                              const LCM_DesignCodeIdentity& identity)
{
    return ActionCheck(record, limits, identity).run();
}
