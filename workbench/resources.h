#pragma once

namespace mrl::workbench {

/// Makes the pictures of this library known; a static library's own registration would be left out by the
/// linker.
void initResources();

} // namespace mrl::workbench
