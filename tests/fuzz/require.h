#ifndef AIRLUME_TESTS_FUZZ_REQUIRE_H
#define AIRLUME_TESTS_FUZZ_REQUIRE_H

#include <cstdlib>

/// What has to hold for every input; the fuzzer keeps the input for which it does not.
inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

#endif
