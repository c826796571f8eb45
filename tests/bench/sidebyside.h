#ifndef AIRLUME_TESTS_BENCH_SIDEBYSIDE_H
#define AIRLUME_TESTS_BENCH_SIDEBYSIDE_H

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <ctime>
#include <functional>
#include <utility>
#include <vector>

/// Two ways to do the same work, measured in turns, so that both meet the same machine.
namespace SideBySide
{

/// Median time of one call of each, in µs, by a clock that gives µs.
inline std::pair<double, double> compareBy(const std::function<double()> &clock, std::size_t rounds,
    const std::function<void()> &ours, const std::function<void()> &bare)
{
    std::vector<double> times[2];
    for (std::size_t round = 0; round < rounds; ++round) {
        int which = 0;
        for (const auto *work : {&ours, &bare}) {
            const double start = clock();
            (*work)();
            times[which++].push_back(clock() - start);
        }
    }
    for (auto &list : times) {
        std::nth_element(
            list.begin(), list.begin() + static_cast<std::ptrdiff_t>(rounds / 2), list.end());
    }
    return {times[0][rounds / 2], times[1][rounds / 2]};
}

/// Median wall time of one call of each, in µs.
inline std::pair<double, double> compare(
    std::size_t rounds, const std::function<void()> &ours, const std::function<void()> &bare)
{
    return compareBy(
        [] {
            return std::chrono::duration<double, std::micro>(
                std::chrono::steady_clock::now().time_since_epoch())
                .count();
        },
        rounds, ours, bare);
}

/// Median processor time of one call of each, in µs: other work on the machine does not count.
inline std::pair<double, double> compareProcessor(
    std::size_t rounds, const std::function<void()> &ours, const std::function<void()> &bare)
{
    return compareBy([] { return static_cast<double>(std::clock()) * 1e6 / CLOCKS_PER_SEC; },
        rounds, ours, bare);
}

/// One line of the result: ours, bare, ours / bare.
inline void report(const char *what, std::pair<double, double> us)
{
    std::printf(
        "%-52s %10.1f us  %10.1f us  %6.2f\n", what, us.first, us.second, us.first / us.second);
    std::fflush(stdout);
}

} // namespace SideBySide

#endif
