// Sound but for one fault: AIRLUME_TEST_FAULT holds its name and, behind an @, where it happens:
// load, list, usable, query (as without it), third (query), thread (one of its own) or end (of the
// process). The names are the keys of "acts" and "airs" below, and of the interfaces: "flip"
// changes their order, "vanish" takes the only one away once, and "readother" reads another one
// than Airlume would take. AIRLUME_TEST_NOTE may name a file for the number of the process that
// hangs.
#include "testbackend.h"

#include <QMap>
#include <QSaveFile>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <stdexcept>
#include <thread>
#include <unistd.h>

namespace
{
QString faultName()
{
    return Air::setting("AIRLUME_TEST_FAULT", QString()).section(QLatin1Char('@'), 0, 0);
}

bool isPlace(const char *place)
{
    const QString name = Air::setting("AIRLUME_TEST_FAULT", QString());
    return name.section(QLatin1Char('@'), 1).isEmpty()
               ? qstrcmp(place, "query") == 0
               : name.section(QLatin1Char('@'), 1) == QLatin1String(place);
}

[[noreturn]] void hang()
{
    const QString path = Air::setting("AIRLUME_TEST_NOTE", QString());
    QSaveFile note(path);
    if (!path.isEmpty() && note.open(QIODevice::WriteOnly)) {
        note.write(QByteArray::number(::getpid()));
        note.commit();
    }
    for (;;)
        ::pause();
}

// Through a volatile pointer, so that no compiler sees the end coming.
int fall(int depth);
int (*volatile next)(int) = fall;

int fall(int depth)
{
    volatile char room[4096] = {};
    room[0] = static_cast<char>(depth);
    return next(depth + 1) + room[0];
}

void freeTwice()
{
    void (*volatile give)(void *) = std::free;
    // Big enough for the allocator to look at what it gets back.
    void *memory = std::malloc(4096);
    give(memory);
    give(memory);
}

template <typename Action> void onEveryDescriptor(Action action)
{
    for (int descriptor = 0; descriptor < 1024; ++descriptor)
        action(descriptor);
}

void setHandlers(void (*handler)(int))
{
    for (int signal = 1; signal < 32; ++signal)
        std::signal(signal, handler);
}

const QMap<QString, void (*)()> acts{
    {QStringLiteral("abort"), [] { std::abort(); }},
    {QStringLiteral("crash"), [] { std::raise(SIGSEGV); }},
    {QStringLiteral("overflow"), [] { fall(0); }},
    {QStringLiteral("freetwice"), freeTwice},
    {QStringLiteral("exit"), [] { std::exit(0); }},
    {QStringLiteral("exitnow"), [] { ::_exit(0); }},
    {QStringLiteral("throw"), [] { throw std::runtime_error("No radio \x1b[31mtoday"); }},
    {QStringLiteral("throwint"), [] { throw 7; }},
    {QStringLiteral("fatal"), [] { qFatal("The radio \x1b[31mexploded"); }},
    {QStringLiteral("complainandcrash"),
        [] {
            qCritical("The radio is on fire");
            std::raise(SIGSEGV);
        }},
    {QStringLiteral("hang"), [] { hang(); }},
    {QStringLiteral("stop"), [] { std::raise(SIGSTOP); }},
    {QStringLiteral("print"), [] { std::printf("{\"result\": \"heard\x1b[2J\"}\n"); }},
    {QStringLiteral("mumble"), [] { std::printf("no line feed"); }},
    {QStringLiteral("mumbleandcrash"),
        [] {
            std::printf("no line feed");
            std::raise(SIGSEGV);
        }},
    {QStringLiteral("flood"),
        [] {
            for (int i = 0; i < 20000; ++i)
                std::fprintf(stderr, "%060d\n", i);
        }},
    {QStringLiteral("closeall"), [] { onEveryDescriptor([](int d) { ::close(d); }); }},
    {QStringLiteral("scribble"),
        [] {
            onEveryDescriptor([](int d) {
                ::fcntl(d, F_SETFL, O_NONBLOCK);
                if (::write(d, "scribble", 8) < 0)
                    return; // Not one that can be written to.
            });
        }},
    {QStringLiteral("ignoresignals"),
        [] {
            setHandlers(SIG_IGN);
            hang();
        }},
    {QStringLiteral("catchsignals"),
        [] {
            setHandlers([](int) { ::_exit(0); });
            std::raise(SIGSEGV);
        }},
    {QStringLiteral("fork"),
        [] {
            if (::fork() == 0)
                hang();
            ::_exit(0);
        }},
    {QStringLiteral("takeoverterminate"),
        [] {
            std::set_terminate([] { ::_exit(0); });
            throw std::runtime_error("Nobody hears this");
        }},
};

void act(const char *place)
{
    if (const auto fault = acts.value(faultName()); fault && isPlace(place))
        fault();
}

QList<ScanMap> airWith(const QString &key, const QString &value)
{
    return {Air::network(0), Air::networkWith(1, key, value)};
}

ScanMap without(const QStringList &keys)
{
    ScanMap map = Air::network(1);
    for (const QString &key : keys)
        map.remove(key);
    return map;
}

int queries = 0;

const QMap<QString, std::function<QList<ScanMap>()>> airs{
    {QStringLiteral("reorder"),
        [] {
            QList<ScanMap> air = Air::networks(3);
            if (++queries % 2 == 0)
                air.swapItemsAt(1, 2);
            return air;
        }},
    {QStringLiteral("bssid"), [] { return airWith(ScanKey::Bssid, QStringLiteral("upstairs")); }},
    {QStringLiteral("weak"), [] { return airWith(ScanKey::Signal, QStringLiteral("-105")); }},
    {QStringLiteral("unit"), [] { return airWith(ScanKey::Signal, QStringLiteral("-67dBm")); }},
    {QStringLiteral("yes"), [] { return airWith(ScanKey::Connected, QStringLiteral("true")); }},
    {QStringLiteral("twojoined"), [] { return airWith(ScanKey::Connected, ScanJoined); }},
    {QStringLiteral("bare"),
        [] {
            return QList<ScanMap>{
                Air::network(0), without({ScanKey::Bssid, ScanKey::Channel, ScanKey::Security,
                                     ScanKey::Signal, ScanKey::Connected})};
        }},
    {QStringLiteral("garbagekeys"),
        [] {
            return QList<ScanMap>{
                {{QStringLiteral("SSID"), QStringLiteral("x")}, {QString(), QString()}}};
        }},
    {QStringLiteral("own"), [] { return Air::networks(1); }},
    {QStringLiteral("late"), [] { return Air::networks(++queries < 4 ? queries / 3 : 3); }},
};

class Faulty : public Kind
{
public:
    Faulty()
    {
        std::atexit([] { act("end"); });
        act("load");
    }

    bool list(QStringList &nics) override
    {
        act("list");
        const QString fault = faultName();
        const int call = m_lists++;
        if (fault == QLatin1String("vanish") && call == 2)
            return true;
        Kind::list(nics);
        if (fault == QLatin1String("flip") || fault == QLatin1String("readother"))
            nics.insert(fault == QLatin1String("flip") ? call % 2 : 1, QStringLiteral("test1"));
        return true;
    }

    bool isUsable(const QString &nic) override
    {
        act("usable");
        return Kind::isUsable(nic);
    }

    bool query(QString &nic, QList<ScanMap> &networks) override
    {
        act("query");
        if (++m_queries == 3)
            act("third");
        if (isPlace("thread"))
            std::thread([] { act("thread"); }).join();
        if (faultName() == QLatin1String("readother") && nic == QLatin1String("test1")) {
            networks.append(Air::network(9));
            return true;
        }
        if (const auto air = airs.value(faultName())) {
            networks += air();
            return true;
        }
        return Kind::query(nic, networks);
    }

private:
    int m_lists = 0;
    int m_queries = 0;
};
} // namespace

AIRLUME_TEST_KIND(Faulty)
