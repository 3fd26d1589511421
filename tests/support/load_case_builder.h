#pragma once

/// Builder of load-case records: `loadcase("Q_1").title("Wind").deadWeight(0, 0, -1)`.

#include <QString>

#include "lcdata/values/action_code.h"
#include "lcdata/values/packed_text.h"
#include "lcdata/values/records.h"

namespace mrl::test {

class LoadcaseBuilder
{
  public:
    LoadcaseBuilder& kind(int value) { return m_record.kind = value, *this; }
    LoadcaseBuilder& action(int word) { return m_record.action = word, *this; }
    LoadcaseBuilder& action(const QString& name) { return action(lcm_normalise_code(name)); }
    LoadcaseBuilder& factor(float value) { return m_record.factor = value, *this; }
    LoadcaseBuilder& deadWeight(float x, float y, float z)
    {
        m_record.dlx = x;
        m_record.dly = y;
        m_record.dlz = z;
        return *this;
    }
    LoadcaseBuilder& title(const QString& text)
    {
        return lcm_title_pack(text, m_record.title, LC_TITLE_WORDS), *this;
    }

    const tagCDB_LC_CTRL& record() const { return m_record; }
    operator const tagCDB_LC_CTRL&() const { return m_record; }

  private:
    tagCDB_LC_CTRL m_record{};
};

/// A load case without an action.
inline LoadcaseBuilder loadcase() { return {}; }
/// A load case of an action.
inline LoadcaseBuilder loadcase(const QString& actionName) { return LoadcaseBuilder().action(actionName); }

} // namespace mrl::test
