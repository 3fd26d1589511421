#pragma once

#include <QString>

namespace mrl::workbench {

/// The user's folder for what outlives a run but is no setting: XDG_STATE_HOME, or ~/.local/state without it, and in
/// it a folder of this program. It may not exist yet.
QString stateFolder();

} // namespace mrl::workbench
