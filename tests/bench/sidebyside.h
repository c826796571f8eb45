#ifndef AIRLUME_TESTS_BENCH_SIDEBYSIDE_H
#define AIRLUME_TESTS_BENCH_SIDEBYSIDE_H

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// Two ways to do the same work, measured in turns, so that both meet the same machine, and the
/// lines of the one table in which all benchmarks print them.
namespace SideBySide
{

/// How much to measure: all, or with "--quick" among the arguments just enough to try.
class Extent
{
public:
    Extent(int argc, char *const *argv)
        : m_quick(std::any_of(argv, argv + argc,
              [](const char *argument) { return std::strcmp(argument, "--quick") == 0; }))
    {
    }

    bool isQuick() const { return m_quick; }

    /// Numbers of networks to measure with, at most `most`.
    std::vector<int> networks(int most = 5000) const
    {
        std::vector<int> counts =
            m_quick ? std::vector<int>{15, 300} : std::vector<int>{0, 15, 60, 300, 1000, 5000};
        counts.erase(std::upper_bound(counts.begin(), counts.end(), most), counts.end());
        return counts;
    }

    /// How often to measure work that takes longer the more networks there are: an odd number,
    /// `most` for few of them.
    std::size_t rounds(std::size_t most, int networks) const
    {
        const std::size_t wanted = m_quick ? most / 4 : most;
        const std::size_t affordable = 12000 / static_cast<std::size_t>(std::max(networks, 1));
        return std::max<std::size_t>(std::min(wanted, affordable), 3) | 1;
    }

private:
    const bool m_quick;
};

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Median time of one call of each, in µs, by a clock that gives µs. The first, which fills caches,
/// does not count.
inline std::pair<double, double> compareBy(const std::function<double()> &clock, std::size_t rounds,
    const std::function<void()> &ours, const std::function<void()> &bare)
{
    std::vector<double> times[2];
    for (std::size_t round = 0; round <= rounds; ++round) {
        int which = 0;
        for (const auto *work : {&ours, &bare}) {
            const double start = clock();
            (*work)();
            const double time = clock() - start;
            if (round > 0)
                times[which].push_back(time);
            ++which;
        }
    }
    return {median(times[0]), median(times[1])};
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
    return compareBy(
        [] {
            timespec now;
            clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
            return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
        },
        rounds, ours, bare);
}

/// One line of the table: what, how many networks (-1 where they do not matter), Airlume's value,
/// the bare one, their ratio, and the growth since the line before with the same `what`: the factor
/// by which Airlume's value rose, divided by the factor by which the networks did. More than 1 is
/// superlinear.
inline void report(
    const char *what, int networks, std::pair<double, double> values, const char *unit = "us")
{
    static std::map<std::string, std::pair<int, double>> before;
    const auto places = [](double value) { return value < 9.95 ? 2 : 1; };
    const std::string number = networks < 0 ? "-" : std::to_string(networks);
    std::printf("%-48s %8s  %9.*f %-3s %9.*f %-3s", what, number.c_str(), places(values.first),
        values.first, unit, places(values.second), values.second, unit);
    if (values.second > 0.)
        std::printf(" %8.2f", values.first / values.second);
    else
        std::printf(" %8s", "-");
    const auto last = before.find(what);
    if (last != before.end() && last->second.first > 0 && last->second.second > 0.) {
        std::printf(" %7.2f\n", values.first / last->second.second * last->second.first / networks);
    } else {
        std::printf(" %7s\n", "-");
    }
    std::fflush(stdout);
    before[what] = {networks, values.first};
}

} // namespace SideBySide

#endif
