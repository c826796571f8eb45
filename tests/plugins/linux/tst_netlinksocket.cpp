#include "linux/netlinkerror.h"
#include "linux/netlinksocket.h"
#include "linux/repeated.h"

#include <QTest>

#include <linux/genetlink.h>
#include <netlink/attr.h>
#include <netlink/errno.h>
#include <netlink/genl/genl.h>

#include <cerrno>

using LinuxWifi::NetlinkSocket;
using LinuxWifi::repeated;

namespace
{
bool nothing(nl_msg *)
{
    return true;
}

void ignore(nlmsghdr *) {}
} // namespace

/// Against the kernel's own controller of generic netlink families, which every kernel has.
class TestNetlinkSocket : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void missingFamilyIsTold();
    void dumpGivesEveryMessage();
    void requestGivesTheAnswer();
    void kernelErrorsComeAsTheyAre();
    void socketWorksOnAfterErrorsAndClosing();
    void requestThatCannotBeFilledIsNotSent();
    void errorsOfTheLibraryHaveAnErrno_data();
    void errorsOfTheLibraryHaveAnErrno();
    void transientErrorsAreRepeatedThreeTimes_data();
    void transientErrorsAreRepeatedThreeTimes();
    void successEndsTheRepetition();
};

void TestNetlinkSocket::initTestCase()
{
    NetlinkSocket socket("nlctrl");
    const int error = socket.dump(CTRL_CMD_GETFAMILY, nothing, ignore);
    if (error == EPROTONOSUPPORT || error == EAFNOSUPPORT || error == EACCES || error == EPERM)
        QSKIP("no generic netlink here");
    QCOMPARE(error, 0);
}

void TestNetlinkSocket::missingFamilyIsTold()
{
    NetlinkSocket socket("no such family");
    for (int i = 0; i < 3; ++i)
        QCOMPARE(socket.dump(1, nothing, ignore), EPROTONOSUPPORT);
}

void TestNetlinkSocket::dumpGivesEveryMessage()
{
    NetlinkSocket socket("nlctrl");
    QStringList families;
    const auto collect = [&families](nlmsghdr *message) {
        nlattr *attributes[CTRL_ATTR_MAX + 1];
        QCOMPARE(genlmsg_parse(message, 0, attributes, CTRL_ATTR_MAX, nullptr), 0);
        families.append(QString::fromUtf8(nla_get_string(attributes[CTRL_ATTR_FAMILY_NAME])));
    };
    QCOMPARE(socket.dump(CTRL_CMD_GETFAMILY, nothing, collect), 0);
    QVERIFY(families.contains(QStringLiteral("nlctrl")));
    const QStringList first = families;
    families.clear();
    QCOMPARE(socket.dump(CTRL_CMD_GETFAMILY, nothing, collect), 0);
    QCOMPARE(families, first);
}

void TestNetlinkSocket::requestGivesTheAnswer()
{
    NetlinkSocket socket("nlctrl");
    int messages = 0;
    const int error = socket.request(
        CTRL_CMD_GETFAMILY,
        [](nl_msg *request) {
            return nla_put_string(request, CTRL_ATTR_FAMILY_NAME, "nlctrl") == 0;
        },
        [&messages](nlmsghdr *) { ++messages; });
    QCOMPARE(error, 0);
    QCOMPARE(messages, 1);
}

void TestNetlinkSocket::kernelErrorsComeAsTheyAre()
{
    NetlinkSocket socket("nlctrl");
    QCOMPARE(socket.request(CTRL_CMD_GETFAMILY, nothing, ignore), EINVAL);
    QCOMPARE(socket.request(250, nothing, ignore), EOPNOTSUPP);
    const auto unknown = [](nl_msg *request) {
        return nla_put_string(request, CTRL_ATTR_FAMILY_NAME, "no_such_thing") == 0;
    };
    QCOMPARE(socket.request(CTRL_CMD_GETFAMILY, unknown, ignore), ENOENT);
}

void TestNetlinkSocket::socketWorksOnAfterErrorsAndClosing()
{
    NetlinkSocket socket("nlctrl");
    int messages = 0;
    const auto count = [&messages](nlmsghdr *) { ++messages; };
    for (int i = 0; i < 3; ++i) {
        messages = 0;
        QCOMPARE(socket.dump(CTRL_CMD_GETFAMILY, nothing, count), 0);
        QVERIFY(messages > 0);
        QVERIFY(socket.request(250, nothing, count) != 0);
        socket.close();
        socket.close();
    }
}

void TestNetlinkSocket::requestThatCannotBeFilledIsNotSent()
{
    NetlinkSocket socket("nlctrl");
    QCOMPARE(socket.dump(
                 CTRL_CMD_GETFAMILY, [](nl_msg *) { return false; }, ignore),
        ENOMEM);
    QCOMPARE(socket.dump(CTRL_CMD_GETFAMILY, nothing, ignore), 0);
}

void TestNetlinkSocket::errorsOfTheLibraryHaveAnErrno_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("error");
    QTest::newRow("no answer in time") << NLE_AGAIN << EAGAIN;
    QTest::newRow("interrupted") << NLE_INTR << EINTR;
    QTest::newRow("the list changed meanwhile") << NLE_DUMP_INTR << EINTR;
    QTest::newRow("receive buffer too small") << NLE_NOMEM << ENOBUFS;
    QTest::newRow("an answer to another request") << NLE_SEQ_MISMATCH << EIO;
    QTest::newRow("anything else") << NLE_FAILURE << EIO;
}

void TestNetlinkSocket::errorsOfTheLibraryHaveAnErrno()
{
    QFETCH(int, code);
    QFETCH(int, error);
    QCOMPARE(LinuxWifi::errnoOfNetlinkError(-code), error);
}

void TestNetlinkSocket::transientErrorsAreRepeatedThreeTimes_data()
{
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("calls");
    QTest::newRow("EINTR: the list changed meanwhile") << EINTR << 3;
    QTest::newRow("EAGAIN") << EAGAIN << 3;
    QTest::newRow("ENODEV") << ENODEV << 1;
    QTest::newRow("EPERM") << EPERM << 1;
    QTest::newRow("success") << 0 << 1;
}

void TestNetlinkSocket::transientErrorsAreRepeatedThreeTimes()
{
    QFETCH(int, error);
    QFETCH(int, calls);
    int called = 0;
    QCOMPARE(repeated([&] {
        ++called;
        return error;
    }),
        error);
    QCOMPARE(called, calls);
}

void TestNetlinkSocket::successEndsTheRepetition()
{
    int called = 0;
    QCOMPARE(repeated([&] { return ++called < 3 ? EINTR : 0; }), 0);
    QCOMPARE(called, 3);
}

QTEST_GUILESS_MAIN(TestNetlinkSocket)
#include "tst_netlinksocket.moc"
