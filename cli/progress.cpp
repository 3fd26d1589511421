#include "cli/progress.h"

#include <unistd.h>

#include <cstdio>

namespace mrl::cli {

namespace {

constexpr std::chrono::milliseconds PAUSE{200};

} // namespace

Progress::Progress() : m_isTerminal(isatty(STDERR_FILENO) == 1), m_last(std::chrono::steady_clock::now()) {}

Progress::~Progress()
{
    if (m_isShown) {
        std::fputs("\r\x1b[K", stderr);
    }
}

void Progress::show(std::uint64_t responses, double fraction)
{
    const auto now = std::chrono::steady_clock::now();
    if (!m_isTerminal || now - m_last < PAUSE) {
        return;
    }
    m_last = now;
    m_isShown = true;
    std::fprintf(stderr, "\r%llu responses, %.0f %%\x1b[K", static_cast<unsigned long long>(responses),
                 fraction * 100);
}

} // namespace mrl::cli
