#pragma once

class QWidget;

namespace mrl::workbench {

/// What the user wants of a design code whose file says something else than the copy in the project.
enum class KeptAnswer { KeepCopy, TakeOver };

/// Tells what opening a project has to tell of its design code, with all differences, and asks where there is a choice.
/// Says nothing where copy and file agree.
KeptAnswer askAboutKeptCode(int db, QWidget* parent);

} // namespace mrl::workbench
