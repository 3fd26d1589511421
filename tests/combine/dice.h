#pragma once

#include <random>
#include <vector>

namespace random_model {

class Dice
{
  public:
    explicit Dice(std::mt19937& random) : m_random(random) {}

    int below(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_random); }
    bool oneIn(int n) { return below(n) == 0; }
    template <class T>
    T of(const std::vector<T>& list)
    {
        return list[static_cast<std::size_t>(below(static_cast<int>(list.size())))];
    }

  private:
    std::mt19937& m_random;
};

} // namespace random_model
