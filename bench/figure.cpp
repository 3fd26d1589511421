#include "bench/figure.h"

#include <algorithm>
#include <chrono>

#include <benchmark/benchmark.h>
#include <malloc.h>

namespace bench {

namespace {

constexpr int turns = 7;
constexpr double shortest = 3e6; // ns; a shorter step is repeated
constexpr int mostRepeats = 2000;

struct Entry
{
    std::string name;
    double target;
    std::vector<int> sizes;
    std::function<Sides(int)> make;
};

std::vector<Entry>& entries()
{
    static std::vector<Entry> all;
    return all;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double repeated(const Side& side, int times)
{
    double sum = 0;
    for (int i = 0; i < times; ++i)
        sum += side();
    return sum / times;
}

void measure(benchmark::State& state, const Entry& entry, int n)
{
    const Sides sides = entry.make(n);
    std::vector<double> ours;
    std::vector<double> raw;
    for (auto _ : state) {
        // The first turn warms both up and tells how often a step has to be repeated.
        sides.ours();
        const double once = sides.raw();
        const int repeats =
            sides.repeat ? std::clamp(static_cast<int>(shortest / std::max(once, 1.0)), 1, mostRepeats) : 1;
        for (int turn = 0; turn < turns; ++turn) {
            ours.push_back(repeated(sides.ours, repeats));
            raw.push_back(repeated(sides.raw, repeats));
        }
    }
    state.counters["n"] = n;
    state.counters["ours"] = median(ours);
    state.counters["raw"] = median(raw);
    state.counters["target"] = entry.target;
}

} // namespace

void add(const std::string& name, double target, std::vector<int> sizes, std::function<Sides(int)> make)
{
    entries().push_back({name, target, std::move(sizes), std::move(make)});
}

double nanoseconds(const std::function<void()>& step)
{
    const auto start = std::chrono::steady_clock::now();
    step();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
}

double bytesKept(const std::function<void()>& step)
{
    const auto held = [] {
        const auto info = mallinfo2();
        return static_cast<double>(info.uordblks + info.hblkhd);
    };
    const double before = held();
    step();
    return held() - before;
}

int run(int argc, char** argv)
{
    for (const auto& entry : entries())
        for (const int n : entry.sizes) {
            const auto name = entry.name + "/" + std::to_string(n);
            benchmark::RegisterBenchmark(name.c_str(),
                                         [&entry, n](benchmark::State& state) { measure(state, entry, n); })
                ->Iterations(1)
                ->Unit(benchmark::kMillisecond);
        }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace bench
