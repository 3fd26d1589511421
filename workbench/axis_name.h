#pragma once

#include <QString>

#include "lcdata/values/keywords.h"
#include "lcdata/values/system_words.h"

namespace mrl::workbench {

/// A direction of gravity as the windows show it, with a true minus sign.
inline QString axisName(int axis)
{
    QString name = QString::fromStdString(lcm_word_of_id(LCM_GRAVITY_AXES, axis));
    return name.replace(QLatin1Char('-'), QChar(0x2212));
}

} // namespace mrl::workbench
