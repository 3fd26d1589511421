#pragma once

/// Figures: what a piece of ours costs, beside a raw baseline that does the same work with nothing around it,
/// measured in turn in one run. README.md in this folder says how to add one.

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace bench {

/// One side of a figure: makes the measured step once and gives its cost (nanoseconds, bytes).
using Side = std::function<double()>;

struct Sides
{
    Side ours;
    Side raw;
    bool timed = true; ///< short steps are measured more often
};

/// Registers a figure; main() measures it. @param target the greatest ratio of ours to raw that is wanted
void add(const std::string& name, double target, std::vector<int> sizes, std::function<Sides(int)> make);

inline const std::vector<int> usualSizes{1000, 10000, 100000};

/// Nanoseconds that a step takes, of processor time (user and system), or with MRL_BENCH_WALL of the wall
/// clock.
double nanoseconds(const std::function<void()>& step);

/// Bytes that the process has allocated and not given back since the step began, as malloc counts them.
double bytesKept(const std::function<void()>& step);

/// Keeps the compiler from leaving out what nobody looks at.
template <class T>
void keep(const T& value)
{
    asm volatile("" : : "r,m"(value) : "memory");
}

namespace detail {

template <class T, class = void>
struct HasPrepareOurs : std::false_type
{
};
template <class T>
struct HasPrepareOurs<T, std::void_t<decltype(std::declval<T&>().prepareOurs())>> : std::true_type
{
};
template <class T, class = void>
struct HasPrepareRaw : std::false_type
{
};
template <class T>
struct HasPrepareRaw<T, std::void_t<decltype(std::declval<T&>().prepareRaw())>> : std::true_type
{
};

} // namespace detail

/// A figure of time. T has a constructor T(int n), void ours(), void raw(), and where a step needs it
/// void prepareOurs(), void prepareRaw(), which are not timed. One object serves all repetitions of an n.
template <class T>
class Timed
{
  public:
    Timed(const std::string& name, double target, std::vector<int> sizes = usualSizes)
    {
        add(name, target, std::move(sizes), [](int n) {
            auto work = std::make_shared<T>(n);
            return Sides{[work] {
                             if constexpr (detail::HasPrepareOurs<T>::value) {
                                 work->prepareOurs();
                             }
                             return nanoseconds([&] { work->ours(); });
                         },
                         [work] {
                             if constexpr (detail::HasPrepareRaw<T>::value) {
                                 work->prepareRaw();
                             }
                             return nanoseconds([&] { work->raw(); });
                         },
                         true};
        });
    }
};

/// A figure of anything else, memory for one: double ours() and double raw() of T give the cost themselves.
template <class T>
class Measured
{
  public:
    Measured(const std::string& name, double target, std::vector<int> sizes = usualSizes)
    {
        add(name, target, std::move(sizes), [](int n) {
            auto work = std::make_shared<T>(n);
            return Sides{[work] { return work->ours(); }, [work] { return work->raw(); }, false};
        });
    }
};

/// Measures the registered figures; the program's main calls it.
int run(int argc, char** argv);

} // namespace bench
