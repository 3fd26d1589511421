#pragma once

#include <chrono>
#include <cstdint>

namespace mrl::cli {

/// How far a long run is, in one line on standard error where that is a terminal.
class Progress
{
  public:
    Progress();
    /// Takes the line away.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// @param fraction 0 to 1
    void show(std::uint64_t responses, double fraction);

  private:
    bool m_isTerminal;
    bool m_isShown = false;
    std::chrono::steady_clock::time_point m_last;
};

} // namespace mrl::cli
