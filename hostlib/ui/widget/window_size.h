#pragma once

#include <QSize>

#include "host/mrl_export.h"

class QWidget;

namespace mrl::ui {

/// The size for a new window: the one wished for, as far as its screen has room for it and for its frame.
MRL_HOST_API QSize fittingSize(const QSize& wish, const QWidget& window);

} // namespace mrl::ui
