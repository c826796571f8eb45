#ifndef AIRLUME_TESTS_LINUX_MANAGERBENCH_H
#define AIRLUME_TESTS_LINUX_MANAGERBENCH_H

#include "linux/backgroundthread.h"
#include "linux/managerrequester.h"
#include "privatebus.h"

#include <QTest>

namespace LinuxWifi
{

/// A requester whose bus is given by its address. Whoever is asked answers in the test's own
/// thread, in which the answer is waited for.
class ManagerBench
{
public:
    /// Unless `settleMs` says otherwise, it asks only when told to.
    explicit ManagerBench(const QString &address, int timeoutMs = 5000, int settleMs = 3600 * 1000)
        : m_address(address)
        , m_requester(m_thread, settings(timeoutMs, settleMs))
    {
    }

    std::optional<ScanAnswer> ask(const QString &interface = QStringLiteral("wlan0"))
    {
        m_requester.request(interface);
        return awaited();
    }
    /// The next answer; nothing when none comes.
    std::optional<ScanAnswer> awaited()
    {
        std::optional<ScanAnswer> answer;
        const bool answered =
            QTest::qWaitFor([&] { return (answer = m_requester.takeAnswer()).has_value(); }, 60000);
        return answered ? answer : std::nullopt;
    }
    BackgroundThread &thread() { return m_thread; }
    ManagerRequester &requester() { return m_requester; }

private:
    ScanAsker::Settings settings(int timeoutMs, int settleMs) const
    {
        ScanAsker::Settings settings;
        settings.addresses = [address = m_address] { return address; };
        settings.patience = {timeoutMs, timeoutMs};
        settings.settleMs = settleMs;
        return settings;
    }

    const QString m_address;
    BackgroundThread m_thread;
    ManagerRequester m_requester;
};

} // namespace LinuxWifi

#define COMPARE_ANSWER(answer, expectedResult, expectedManager)                                    \
    do {                                                                                           \
        QVERIFY((answer).has_value());                                                             \
        QVERIFY2((answer)->result == (expectedResult), qPrintable((answer)->detail));              \
        QVERIFY((answer)->manager == (expectedManager));                                           \
    } while (false)

#endif
