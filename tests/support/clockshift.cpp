// Preloaded into a program, this moves its wall clock: by the seconds that the file of the
// environment variable AIRLUME_TEST_CLOCK holds, as eight bytes in the machine's own order. The
// file may be written at any time. Clocks that never jump are left alone.
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/time.h>
#include <unistd.h>

namespace
{
const volatile std::int64_t *openShift()
{
    const char *name = std::getenv("AIRLUME_TEST_CLOCK");
    const int file = name ? open(name, O_RDONLY | O_CLOEXEC) : -1;
    if (file < 0)
        return nullptr;
    void *mapped = mmap(nullptr, sizeof(std::int64_t), PROT_READ, MAP_SHARED, file, 0);
    close(file);
    return mapped == MAP_FAILED ? nullptr : static_cast<const volatile std::int64_t *>(mapped);
}

time_t shift()
{
    static const volatile std::int64_t *seconds = openShift();
    return seconds ? static_cast<time_t>(*seconds) : 0;
}
} // namespace

// Past the library functions, which these replace.
extern "C" int clock_gettime(clockid_t clock, timespec *now) noexcept
{
    const long result = syscall(SYS_clock_gettime, clock, now);
    if (result == 0 && (clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE))
        now->tv_sec += shift();
    return static_cast<int>(result);
}

extern "C" int gettimeofday(timeval *now, void *) noexcept
{
    timespec precise;
    const int result = clock_gettime(CLOCK_REALTIME, &precise);
    if (result == 0) {
        now->tv_sec = precise.tv_sec;
        now->tv_usec = static_cast<suseconds_t>(precise.tv_nsec / 1000);
    }
    return result;
}

extern "C" time_t time(time_t *result) noexcept
{
    timespec now;
    if (clock_gettime(CLOCK_REALTIME, &now) != 0)
        return -1;
    if (result)
        *result = now.tv_sec;
    return now.tv_sec;
}
