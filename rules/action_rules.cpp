#include "rules/action_rules.h"

#include "rules/action_columns.h"

namespace {

constexpr LCM_DesignCodeIdentity DANISH_ANNEX{0, 2, 45, 2004};
constexpr float DANISH_LOWEST_PSI1S = 0.9f;

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
        checkPsi0();
        checkPsi1();
        checkPsi2();
        checkPsi1s();
        return std::move(m_findings);
    }

  private:
    /// Enters a finding when the value doesn't lie between the bounds. @return whether it does
    bool require(LCM_Rule rule, int column, float value, float lowest, float highest)
    {
        const bool good = liesBetween(value, lowest, highest);
        if (!good) {
            m_findings.push_back({rule, LCM_Subject::Action, 0, column, {lowest, highest}});
        }
        return good;
    }

    void checkSafetyFactors()
    {
        if (m_limits.gamu == 0.0f) {
            return;
        }
        if (!(m_record.gamu > 0.0f || m_record.gamu == LC_UNDEFINED)) {
            m_findings.push_back({LCM_Rule::GamuNotAbove0, LCM_Subject::Action, 0, ACT_COL_GAMU, {}});
        }
        if (m_limits.gamf != 0.0f) {
            require(LCM_Rule::GamfNotBetween0AndGamu, ACT_COL_GAMF, m_record.gamf, 0.0f, m_record.gamu);
        }
    }

    void checkPsi0()
    {
        if (m_limits.psi0 != 0.0f) {
            require(LCM_Rule::Psi0NotBetween0AndLimit, ACT_COL_PSI0, m_record.psi0, 0.0f, m_limits.psi0);
        }
    }

    // The order of the Psi among each other comes first: its finding says more than that of the limit.
    void checkPsi1()
    {
        if (m_limits.psi1 != 0.0f && require(LCM_Rule::Psi1NotBetweenPsi2AndLimit, ACT_COL_PSI1,
                                             m_record.psi1, m_psi2, m_limits.psi1)) {
            require(LCM_Rule::Psi1NotBetween0AndLimit, ACT_COL_PSI1, m_record.psi1, 0.0f, m_limits.psi1);
        }
    }

    void checkPsi2()
    {
        if (m_limits.psi2 != 0.0f &&
            require(LCM_Rule::Psi2NotBetween0AndPsi1, ACT_COL_PSI2, m_record.psi2, 0.0f, m_psi1)) {
            require(LCM_Rule::Psi2NotBetween0AndLimit, ACT_COL_PSI2, m_record.psi2, 0.0f, m_limits.psi2);
        }
    }

    void checkPsi1s()
    {
        // The Danish annex of 2004 is the one design code whose identity, and not its data, steers a rule: it
        // fixes the lower limit. Elsewhere `Psi1s` may not fall below `Psi1`.
        const bool danish = m_identity == DANISH_ANNEX;
        const LCM_Rule order =
            danish ? LCM_Rule::Psi1sNotBetweenNationalBoundAndLimit : LCM_Rule::Psi1sNotBetweenPsi1AndLimit;
        if (m_limits.psi1s != 0.0f && require(order, ACT_COL_PSI1S, m_record.psi1s,
                                              danish ? DANISH_LOWEST_PSI1S : m_psi1, m_limits.psi1s)) {
            require(LCM_Rule::Psi1sNotBetween0AndLimit, ACT_COL_PSI1S, m_record.psi1s, 0.0f, m_limits.psi1s);
        }
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
