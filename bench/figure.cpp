#include "bench/figure.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>

#include <benchmark/benchmark.h>
#include <malloc.h>

namespace bench {

namespace {

constexpr int fewestTurns = 7;
constexpr int mostTurns = 201;
constexpr double wanted = 60e6; // ns for one side in all; short steps are measured more often

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

void measure(benchmark::State& state, const Entry& entry, int n)
{
    const Sides sides = entry.make(n);
    std::vector<double> ours;
    std::vector<double> raw;
    for (auto _ : state) {
        // The first turn warms both up and tells how many turns there is time for. A median over many short
        // turns does not see the few in which another process took the processor away.
        sides.ours();
        const double once = sides.raw();
        const int turns =
            sides.timed ? std::clamp(static_cast<int>(wanted / std::max(once, 1.0)), fewestTurns, mostTurns)
                        : fewestTurns;
        for (int turn = 0; turn < turns; ++turn) {
            ours.push_back(sides.ours());
            raw.push_back(sides.raw());
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
    // Processor time by default: what other processes take away in between is not ours, and would fall on the
    // longer side of a figure more often than on the shorter.
    static const clockid_t clock =
        std::getenv("MRL_BENCH_WALL") != nullptr ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID;
    const auto now = [] {
        timespec moment{};
        clock_gettime(clock, &moment);
        return static_cast<double>(moment.tv_sec) * 1e9 + static_cast<double>(moment.tv_nsec);
    };
    const double start = now();
    step();
    return now() - start;
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
    for (const auto& entry : entries()) {
        for (const int n : entry.sizes) {
            const auto name = entry.name + "/" + std::to_string(n);
            benchmark::RegisterBenchmark(name.c_str(),
                                         [&entry, n](benchmark::State& state) { measure(state, entry, n); })
                ->Iterations(1)
                ->Unit(benchmark::kMillisecond);
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace bench
