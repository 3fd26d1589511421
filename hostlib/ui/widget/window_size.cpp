#include "hostlib/ui/widget/window_size.h"

#include <QScreen>
#include <QWidget>

namespace mrl::ui {

namespace {

// The window manager adds the frame only after the window was shown; no common one is larger than this.
constexpr QSize FRAME(16, 44);

} // namespace

QSize fittingSize(const QSize& wish, const QWidget& window)
{
    const QScreen* screen = window.screen();
    return screen ? wish.boundedTo(screen->availableSize() - FRAME) : wish;
}

} // namespace mrl::ui
