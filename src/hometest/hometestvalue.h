#ifndef AIRLUME_HOMETEST_HOMETESTVALUE_H
#define AIRLUME_HOMETEST_HOMETESTVALUE_H

/// What the last two tests of one room gave. A plain value; -1 in a field means "no result".
struct HomeTest_Value {
    int nowPercent = -1;  ///< Signal of the latest test, in percent.
    int nowSpeed = -1;    ///< Link speed of the latest test, in Mbps.
    int lastPercent = -1; ///< Signal of the test before, in percent.
    int lastSpeed = -1;   ///< Link speed of the test before, in Mbps.
};

inline bool operator==(const HomeTest_Value &a, const HomeTest_Value &b)
{
    return a.nowPercent == b.nowPercent && a.nowSpeed == b.nowSpeed &&
           a.lastPercent == b.lastPercent && a.lastSpeed == b.lastSpeed;
}

inline bool operator!=(const HomeTest_Value &a, const HomeTest_Value &b)
{
    return !(a == b);
}

#endif
