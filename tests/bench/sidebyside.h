#ifndef AIRLUME_TESTS_BENCH_SIDEBYSIDE_H
#define AIRLUME_TESTS_BENCH_SIDEBYSIDE_H

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

/// Two ways to do the same work, measured in turns, so that both meet the same machine.
namespace SideBySide
{

/// Median wall time of one call of each, in µs.
inline std::pair<double, double> compare(
    std::size_t rounds, const std::function<void()> &ours, const std::function<void()> &bare)
{
    using Clock = std::chrono::steady_clock;
    std::vector<double> times[2];
    for (std::size_t round = 0; round < rounds; ++round) {
        int which = 0;
        for (const auto *work : {&ours, &bare}) {
            const Clock::time_point start = Clock::now();
            (*work)();
            times[which++].push_back(
                std::chrono::duration<double, std::micro>(Clock::now() - start).count());
        }
    }
    for (auto &list : times) {
        std::nth_element(
            list.begin(), list.begin() + static_cast<std::ptrdiff_t>(rounds / 2), list.end());
    }
    return {times[0][rounds / 2], times[1][rounds / 2]};
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
