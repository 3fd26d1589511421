#pragma once

namespace mrl::workbench {

/// Whether the user wants more than the plain managers: what they offer beyond it, and the same of the workbench.
bool wantsExtras();
void storeExtras(bool wanted);
/// Turns them on for a user who has not decided yet.
void turnExtrasOnAtFirst();
/// Whether each task is to open its own tab alone.
bool wantsOneTab();
void storeOneTab(bool wanted);

} // namespace mrl::workbench
