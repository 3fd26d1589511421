#pragma once

#include <QString>

namespace mrl::table {

/// A tool tip that is shown as it stands. Names and texts from files may look like markup, which a tool tip
/// would interpret, up to loading pictures.
QString plainToolTip(const QString& text);

} // namespace mrl::table
