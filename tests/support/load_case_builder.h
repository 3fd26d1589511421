#pragma once

/// Builders of load-case records: `loadCase("Q_1").title("Wind").deadWeight(0, 0, -1)`.

#include <QString>

#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/records.h"

namespace mrl::test {

class LoadCaseBuilder
{
  public:
    LoadCaseBuilder& kind(int value) { return m_record.kind = value, *this; }
    LoadCaseBuilder& action(int word) { return m_record.action = word, *this; }
    LoadCaseBuilder& action(const QString& name) { return action(lcm_pack_word(name)); }
    LoadCaseBuilder& factor(float value) { return m_record.factor = value, *this; }
    /// The five stored factors, those of which two share one among them: the same value for all.
    LoadCaseBuilder& factors(float value)
    {
        m_record.gamu = m_record.gamf = m_record.psi0 = m_record.psi1 = m_record.psi2 = value;
        return *this;
    }
    LoadCaseBuilder& deadWeight(float x, float y, float z)
    {
        m_record.dlx = x;
        m_record.dly = y;
        m_record.dlz = z;
        return *this;
    }
    LoadCaseBuilder& title(const QString& text)
    {
        return lcm_title_pack(text, m_record.title, LC_TITLE_WORDS), *this;
    }

    const tagCDB_LC_CTRL& record() const { return m_record; }
    operator const tagCDB_LC_CTRL&() const { return m_record; }

  private:
    tagCDB_LC_CTRL m_record{};
};

/// A record of zeros: without an action, and with a factor of 0.
inline LoadCaseBuilder bareLoadCase() { return {}; }
/// The same of an action.
inline LoadCaseBuilder bareLoadCase(const QString& actionName) { return bareLoadCase().action(actionName); }

/// A load case with a factor of 1 and without an action; its own factors are 0.
inline LoadCaseBuilder standalone() { return bareLoadCase().factor(1.0f); }
/// A load case with a factor of 1 that follows its action in all factors.
inline LoadCaseBuilder following(const QString& actionName)
{
    return standalone().action(actionName).factors(LC_UNDEFINED);
}
inline LoadCaseBuilder following(int actionWord) { return following(QString()).action(actionWord); }

} // namespace mrl::test
