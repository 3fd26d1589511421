#pragma once

#include <QSize>

#include "host/mrl_export.h"

class QWidget;

namespace mrl::ui {

/// The size for a new window: the wanted one, cut to what its screen has room for together with the frame.
MRL_HOST_API QSize fittingSize(const QSize& wish, const QWidget& window);

/// Shrinks and moves a window whose place was restored, perhaps from a larger screen, until the screen that
/// it is on shows all of it.
MRL_HOST_API void keepOnScreen(QWidget& window);

} // namespace mrl::ui
