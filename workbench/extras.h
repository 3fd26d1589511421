#pragma once

namespace mrl::workbench {

/// Whether the user wants more than the plain managers: what they offer beyond it, and the same of the workbench.
bool wantsExtras();
void storeExtras(bool wanted);

} // namespace mrl::workbench
