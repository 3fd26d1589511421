#pragma once

#include "host/mrl_export.h"

class QLineEdit;
class QString;

namespace mrl::ui {

/// Shows a hint in an empty field, in a colour that can be read: the style's own has too little contrast in light palettes
/// and may be black in dark ones.
MRL_HOST_API void showHint(QLineEdit& field, const QString& hint);

} // namespace mrl::ui
