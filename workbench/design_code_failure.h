#pragma once

#include <QString>

namespace mrl::workbench {

/// Why the design code of a project can't be loaded; translated, except for errors inside the file, which are
/// in English. Empty when it can.
QString designCodeFailure(int db);

} // namespace mrl::workbench
