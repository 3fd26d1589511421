#pragma once

#include <QString>

namespace mrl::workbench {

/// Why the design code of a project can't be loaded, in the language of the windows as far as it isn't the
/// file that is wrong; empty when it can.
QString designCodeFailure(int db);

} // namespace mrl::workbench
