#include "hostlib/ui/widget/window_size.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace mrl::ui {

namespace {

// The window manager adds the frame only after the window was shown; no common one is larger than this.
constexpr QSize FRAME(16, 44);

/// @return null without any screen
const QScreen* screenOf(const QWidget& window)
{
    const QScreen* at = QGuiApplication::screenAt(window.frameGeometry().center());
    return at ? at : window.screen();
}

} // namespace

QSize fittingSize(const QSize& wish, const QWidget& window)
{
    const QScreen* screen = window.screen();
    return screen ? wish.boundedTo(screen->availableSize() - FRAME) : wish;
}

void keepOnScreen(QWidget& window)
{
    const QScreen* screen = screenOf(window);
    if (!screen || window.isMaximized() || window.isFullScreen()) {
        return;
    }
    const QRect room = screen->availableGeometry();
    const QSize size = window.size().boundedTo(room.size() - FRAME);
    const QPoint furthest = room.topLeft() + QPoint(room.width(), room.height()) -
                            QPoint(size.width() + FRAME.width(), size.height() + FRAME.height());
    const QPoint place(std::clamp(window.x(), room.left(), furthest.x()),
                       std::clamp(window.y(), room.top(), furthest.y()));
    if (size != window.size()) {
        window.resize(size);
    }
    if (place != window.pos()) {
        window.move(place);
    }
}

} // namespace mrl::ui
