#pragma once

/// Builders of action records and limits: `action("Q_1").gamu(1.5f).psi(0.7f, 0.5f, 0.3f)`.

#include <QString>

#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/records.h"

namespace mrl::test {

class ActionBuilder
{
  public:
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
    ActionBuilder& title(const QString& text)
    {
        return lcm_title_pack(text, m_record.title, LC_TITLE_WORDS), *this;
    }

    const tagCDB_LC_ACT& record() const { return m_record; }
    operator const tagCDB_LC_ACT&() const { return m_record; }

  private:
    tagCDB_LC_ACT m_record{};
};

/// An action whose factors break no rule under limits of 1: Gamu 1.35, Gamf 1, Gama 1 and all Psi 0.5.
inline ActionBuilder action(const QString& name = QStringLiteral("Q"))
{
    return ActionBuilder(name)
        .partition(0x32)
        .gamu(1.35f)
        .gamf(1.0f)
        .gama(1.0f)
        .psi0(0.5f)
        .psi1(0.5f)
        .psi2(0.5f)
        .psi1s(0.5f);
}

/// Limits of a design code that knows every factor, with 1 for all Psi.
inline ActionBuilder limits()
{
    return ActionBuilder(QString()).gamu(1.0f).gamf(1.0f).gama(1.0f).psi0(1.0f).psi1(1.0f).psi2(1.0f).psi1s(
        1.0f);
}

} // namespace mrl::test
