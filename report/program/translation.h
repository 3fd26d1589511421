#pragma once

#include <QString>

namespace mrl::report {

/// Makes the program speak a language from now on. @param language "en" or "de"
/// @return what is missing for it; empty when it speaks
QString speak(const QString& language);

} // namespace mrl::report
