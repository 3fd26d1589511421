#pragma once

/// Builders of action records and limits: `soundAction("Q_1").gamu(1.5f).psi0(0.7f).title("Offices")`.

#include <QString>

#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/records.h"

namespace mrl::test {

/// The code of a name that is written as it is stored, such as "Q_1".
inline int codeOf(const QString& name) { return lcm_pack_word(name); }

class ActionBuilder
{
  public:
    /// @param name first part and suffix, such as "Q_1"
    explicit ActionBuilder(const QString& name)
    {
        m_record.kind = 1;
        const int underscore = name.indexOf(QLatin1Char('_'));
        lcm_pack_field(name.left(underscore).toUtf8().constData(), m_record.name);
        if (underscore >= 0) {
            m_record.suffix = lcm_pack_word(name.mid(underscore + 1));
        }
    }

    ActionBuilder& partition(int word) { return m_record.partition = word, *this; }
    ActionBuilder& gamu(float value) { return m_record.gamu = value, *this; }
    ActionBuilder& gamf(float value) { return m_record.gamf = value, *this; }
    ActionBuilder& gama(float value) { return m_record.gama = value, *this; }
    ActionBuilder& psi0(float value) { return m_record.psi0 = value, *this; }
    ActionBuilder& psi1(float value) { return m_record.psi1 = value, *this; }
    ActionBuilder& psi2(float value) { return m_record.psi2 = value, *this; }
    ActionBuilder& psi1s(float value) { return m_record.psi1s = value, *this; }
    /// The same value for all factors.
    ActionBuilder& factors(float value)
    {
        return gamu(value).gamf(value).gama(value).psi0(value).psi1(value).psi2(value).psi1s(value);
    }
    ActionBuilder& title(const QString& text)
    {
        return lcm_title_pack(text, m_record.title, LC_TITLE_WORDS), *this;
    }

    const tagCDB_LC_ACT& record() const { return m_record; }
    operator const tagCDB_LC_ACT&() const { return m_record; }

  private:
    tagCDB_LC_ACT m_record{};
};

/// An action with nothing but its name: no category, all factors 0.
inline ActionBuilder bareAction(const QString& name) { return ActionBuilder(name); }

/// A variable action whose factors break no rule under limits of 1: Gamu 1.35, Gamf 1, Gama 1 and all Psi 0.5.
inline ActionBuilder soundAction(const QString& name = QStringLiteral("Q"))
{
    return bareAction(name).partition(0x32).factors(0.5f).gamu(1.35f).gamf(1.0f).gama(1.0f);
}

/// Limits of a design code that knows no factor: all 0.
inline ActionBuilder noLimits() { return bareAction(QString()); }

/// Limits of a design code that knows every factor, with 1 for all Psi.
inline ActionBuilder limitsOfOne() { return noLimits().factors(1.0f); }

} // namespace mrl::test
