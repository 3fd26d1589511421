#pragma once

#include "workbench/recovery/snapshot.h"

class QWidget;

namespace mrl::workbench {

/// Whether the project of a snapshot is there, and as it was when the snapshot was taken.
enum class Fit { Fits, NoProject, Older };
Fit fitOf(const Snapshot& snapshot);

/// Asks whether what an abandoned snapshot holds should be recovered; one that fits no project, is older than its
/// file or can't be read is told and left alone under another name. A snapshot that isn't wanted is removed.
/// @return the snapshot when it is to be recovered
std::optional<Snapshot> askForRecovery(QWidget* parent, const QString& file);

} // namespace mrl::workbench
